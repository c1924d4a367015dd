#include "origin.h"

#include "program_title.h"

namespace mr4500x {
namespace {

constexpr std::string_view Separator = " - ";

std::string_view TransferTitle(Transfer transfer) {
  switch (transfer) {
  case Transfer::Read:
    return "Read Completely";
  case Transfer::Write:
    return "Write Completely";
  case Transfer::ReadInfo:
    return "Read Information Completely";
  case Transfer::WriteInfo:
    break;
  }
  return "Write Information Completely";
}

} // namespace

std::string TitleOf(const Origin& origin) {
  std::string title(ProgramTitle);
  if (const auto* const file = std::get_if<FileOrigin>(&origin)) return title.append(Separator).append(file->path);
  if (const auto* const radio = std::get_if<RadioOrigin>(&origin))
    return std::string(TransferTitle(radio->transfer)).append(Separator).append(title);
  return title;
}

} // namespace mr4500x
