// Output, messages, questions and progress of a command, on a terminal or in a pipe.
#pragma once

#include "exchange.h"
#include "input.h" // Stream

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

namespace mr4500x {

enum class ExitStatus : int {
  Done = 0,
  Failed = 1, // with a message on standard error and the files unchanged
  UnusableArguments = 2,
};

// Data goes to `out`; messages, questions and progress go to `err`.
struct Terminal {
  std::ostream& out;
  std::ostream& err;
  std::istream& in;
  bool answersQuestions; // a user reads `err` and types into `in`
  bool showsProgress;    // `err` is a terminal
  // Waits for input from the user. Returns false if the program is to end instead.
  std::function<bool()> awaitInput = [] { return true; };
  // Whether the program was asked to end, so that no further transfer may begin.
  std::function<bool()> isEnding = [] { return false; };
};

// Runs a program with the standard streams, and returns its exit status.
[[nodiscard]] int RunProgram(const std::function<ExitStatus(Terminal& terminal)>& run);

// Prints the message. Returns the status for a return.
ExitStatus Fail(const Terminal& terminal, const std::string& message, ExitStatus status = ExitStatus::Failed);
ExitStatus Refuse(const Terminal& terminal, const std::string& message); // of unusable arguments

// " (No space left on device)", to be appended to a message.
[[nodiscard]] std::string ReasonOf(const FileResult& failed);

// Prints the data. Failed, with a message that ends with `remark`, if any data of the command could not be written.
[[nodiscard]] ExitStatus PrintData(Terminal& terminal, std::string_view text = "", const std::string& remark = "");

// Ask: if there is no user to answer, the answer is no.
enum class BandAnswer : std::uint8_t { Ask, Yes };

// Shows progress as one line that is overwritten, on a terminal only. The command reports the end.
class TerminalObserver final : public ExchangeObserver {
public:
  TerminalObserver(const Terminal& terminal, BandAnswer band, std::string port = {})
      : m_terminal(terminal), m_band(band), m_port(std::move(port)) {}

  void Began(Transfer transfer, int maximum) override;
  void Progress(int value) override;
  void Ended() override;
  [[nodiscard]] bool AcceptsOtherBand() override;

private:
  const Terminal& m_terminal;
  BandAnswer m_band;
  std::string m_port; // before the question
  std::string_view m_text;
  int m_maximum = 0;
  int m_percent = -1;
};

} // namespace mr4500x
