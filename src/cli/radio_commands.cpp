#include "radio_commands.h"

#include "arguments.h"
#include "embedded_info.h"
#include "file_access.h"
#include "file_commands.h"
#include "fill_messages.h"
#include "messages.h"
#include "port_choice.h"
#include "signaling.h"

#include <iomanip>
#include <ostream>

namespace mr4500x {
namespace {

// False for a new file in a folder that is not writable.
bool CanBeCreated(FileSystem& files, const std::string& path) {
  const std::optional<FileStatus> status = files.Status(path);
  if (status && status->kind != FileKind::Missing) return true;
  return files.CanWrite(FolderOf(path));
}

// False, with a message, unless the transfer is complete.
bool IsComplete(const Terminal& terminal, const ExchangeResult& result) {
  if (const auto failure = FailureOf(result)) terminal.err << failure->text << '\n';
  return result.outcome == Outcome::Complete;
}

// Tells a user who watched the progress how it ended. A script uses the exit status.
ExitStatus Done(const Terminal& terminal, const std::string& sentence) {
  if (terminal.showsProgress) terminal.err << sentence << '\n';
  return ExitStatus::Done;
}

} // namespace

ExitStatus RunRead(const RadioCommand& command, const std::string& path) {
  if (!CanBeCreated(command.files, path)) { // fail before reading the whole radio
    command.terminal.err << MessageForFailed(SaveCommand::Save).text << '\n';
    return ExitStatus::Failed;
  }
  TerminalObserver observer(command.terminal, BandAnswer::Ask);
  RadioImage image;
  if (!IsComplete(command.terminal, ReadRadio(command.line, image, observer))) return ExitStatus::Failed;
  image.FiveToneStandard = image.ResetTimeBlock[StandardByte];
  if (image.FiveToneStandard == 0) command.terminal.err << DataErrorText << '\n'; // as the editor does
  if (!SaveForCommand(command.files, path, image, command.terminal)) return ExitStatus::Failed;
  return Done(command.terminal, command.line.PortName() + " has been read into " + path + ".");
}

ExitStatus RunWrite(const RadioCommand& command, const std::string& path, BandAnswer band,
                    const std::function<LocalTime()>& now) {
  RadioImage image;
  if (!LoadForCommand(command.files, path, image, command.terminal)) return ExitStatus::Failed;
  TerminalObserver observer(command.terminal, band);
  if (!IsComplete(command.terminal, WriteRadio(command.line, image, now, observer))) return ExitStatus::Failed;
  return Done(command.terminal, path + " has been written to " + command.line.PortName() + ".");
}

ExitStatus RunInfoRead(const RadioCommand& command) {
  TerminalObserver observer(command.terminal, BandAnswer::Ask);
  RadioImage image;
  if (!IsComplete(command.terminal, ReadEmbeddedInfo(command.line, image, observer))) return ExitStatus::Failed;
  command.terminal.out << InfoToPrint(EmbeddedText(image.EmbeddedInfoBlock)) << '\n'
                       << LastProgrammingTime(image) << '\n';
  return EndOutput(command.terminal);
}

ExitStatus RunInfoWrite(const RadioCommand& command, std::u16string_view text) {
  RadioImage image;
  if (!StoreEmbeddedText(image.EmbeddedInfoBlock, text)) return ExitStatus::UnusableArguments;
  TerminalObserver observer(command.terminal, BandAnswer::Ask);
  if (!IsComplete(command.terminal, WriteEmbeddedInfo(command.line, image, observer))) return ExitStatus::Failed;
  return Done(command.terminal, "The text has been written to " + command.line.PortName() + ".");
}

ExitStatus RunPorts(SerialPort& port, const std::function<std::string(int)>& deviceOf, Terminal& terminal) {
  for (int number = 1; number <= PortCount; ++number) {
    const std::string device = deviceOf(number);
    const char* const state = device.empty() ? "no device" : TestPort(port, number) ? "opens" : "does not open";
    terminal.out << std::left << std::setw(7) << ComName(number) << std::setw(24)
                 << (device.empty() ? std::string("-") : device) << ' ' << state << '\n';
  }
  return EndOutput(terminal);
}

} // namespace mr4500x
