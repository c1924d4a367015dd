// The progress window of a transfer: a title, a line of text and a bar.
#pragma once

#include <string_view>

namespace mr4500x {

class ProgressView {
public:
  virtual ~ProgressView() = default;
  virtual void Open(std::string_view title, std::string_view text, int maximum) = 0; // starts at 0
  virtual void SetValue(int value) = 0;                                              // clamped to 0..maximum
  virtual void Close() = 0;                                                          // no effect when not open
};

} // namespace mr4500x
