// The viewer of the help file. It reports itself when it cannot open it.
#pragma once

namespace mr4500x {

class HelpViewer {
public:
  virtual ~HelpViewer() = default;
  virtual void OpenContents() = 0;
  virtual void OpenIndex() = 0;
};

} // namespace mr4500x
