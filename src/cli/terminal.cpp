// Talking on a terminal.
#include "terminal.h"

#include <algorithm>
#include <cctype>
#include <iostream>

namespace mr4500x {

Answer TerminalMessages::Show(MessageIcon icon, std::string_view /*title*/, std::string_view text,
                              MessageButtons buttons) {
  if (buttons == MessageButtons::Ok) {
    if (icon != MessageIcon::None) m_terminal.err << text << '\n';
    return Answer::Ok;
  }
  if (m_policy == Policy::AlwaysYes) return Answer::Yes;
  m_terminal.err << text;
  if (m_terminal.answersQuestions) return AskYesNo();
  m_terminal.err << '\n';
  return Answer::No;
}

ExitStatus EndOutput(Terminal& terminal) {
  terminal.out << std::flush;
  if (terminal.out.good()) return ExitStatus::Done;
  terminal.err << "The output could not be written.\n";
  return ExitStatus::Failed;
}

Answer TerminalMessages::AskYesNo() {
  std::string line;
  for (;;) {
    m_terminal.err << " (y/n) " << std::flush;
    if (!std::getline(m_terminal.in, line)) return Answer::No;
    line.erase(line.find_last_not_of(" \t\r") + 1);
    line.erase(0, line.find_first_not_of(" \t"));
    std::transform(line.begin(), line.end(), line.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (line == "y" || line == "yes") return Answer::Yes;
    if (line == "n" || line == "no") return Answer::No;
    m_terminal.err << "Please answer yes or no.";
  }
}

void TerminalProgress::Open(std::string_view /*title*/, std::string_view text, int maximum) {
  m_text = text;
  m_maximum = maximum;
  m_percent = -1;
  SetValue(0);
}

void TerminalProgress::SetValue(int value) {
  if (!m_terminal.showsProgress || m_maximum <= 0) return;
  const int percent = 100 * std::clamp(value, 0, m_maximum) / m_maximum;
  if (percent <= m_percent) return; // a write's last value lies below the one before
  m_percent = percent;
  m_terminal.err << '\r' << m_text << ' ' << percent << " %" << std::flush;
}

void TerminalProgress::Close() {
  if (m_terminal.showsProgress && m_maximum > 0) m_terminal.err << '\n' << std::flush;
  m_maximum = 0;
}

} // namespace mr4500x
