// read, write, info read, info write and ports.
#include "radio_commands.h"

#include "embedded_info.h"
#include "file_commands.h"
#include "info_text.h"
#include "port_choice.h"
#include "signaling.h"

#include <iomanip>
#include <ostream>

namespace mr4500x {
namespace {

ExitStatus StatusOf(Outcome outcome) {
  return outcome == Outcome::Complete ? ExitStatus::Done : ExitStatus::Failed;
}

bool NothingToShow() {
  return true;
}

} // namespace

ExitStatus RunRead(const RadioCommand& command, const std::string& path) {
  TerminalMessages messages(command.terminal, TerminalMessages::Policy::Ask);
  TerminalProgress progress(command.terminal);
  RadioImage image;
  const Outcome outcome = ReadRadio({command.line, progress, messages}, image, NothingToShow);
  if (outcome != Outcome::Complete) return ExitStatus::Failed;
  image.FiveToneStandard = image.ResetTimeBlock[StandardByte];
  return SaveForCommand(command.files, path, image, command.terminal) ? ExitStatus::Done : ExitStatus::Failed;
}

ExitStatus RunWrite(const RadioCommand& command, const std::string& path, TerminalMessages::Policy band,
                    const std::function<LocalTime()>& now) {
  RadioImage image;
  if (!LoadForCommand(command.files, path, image, command.terminal)) return ExitStatus::Failed;
  TerminalMessages messages(command.terminal, band);
  TerminalProgress progress(command.terminal);
  return StatusOf(WriteRadio({command.line, progress, messages}, image, now, [] {}));
}

ExitStatus RunInfoRead(const RadioCommand& command) {
  TerminalMessages messages(command.terminal, TerminalMessages::Policy::Ask);
  TerminalProgress progress(command.terminal);
  RadioImage image;
  const Outcome outcome = ReadEmbeddedInfo({command.line, progress, messages}, image, NothingToShow);
  if (outcome != Outcome::Complete) return ExitStatus::Failed;
  command.terminal.out << InfoToPrint(EmbeddedText(image.EmbeddedInfoBlock)) << '\n'
                       << LastProgrammingTime(image) << std::endl;
  return command.terminal.out.good() ? ExitStatus::Done : ExitStatus::Failed;
}

ExitStatus RunInfoWrite(const RadioCommand& command, std::u16string_view text) {
  RadioImage image;
  if (!StoreEmbeddedText(image.EmbeddedInfoBlock, text)) return ExitStatus::UnusableArguments;
  TerminalMessages messages(command.terminal, TerminalMessages::Policy::Ask);
  TerminalProgress progress(command.terminal);
  return StatusOf(WriteEmbeddedInfo({command.line, progress, messages}, image, [] {}));
}

ExitStatus RunPorts(SerialPort& port, const std::function<std::string(int)>& deviceOf, Terminal& terminal) {
  for (int number = 1; number <= PortCount; ++number) {
    const std::string device = deviceOf(number);
    const char* const state = device.empty() ? "no device" : TestPort(port, number) ? "opens" : "does not open";
    terminal.out << std::left << std::setw(7) << ComName(number) << std::setw(24)
                 << (device.empty() ? std::string("-") : device) << ' ' << state << '\n';
  }
  terminal.out << std::flush;
  return terminal.out.good() ? ExitStatus::Done : ExitStatus::Failed;
}

} // namespace mr4500x
