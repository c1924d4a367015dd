// Messages, questions and progress on a terminal or in a pipe, in the place of the windows of the desktop program.
#pragma once

#include "exit_status.h"
#include "message_view.h"
#include "progress_view.h"

#include <iosfwd>
#include <string>

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

// Shows failures; a completed exchange needs no words. A question is asked where somebody can answer it, and has the
// given answer elsewhere.
class TerminalMessages final : public MessageView {
public:
  enum class Policy { Ask, AlwaysYes };
  TerminalMessages(const Terminal& terminal, Policy policy) : m_terminal(terminal), m_policy(policy) {}

  Answer Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) override;

private:
  Answer AskYesNo();

  const Terminal& m_terminal;
  Policy m_policy;
};

// One line that is written over as the transfer goes on; nothing off a terminal.
class TerminalProgress final : public ProgressView {
public:
  explicit TerminalProgress(const Terminal& terminal) : m_terminal(terminal) {}

  void Open(std::string_view title, std::string_view text, int maximum) override;
  void SetValue(int value) override;
  void Close() override;

private:
  const Terminal& m_terminal;
  std::string m_text;
  int m_maximum = 0;
  int m_percent = -1;
};

} // namespace mr4500x
