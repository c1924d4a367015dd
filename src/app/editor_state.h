// What the main window keeps beside the image. Which file or radio the data belongs to is kept by the window's title.
#pragma once

#include "font_dialog.h"

#include <string>

namespace mr4500x {

struct EditorState {
  bool ModifiedFlag = false; // the editor holds changes that are in no file
  int CommPortNumber = 1;
  std::string LastFileName; // the path last chosen for a file
  FontDescription EmbeddedTextFont;
};

} // namespace mr4500x
