// What the main window keeps beside the image.
#pragma once

#include "font_dialog.h"
#include "origin.h"

#include <string>

namespace mr4500x {

struct EditorState {
  Origin origin;
  bool ModifiedFlag = false; // the editor holds changes that are in no file
  int CommPortNumber = 1;
  std::string LastFileName; // the path last chosen for a file
  FontDescription EmbeddedTextFont;
};

} // namespace mr4500x
