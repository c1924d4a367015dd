#pragma once

#include "font_dialog.h"
#include "origin.h"

#include <string>

namespace mr4500x {

// What the main window keeps besides the image.
struct EditorState {
  Origin origin;
  bool ModifiedFlag = false; // there are unsaved changes
  int CommPortNumber = 1;
  std::string LastFileName; // path
  FontDescription EmbeddedTextFont;
};

} // namespace mr4500x
