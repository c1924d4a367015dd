#include "origin.h"

#include "program_title.h"

namespace mr4500x {
namespace {

constexpr std::string_view Separator = " - ";

std::string_view TransferTitle(Transfer transfer) {
  if (transfer == Transfer::Read) return "Read Completely";
  if (transfer == Transfer::Write) return "Write Completely";
  return transfer == Transfer::ReadInfo ? "Read Information Completely" : "Write Information Completely";
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
