// What the main window keeps beside the image. Which file or radio the data belongs to is kept by the window's title.
#pragma once

#include <cstdint>
#include <string>

namespace mr4500x {

struct FontDescription {
  std::string name = "Arial";
  int size = 8; // points
  bool bold = false, italic = false, underlined = false, struckOut = false;
  std::uint32_t colour = 0x000000;
};

struct EditorState {
  bool ModifiedFlag = false; // the editor holds changes that are in no file
  int CommPortNumber = 1;
  std::string LastFileName; // the path last chosen for a file
  FontDescription EmbeddedTextFont;
};

} // namespace mr4500x
