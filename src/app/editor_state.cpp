#include "editor_state.h"

#include "program_title.h"

namespace mr4500x {

std::string TitleOf(const Origin& origin) {
  static constexpr const char* transfers[] = {"Read Completely", "Write Completely", "Read Information Completely",
                                              "Write Information Completely"};
  std::string title(ProgramTitle);
  if (const auto* const file = std::get_if<FileOrigin>(&origin)) return title + " - " + file->path;
  if (const auto* const radio = std::get_if<RadioOrigin>(&origin))
    return transfers[static_cast<std::size_t>(radio->transfer)] + (" - " + title);
  return title;
}

} // namespace mr4500x
