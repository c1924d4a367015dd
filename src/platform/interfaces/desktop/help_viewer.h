#pragma once

namespace mr4500x {

// Reports its own failures to the user.
class HelpViewer {
public:
  virtual ~HelpViewer() = default;
  virtual void OpenContents() = 0;
  virtual void OpenIndex() = 0;
};

} // namespace mr4500x
