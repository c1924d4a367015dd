#include "radio_commands.h"

#include "arguments.h"
#include "backup.h"
#include "diff_command.h"
#include "embedded_info.h"
#include "file_access.h"
#include "file_commands.h"
#include "fill_messages.h"
#include "messages.h"
#include "port_choice.h"
#include "radio_identity.h"
#include "setting_commands.h"
#include "signaling.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace mr4500x {
namespace {

// False, with a message that names the port, unless the transfer is complete.
bool IsComplete(const Terminal& terminal, const ExchangeResult& result) {
  if (const auto failure = FailureOf(result))
    terminal.err << (failure->text.starts_with(result.port) ? "" : result.port + ": ") << failure->text << '\n';
  return result.outcome == Outcome::Complete;
}

// Says how it ended to a user who watched the progress, or who asked the program to end. A script uses the exit status.
ExitStatus Done(const Terminal& terminal, const std::string& sentence) {
  if (terminal.showsProgress || terminal.isEnding()) terminal.err << sentence << '\n';
  return ExitStatus::Done;
}

ExitStatus Fail(const Terminal& terminal, const std::string& message) {
  terminal.err << message << '\n';
  return ExitStatus::Failed;
}

// Where the name depends on the radio, its folder can too; then only the save can tell.
FileResult MayBeStored(FileSystem& files, const std::string& path) {
  return path == Stream || FolderOf(path).find('{') != std::string::npos ? FileResult{} : MayReplace(files, path);
}

// Keeps the radio's configuration, and its embedded text beside it if there is one. Prints the path.
ExitStatus BackUp(const RadioCommand& command, const std::string& folder) {
  const auto refuse = [&](const FileResult& failed) {
    return Fail(command.terminal, folder + ": the backup could not be saved. Nothing was written." + ReasonOf(failed));
  };
  if (const FileResult mayKeep = MayKeepBackupIn(command.files, folder); !mayKeep) return refuse(mayKeep);
  RadioImage image;
  if (!ReadForCommand(command, image)) return ExitStatus::Failed;
  const auto [outcome, path, result] = KeepBackup(command.files, folder, image, command.now());
  if (outcome == BackupOutcome::NameIsTaken)
    return Fail(command.terminal, path + ": the file exists. Nothing was written.");
  if (outcome == BackupOutcome::Failed) return refuse(result);
  command.terminal.out << path << '\n';
  return EndOutput(command.terminal);
}

// Prints what a write would change of what the radio holds, or what is not as it was written.
ExitStatus Verify(const RadioCommand& command, const RadioImage& expected, const std::string& path,
                  DiffForm form = DiffForm::Labels) {
  TerminalObserver observer(command.terminal, BandAnswer::Ask);
  RadioImage found = expected;
  if (!IsComplete(command.terminal, ReadBack(command.line, found, observer, command.speed))) return ExitStatus::Failed;
  const ImageDifferences differences = CompareImages(expected, found, BuildFieldTexts('.'));
  const NamedBy names = form == DiffForm::Labels ? NamedBy::Label : NamedBy::Identifier;
  command.terminal.out << (form == DiffForm::Json ? DifferenceJson(expected, found)
                                                  : DifferenceLines(differences, names));
  if (EndOutput(command.terminal) != ExitStatus::Done) return ExitStatus::Failed;
  if (differences.IsEmpty()) return ExitStatus::Done;
  return Fail(command.terminal, command.line.PortName() + " does not match " + NameOfSource(path) + '.');
}

// Says what a write would change, and whether it would be refused.
ExitStatus WriteDry(const RadioCommand& command, const RadioImage& image, const WriteOptions& options) {
  TerminalObserver observer(command.terminal, options.band, command.line.PortName());
  if (const FileResult mayKeep =
          options.backupFolder.empty() ? FileResult() : MayReplace(command.files, options.backupFolder + "/x");
      !mayKeep)
    return Fail(command.terminal, options.backupFolder + ": the backup could not be saved." + ReasonOf(mayKeep));
  RadioImage found = image;
  if (!IsComplete(command.terminal, ReadBack(command.line, found, observer, command.speed))) return ExitStatus::Failed;
  command.terminal.out << DifferenceLines(CompareImages(found, image, BuildFieldTexts('.')), NamedBy::Label);
  const bool isSameBand =
      std::ranges::equal(std::span(found.BandBlock).first<4>(), std::span(image.BandBlock).first<4>());
  if (!isSameBand && !observer.AcceptsOtherBand()) return ExitStatus::Failed;
  return EndOutput(command.terminal);
}

} // namespace

bool ReadForCommand(const RadioCommand& command, RadioImage& image) {
  TerminalObserver observer(command.terminal, BandAnswer::Ask);
  if (!IsComplete(command.terminal, ReadRadio(command.line, image, observer, command.speed))) return false;
  image.FiveToneStandard = image.ResetTimeBlock[StandardByte];
  if (image.FiveToneStandard == 0) // as the editor does
    command.terminal.err << command.line.PortName() << ": " << DataErrorText << '\n';
  return true;
}

ExitStatus RunRead(const RadioCommand& command, const std::string& path) {
  if (const FileResult mayBeStored = MayBeStored(command.files, path); !mayBeStored) // before reading the whole radio
    return Fail(command.terminal, path + ": " + MessageForFailed(SaveCommand::Save).text + ReasonOf(mayBeStored));
  RadioImage image;
  if (!ReadForCommand(command, image)) return ExitStatus::Failed;
  const std::string file = FilledIn(path, image, command.now());
  if (!SaveForCommand(command.files, file, image, command.terminal)) return ExitStatus::Failed;
  (file == Stream ? command.terminal.err : command.terminal.out) << IdentityTable(image);
  if (EndOutput(command.terminal) != ExitStatus::Done) return ExitStatus::Failed;
  return Done(command.terminal, command.line.PortName() + " has been read into " + file + ".");
}

ExitStatus RunIdentify(const RadioCommand& command, ShowAs form) {
  TerminalObserver observer(command.terminal, BandAnswer::Ask);
  RadioImage image;
  if (!IsComplete(command.terminal, ReadIdentity(command.line, image, observer))) return ExitStatus::Failed;
  command.terminal.out << (form == ShowAs::Json ? IdentityJson(image) : IdentityTable(image));
  return EndOutput(command.terminal);
}

ExitStatus RunWrite(const RadioCommand& command, const std::string& path, const WriteOptions& options) {
  const auto& [line, files, terminal, now, speed] = command;
  RadioImage image;
  if (!LoadForCommand(files, path, image, terminal)) return ExitStatus::Failed;
  if (image.ResetTimeBlock[StandardByte] == 0)
    terminal.err << NameOfSource(path) << ": " << DataErrorText << " (The 5-tone standard is 0.)\n";
  if (options.isDryRun) return WriteDry(command, image, options);
  if (!options.backupFolder.empty() && BackUp(command, options.backupFolder) != ExitStatus::Done)
    return ExitStatus::Failed;
  if (terminal.isEnding()) return Fail(terminal, line.PortName() + ": interrupted. Nothing was written.");
  TerminalObserver observer(terminal, options.band, line.PortName());
  if (!IsComplete(terminal, WriteRadio(line, image, now, observer, speed))) return ExitStatus::Failed;
  const std::string written = NameOfSource(path) + " has been written to " + line.PortName();
  if (options.isVerified && terminal.isEnding()) return Fail(terminal, written + ", but not read back: interrupted.");
  if (options.isVerified && Verify(command, image, path) != ExitStatus::Done) return ExitStatus::Failed;
  return Done(terminal, written + ".");
}

ExitStatus RunVerify(const RadioCommand& command, const std::string& path, DiffForm form) {
  RadioImage image;
  if (!LoadForCommand(command.files, path, image, command.terminal)) return ExitStatus::Failed;
  if (Verify(command, image, path, form) != ExitStatus::Done) return ExitStatus::Failed;
  return Done(command.terminal, command.line.PortName() + " matches " + NameOfSource(path) + '.');
}

ExitStatus RunInfoRead(const RadioCommand& command, ShowAs form) {
  TerminalObserver observer(command.terminal, BandAnswer::Ask);
  RadioImage image;
  if (!IsComplete(command.terminal, ReadEmbeddedInfo(command.line, image, observer))) return ExitStatus::Failed;
  const std::u16string text = EmbeddedText(image.EmbeddedInfoBlock);
  const std::string kept = InfoToKeep(text); // with a line feed after the last line
  if (form == ShowAs::Json)
    command.terminal.out << nlohmann::ordered_json{{"format", 1},
                                                   {"text", kept.substr(0, kept.size() - (kept.empty() ? 0 : 1))},
                                                   {"last_programming_time", LastProgrammingTime(image)}}
                                .dump(2)
                         << '\n';
  else
    command.terminal.out << InfoToPrint(text) << '\n' << LastProgrammingTime(image) << '\n';
  return EndOutput(command.terminal);
}

ExitStatus RunInfoWrite(const RadioCommand& command, std::u16string_view text, bool isVerified) {
  RadioImage image;
  if (!StoreEmbeddedText(image.EmbeddedInfoBlock, text)) {
    command.terminal.err << TopSizeText << '\n';
    return ExitStatus::UnusableArguments;
  }
  TerminalObserver observer(command.terminal, BandAnswer::Ask);
  if (!IsComplete(command.terminal, WriteEmbeddedInfo(command.line, image, observer))) return ExitStatus::Failed;
  RadioImage found;
  if (isVerified && !IsComplete(command.terminal, ReadEmbeddedInfo(command.line, found, observer)))
    return ExitStatus::Failed;
  if (isVerified && found.EmbeddedInfoBlock.bytes != image.EmbeddedInfoBlock.bytes)
    return Fail(command.terminal, command.line.PortName() + " does not hold the text that was written.");
  return Done(command.terminal, "The text has been written to " + command.line.PortName() + ".");
}

ExitStatus RunInfoWriteFrom(const RadioCommand& command, const std::string& path, bool isVerified) {
  const std::optional<std::string> content = ReadTextForCommand(command.files, path, command.terminal);
  if (!content) return ExitStatus::Failed;
  const auto text = InfoFromKept(*content);
  if (!text) return Fail(command.terminal, NameOfSource(path) + " is not valid UTF-8.");
  return RunInfoWrite(command, *text, isVerified);
}

ExitStatus RunPorts(SerialPort& port, const std::function<std::string(int)>& deviceOf, ShowAs form,
                    Terminal& terminal) {
  nlohmann::ordered_json document = {{"format", 1}, {"ports", nlohmann::ordered_json::array()}};
  for (int number = 1; number <= PortCount; ++number) {
    const std::string device = deviceOf(number);
    const char* const state = device.empty() ? "no device" : TestPort(port, number) ? "does not open" : "opens";
    if (form == ShowAs::Json)
      document["ports"].push_back({{"port", ComName(number)}, {"device", device}, {"state", state}});
    else
      terminal.out << std::left << std::setw(7) << ComName(number) << std::setw(24)
                   << (device.empty() ? std::string("-") : device) << ' ' << state << '\n';
  }
  if (form == ShowAs::Json) terminal.out << document.dump(2) << '\n';
  return EndOutput(terminal);
}

} // namespace mr4500x
