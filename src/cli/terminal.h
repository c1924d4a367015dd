// A command's messages, questions and progress on a terminal or in a pipe.
#pragma once

#include "exchange.h"
#include "exit_status.h"

#include <iosfwd>
#include <string_view>

namespace mr4500x {

// Where a command talks. Data goes to `out`; messages, questions and progress to `err`.
struct Terminal {
  std::ostream& out;
  std::ostream& err;
  std::istream& in;
  bool answersQuestions; // somebody sits before `in` and sees `err`
  bool showsProgress;    // `err` is a terminal
};

// What a command that printed data ends with: a failure when not all of it could be written.
[[nodiscard]] ExitStatus EndOutput(Terminal& terminal);

// The question of another band is asked where somebody can answer it. Nobody: No.
enum class BandAnswer : std::uint8_t { Ask, Yes };

// Shows a transfer's progress as one line that is written over; nothing off a terminal. Its end is left to the command.
class TerminalObserver final : public ExchangeObserver {
public:
  TerminalObserver(const Terminal& terminal, BandAnswer band) : m_terminal(terminal), m_band(band) {}

  void Began(Transfer transfer, int maximum) override;
  void Progress(int value) override;
  void Ended() override;
  [[nodiscard]] bool AcceptsOtherBand() override;
  [[nodiscard]] bool Complete(Transfer /*transfer*/) override { return true; }

private:
  [[nodiscard]] bool AskYesNo();

  const Terminal& m_terminal;
  BandAnswer m_band;
  std::string_view m_text;
  int m_maximum = 0;
  int m_percent = -1;
};

} // namespace mr4500x
