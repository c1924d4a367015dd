#include "messages.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using enum Transfer;
using enum Outcome;

std::string Line(const std::optional<Message>& message) {
  const char* icons[] = {"", "i|", "!|", "X|"};
  return message ? icons[static_cast<int>(message->icon)] + message->title + "|" + message->text : "";
}
std::string Failure(Transfer transfer, Outcome outcome, const char* description = "") {
  return Line(FailureOf({transfer, outcome, "COM3", description}));
}
std::string Progress(Transfer transfer) {
  return std::string(ProgressOf(transfer).title) + "|" + std::string(ProgressOf(transfer).text);
}

TEST(Messages, OfTransfers) {
  constexpr char denied[] = "Access is denied.";
  const std::array<std::string, 3> cases[] = {
      // clang-format off
      {"port not opened", Failure(Read, PortNotOpened, denied), "X|Error|COM3: Access is denied."},
      {"port failed", Failure(Write, PortNotOpened), "X|Error|COM3: The port failed while it was being set up."},
      {"no response", Failure(WriteInfo, NoResponse), "!|Communication port error|COM3 port don't respond, please check your connection!"},
      {"wrong model", Failure(Write, WrongModel), "!|Error|The radio model is wrong. The connected radio doesn't belong to LR7200 Series. Can't continue!"},
      {"band declined", Failure(Write, BandDeclined), ""},
      {"nothing failed", Failure(Read, Complete), ""},
      {"read", Progress(Read), "Read|Reading data from the radio ..."},
      {"read complete", Line(CompletionOf(Read)), "Read Complete|Read data is complete. Press OK button to continue ..."},
      {"read interrupted", Failure(Read, Interrupted), "!|Read Interrupt|Reading is interrupted, please retry Read."},
      {"read data", Failure(Read, DataError), "!|Data Error|Read data error, please retry Read."},
      {"read display", Failure(Read, DisplayError), "!|Data Error|Data read can't display correctly. Please confirm."},
      {"write", Progress(Write), "Write|Write data to the radio ..."},
      {"write complete", Line(CompletionOf(Write)), "Write Complete|Write data is complete. Press OK button to continue ..."},
      {"write interrupted", Failure(Write, Interrupted), "!|Write Interrupt|Writing is interrupted, please retry Write."},
      {"write data", Failure(Write, DataError), "!|Data Error|Writing data error, please retry Write."},
      {"read info", Progress(ReadInfo), "Read Emedded Information|Reading embedded information from the radio ..."},
      {"read info complete", Line(CompletionOf(ReadInfo)), "Read Information Completely|Read information is complete. Press OK button to continue ..."},
      {"read info data", Failure(ReadInfo, DataError), "!|Read Information Error|Read information error, please try again."},
      {"read info display", Failure(ReadInfo, DisplayError), "!|Information Error|Data that has been read can't correctly display!"},
      {"write info", Progress(WriteInfo), "Write Embedded Information|Write embedded information to radio ..."},
      {"write info complete", Line(CompletionOf(WriteInfo)), "Write Information Completely|Write information completely. Press OK to continue."},
      {"write info interrupted", Failure(WriteInfo, Interrupted), "!|Information Error|Writing information is interrupted, please try again."},
      {"write info data", Failure(WriteInfo, DataError), "!|Write Information Error|Writing information error, please try again."},
      // clang-format on
  };
  for (const auto& [name, told, expected] : cases)
    EXPECT_EQ(told, expected) << name;
}

} // namespace
} // namespace mr4500x
