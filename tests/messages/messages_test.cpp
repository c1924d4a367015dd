#include "messages.h"

#include <gtest/gtest.h>

#include <fstream>

namespace mr4500x {
namespace {

using enum Transfer;
using enum Outcome;

std::string Line(const Message& message) {
  const char* icons[] = {"", "i|", "!|", "X|"};
  return icons[static_cast<int>(message.icon)] + message.title + "|" + message.text + "\n";
}

TEST(Messages, AreAsInTheFile) {
  std::string reported;
  for (const Transfer transfer : {Read, Write, ReadInfo, WriteInfo}) {
    const ProgressWords words = ProgressOf(transfer);
    reported += "\n" + std::string(words.title) + "|" + std::string(words.text) + "\n" + Line(CompletionOf(transfer));
    for (const Outcome outcome : {NoResponse, WrongModel, Interrupted, DataError, DisplayError})
      if (const auto failure = FailureOf({transfer, outcome, "COM3", ""})) reported += Line(*failure);
    for (const char* const description : {"Access is denied.", ""})
      reported += Line(FailureOf({transfer, PortNotOpened, "COM3", description}).value());
    for (const Outcome silent : {Complete, BandDeclined})
      EXPECT_EQ(FailureOf({transfer, silent, "COM3", ""}), std::nullopt);
  }
  std::string differences = "1\n2\n3\n4\n5\n6\n7\n";
  for (const char* const last : {"8\n", "9\n"})
    reported += '\n' + Line(KeptWorkQuestion({{}, "a day", "a radio", differences += last}));
  for (const std::errc reason : {std::errc::device_or_resource_busy, std::errc::permission_denied, std::errc::io_error})
    reported += PortHint("COM", std::make_error_code(reason).message(), "") + '\n';
  std::ifstream file(MESSAGES);
  EXPECT_EQ(reported, std::string(std::istreambuf_iterator<char>(file), {}));
}

} // namespace
} // namespace mr4500x
