#include "radio_commands.h"

#include "arguments.h"
#include "backup.h"
#include "embedded_info.h"
#include "file_access.h"
#include "fill_messages.h"
#include "function_settings.h"
#include "messages.h"
#include "output.h"
#include "port_choice.h"
#include "signaling.h"
#include "utf8.h"

#include <nlohmann/json.hpp>

#include <iomanip>
#include <ostream>

namespace mr4500x {
namespace {

using Json = nlohmann::ordered_json;

// Identity number, firmware version, frequency band and last programming time, one per line.
std::string IdentityTable(const RadioImage& image) {
  return "ID Number              " + Printable(IdentityNumber(image)) + "\nVersion of Firmware    " +
         Printable(FirmwareVersion(image)) + "\nFrequency Band         " + BandText(image.BandBlock) +
         "\nLast Programming Time  " + LastProgrammingTime(image) + '\n';
}

Json IdentityJson(const RadioImage& image) {
  return {{"format", 1},
          {"id_number", IdentityNumber(image)},
          {"firmware_version", FirmwareVersion(image)},
          {"band", {{"lower", LowerBandLimit(image.BandBlock)}, {"upper", UpperBandLimit(image.BandBlock)}}},
          {"last_programming_time", LastProgrammingTime(image)}};
}

// Runs an exchange. False, with a message that names the port, unless it is complete.
bool Completes(const RadioCommand& command, const auto& exchange, BandAnswer band = BandAnswer::Ask) {
  TerminalObserver observer(command.terminal, band, command.line.PortName());
  const ExchangeResult result = exchange(command.line, observer);
  if (const auto failure = FailureOf(result))
    command.terminal.err << (failure->text.starts_with(result.port) ? "" : result.port + ": ") << failure->text << '\n';
  if (result.missing > 0) command.terminal.err << result.port << ": records not received: " << result.missing << '\n';
  return result.outcome == Outcome::Complete;
}

bool CompletesWith(const RadioCommand& command, auto& exchange, auto& image, auto... speed) {
  return Completes(command, [&](auto& line, auto& observer) { return exchange(line, image, observer, speed...); });
}

// Reports the result to a user who watched the progress or interrupted the program. A script uses the exit status.
ExitStatus Done(const Terminal& terminal, const std::string& sentence) {
  if (terminal.showsProgress || terminal.isEnding()) terminal.err << sentence << '\n';
  return ExitStatus::Done;
}

ExitStatus NoBackup(const RadioCommand& command, const std::string& path, const FileResult& failed) {
  return Fail(command.terminal, path + ": the backup could not be saved. Nothing was written." + ReasonOf(failed));
}

// Saves the radio's configuration, and beside it the embedded text, if any. Prints the path.
ExitStatus BackUp(const RadioCommand& command, const std::string& folder) {
  RadioImage image;
  if (!ReadForCommand(command, image)) return Fail(command.terminal, "There is no backup. Nothing was written.");
  const auto [path, result] = KeepBackup(command.files, folder, image, command.now());
  if (!result) return NoBackup(command, path, result);
  return PrintData(command.terminal, path + '\n', " The backup is saved, but nothing was written to the radio.");
}

// Prints the differences between the radio and the data that was or would be written.
ExitStatus Verify(const RadioCommand& command, const RadioImage& expected, const std::string& path,
                  DiffForm form = DiffForm::Labels) {
  RadioImage found = expected;
  if (!CompletesWith(command, ReadBack, found, command.speed)) return ExitStatus::Failed;
  const ExitStatus compared = RunDiff(form, expected, found, command.terminal);
  if (compared == ExitStatus::Failed)
    Fail(command.terminal, command.line.PortName() + " does not match " + NameOfSource(path) + '.');
  return compared == ExitStatus::Done ? ExitStatus::Done : ExitStatus::Failed;
}

// Prints what a write would change, and whether it would be refused.
ExitStatus WriteDry(const RadioCommand& command, const RadioImage& image, const WriteOptions& options) {
  RadioImage found = image;
  if (!CompletesWith(command, ReadBack, found, command.speed)) return ExitStatus::Failed;
  command.terminal.out << DifferencesAs(DiffForm::Labels, found, image);
  TerminalObserver observer(command.terminal, options.band, command.line.PortName());
  if (!IsSameBand(found.BandBlock, image.BandBlock) && !observer.AcceptsOtherBand()) return ExitStatus::Failed;
  return PrintData(command.terminal);
}

} // namespace

bool ReadForCommand(const RadioCommand& command, RadioImage& image, decltype(ReadRadio)& read) {
  if (!CompletesWith(command, read, image, command.speed)) return false;
  image.FiveToneStandard = image.ResetTimeBlock[StandardByte];
  if (image.FiveToneStandard == 0) // as the editor does
    command.terminal.err << command.line.PortName() << ": " << DataErrorText << '\n';
  return true;
}

ExitStatus RunRead(const RadioCommand& command, const std::string& path, bool mayReplace) {
  const auto& [line, files, terminal, now, speed, trace] = command;
  // Before reading the whole radio. If the folder depends on the radio, only the save can check it.
  const bool isKnown = FolderOf(path).find('{') == std::string::npos;
  const FileResult mayBeStored = isKnown ? MayStoreOutput(files, path) : FileResult();
  if (!mayBeStored)
    return Fail(terminal, path + ": " + MessageForFailed(SaveCommand::Save).text + ReasonOf(mayBeStored));
  RadioImage image;
  if (!ReadForCommand(command, image, ReadRadio)) return ExitStatus::Failed;
  const std::string file = FilledIn(path, image, now());
  if (IsSameFile(files, file, trace)) return Refuse(terminal, file + ": is the trace, so it can't be replaced");
  const ExitStatus saved = SaveNewForCommand(files, file, mayReplace || file == path, image, terminal);
  if (saved != ExitStatus::Done) return saved;
  (IsStandardOutput(file) ? terminal.err : terminal.out) << IdentityTable(image);
  const std::string sentence = line.PortName() + " has been read into " + file + ".";
  if (PrintData(terminal, "", ' ' + sentence) != ExitStatus::Done) return ExitStatus::Failed;
  return Done(terminal, sentence);
}

ExitStatus RunIdentify(const RadioCommand& command, bool asJson) {
  RadioImage image;
  const auto read = [&](auto& line, auto& observer) { return ReadIdentity(line, image, observer); };
  if (!Completes(command, read)) return ExitStatus::Failed;
  return PrintData(command.terminal, asJson ? IdentityJson(image).dump(2) + '\n' : IdentityTable(image));
}

ExitStatus RunWrite(const RadioCommand& command, const std::string& path, const WriteOptions& options) {
  const auto& [line, files, terminal, now, speed, trace] = command;
  RadioImage image;
  if (!LoadForCommand(files, path, image, terminal)) return ExitStatus::Failed;
  if (image.ResetTimeBlock[StandardByte] == 0)
    terminal.err << NameOfSource(path) << ": " << DataErrorText << " (The 5-tone standard is 0.)\n";
  const bool hasBackup = !options.backupFolder.empty();
  const FileResult mayKeep = hasBackup ? MayStoreIn(files, options.backupFolder) : FileResult();
  if (!mayKeep) return NoBackup(command, options.backupFolder, mayKeep);
  if (options.isDryRun) return WriteDry(command, image, options);
  if (hasBackup && BackUp(command, options.backupFolder) != ExitStatus::Done) return ExitStatus::Failed;
  if (terminal.isEnding()) return Fail(terminal, line.PortName() + ": interrupted. Nothing was written.");
  const auto write = [&](auto& to, auto& view) { return WriteRadio(to, image, command.now, view, command.speed); };
  if (!Completes(command, write, options.band)) return ExitStatus::Failed;
  const std::string written = NameOfSource(path) + " has been written to " + line.PortName();
  if (options.isVerified && terminal.isEnding()) return Fail(terminal, written + ", but not read back: interrupted.");
  if (options.isVerified && Verify(command, image, path) != ExitStatus::Done)
    return Fail(terminal, written + ", but not verified.");
  return Done(terminal, written + ".");
}

ExitStatus RunVerify(const RadioCommand& command, const std::string& path, DiffForm form) {
  RadioImage image;
  if (!LoadForCommand(command.files, path, image, command.terminal)) return ExitStatus::Failed;
  if (Verify(command, image, path, form) != ExitStatus::Done) return ExitStatus::Failed;
  return Done(command.terminal, command.line.PortName() + " matches " + NameOfSource(path) + '.');
}

ExitStatus RunInfoRead(const RadioCommand& command, bool asJson) {
  RadioImage image;
  if (!CompletesWith(command, ReadEmbeddedInfo, image)) return ExitStatus::Failed;
  const std::u16string text = EmbeddedText(image.EmbeddedInfoBlock);
  std::string kept = InfoToKeep(text);
  if (!kept.empty()) kept.pop_back(); // the line feed after the last line
  const std::string time = LastProgrammingTime(image);
  const Json document = {{"format", 1}, {"text", kept}, {"last_programming_time", time}};
  return PrintData(command.terminal, (asJson ? document.dump(2) : InfoToPrint(text) + '\n' + time) + '\n');
}

ExitStatus RunInfoWrite(const RadioCommand& command, const EmbeddedInfo& info, bool isVerified) {
  const std::string port = command.line.PortName();
  RadioImage image;
  image.EmbeddedInfoBlock = info;
  if (!CompletesWith(command, WriteEmbeddedInfo, image)) return ExitStatus::Failed;
  RadioImage found;
  if (isVerified && !CompletesWith(command, ReadEmbeddedInfo, found))
    return Fail(command.terminal, "The text has been written to " + port + ", but not read back.");
  if (isVerified && found.EmbeddedInfoBlock.bytes != image.EmbeddedInfoBlock.bytes)
    return Fail(command.terminal, port + " does not hold the text that was written.");
  return Done(command.terminal, "The text has been written to " + port + ".");
}

ExitStatus RunPorts(SerialPort& port, const std::function<std::string(int)>& deviceOf, bool asJson,
                    Terminal& terminal) {
  Json document = {{"format", 1}, {"ports", Json::array()}};
  for (int number = 1; number <= PortCount; ++number) {
    const std::string device = deviceOf(number);
    const auto failure = device.empty() ? std::nullopt : TestPort(port, number);
    const std::string state = device.empty() ? "no device" : failure ? "does not open" : "opens";
    if (asJson)
      document["ports"].push_back(
          {{"port", ComName(number)}, {"device", device}, {"state", state}, {"reason", failure.value_or("")}});
    else
      terminal.out << std::left << std::setw(7) << ComName(number) << std::setw(24)
                   << (device.empty() ? std::string("-") : device) << ' ' << state << (failure ? ": " + *failure : "")
                   << '\n';
  }
  return PrintData(terminal, asJson ? document.dump(2) + '\n' : "");
}

} // namespace mr4500x
