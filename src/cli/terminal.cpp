#include "terminal.h"

#include "end_signals.h"
#include "machine.h"
#include "messages.h"
#include "open_file.h"
#include "text.h"
#include "utf8.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iostream>

namespace mr4500x {

int RunProgram(const std::function<ExitStatus(Terminal& terminal)>& run) {
  PrepareProcess();
  const bool hasUser = isatty(STDIN_FILENO) != 0, isSeen = isatty(STDERR_FILENO) != 0;
  Terminal terminal{std::cout, std::cerr, std::cin, hasUser && isSeen, isSeen, [] { return AwaitInput(STDIN_FILENO); },
                    IsEnding};
  try {
    return static_cast<int>(run(terminal));
  } catch (const std::exception& error) { // mostly out of memory
    return static_cast<int>(Fail(terminal, error.what()));
  }
}

ExitStatus Fail(const Terminal& terminal, const std::string& message, ExitStatus status) {
  constexpr std::size_t MostCharacters = 10'000; // several paths
  terminal.err << Printable(message, MostCharacters) << '\n';
  return status;
}

ExitStatus Refuse(const Terminal& terminal, const std::string& message) {
  return Fail(terminal, message, ExitStatus::UnusableArguments);
}

std::string ReasonOf(const FileResult& failed) {
  return " (" + failed.Reason() + ')';
}

ExitStatus PrintData(Terminal& terminal, std::string_view text, const std::string& remark) {
  const bool hasFailed = !terminal.out.good(); // earlier, and errno has changed since
  terminal.out.clear();
  errno = EIO;
  terminal.out << text << (hasFailed ? "\n" : "") << std::flush;
  if (terminal.out.good() && !hasFailed) return ExitStatus::Done;
  return Fail(terminal, "The output could not be written." + ReasonOf(SystemFailed()) + remark);
}

bool TerminalObserver::AcceptsOtherBand() {
  if (m_band == BandAnswer::Yes) return true;
  m_terminal.err << m_port << (m_port.empty() ? "" : ": ") << BandQuestion().text;
  if (!m_terminal.answersQuestions) {
    m_terminal.err << "\nNot written, because there is no terminal for the answer. Use --accept-band to answer yes.\n";
    return false;
  }
  std::string line;
  for (;;) {
    m_terminal.err << " (y/n) " << std::flush;
    if (!m_terminal.awaitInput() || !std::getline(m_terminal.in, line)) {
      m_terminal.err << "\nNot written.\n";
      return false;
    }
    const std::string answer = Lower(std::string(Trimmed(line, " \t\r")));
    if (answer == "y" || answer == "yes") return true;
    if (answer == "n" || answer == "no") return false;
    m_terminal.err << "Please answer yes or no.";
  }
}

void TerminalObserver::Began(Transfer transfer, int maximum) {
  m_text = ProgressOf(transfer).text;
  m_maximum = maximum;
  Progress(0);
}

void TerminalObserver::Progress(int value) {
  if (!m_terminal.showsProgress) return;
  const int percent = 100 * std::clamp(value, 0, m_maximum) / m_maximum;
  if (percent <= m_percent) return; // the last value of a write is below the one before
  m_percent = percent;
  m_terminal.err << '\r' << m_text << ' ' << percent << " %" << std::flush;
}

void TerminalObserver::Ended() {
  if (m_terminal.showsProgress) m_terminal.err << '\n' << std::flush;
}

} // namespace mr4500x
