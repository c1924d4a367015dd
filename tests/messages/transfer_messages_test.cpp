#include "transfer_messages.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using enum Transfer;
using enum Outcome;

std::string Line(const Message& message) {
  const char* icons[] = {"", "i|", "!|", "X|"};
  return icons[static_cast<int>(message.icon)] + message.title + "|" + message.text;
}

TEST(TransferMessages, AreTheTextsOfEachTransferAndOutcome) {
  constexpr char dead[] = "!|Communication port error|COM3 port don't respond, please check your connection!";
  constexpr char model[] =
      "!|Error|The radio model is wrong. The connected radio doesn't belong to LR7200 Series. Can't continue!";
  const struct {
    Transfer transfer;
    Outcome outcome;
    const char* line; // none: nothing to tell
    const char* description = "";
  } cases[] = {
      {Read, PortNotOpened, "X|Error|COM3: Access is denied.", "Access is denied."},
      {Write, PortNotOpened, "X|Error|COM3: The port failed while it was being set up."},
      {Read, NoResponse, dead},
      {WriteInfo, NoResponse, dead},
      {Write, WrongModel, model},
      {WriteInfo, WrongModel, model},
      {Write, BandDeclined, nullptr},
      {Read, Complete, nullptr},
      {Read, Interrupted, "!|Read Interrupt|Reading is interrupted, please retry Read."},
      {Read, DataError, "!|Data Error|Read data error, please retry Read."},
      {Read, DisplayError, "!|Data Error|Data read can't display correctly. Please confirm."},
      {Write, Interrupted, "!|Write Interrupt|Writing is interrupted, please retry Write."},
      {Write, DataError, "!|Data Error|Writing data error, please retry Write."},
      {ReadInfo, DataError, "!|Read Information Error|Read information error, please try again."},
      {ReadInfo, DisplayError, "!|Information Error|Data that has been read can't correctly display!"},
      {WriteInfo, Interrupted, "!|Information Error|Writing information is interrupted, please try again."},
      {WriteInfo, DataError, "!|Write Information Error|Writing information error, please try again."},
  };
  for (const auto& [transfer, outcome, line, description] : cases) {
    const auto message = FailureOf({transfer, outcome, "COM3", description});
    EXPECT_EQ(message ? Line(*message) : "", line != nullptr ? line : "");
  }
}

TEST(TransferMessages, AreTheTextsOfProgressAndCompletion) {
  const struct {
    Transfer transfer;
    const char *progressTitle, *progressText, *completion;
  } cases[] = {
      {Read, "Read", "Reading data from the radio ...",
       "Read Complete|Read data is complete. Press OK button to continue ..."},
      {Write, "Write", "Write data to the radio ...",
       "Write Complete|Write data is complete. Press OK button to continue ..."},
      {ReadInfo, "Read Emedded Information", "Reading embedded information from the radio ...",
       "Read Information Completely|Read information is complete. Press OK button to continue ..."},
      {WriteInfo, "Write Embedded Information", "Write embedded information to radio ...",
       "Write Information Completely|Write information completely. Press OK to continue."},
  };
  for (const auto& [transfer, title, text, completion] : cases) {
    EXPECT_EQ(ProgressOf(transfer).title, title);
    EXPECT_EQ(ProgressOf(transfer).text, text) << title;
    EXPECT_EQ(Line(CompletionOf(transfer)), completion) << title;
  }
}

} // namespace
} // namespace mr4500x
