#include "file_commands.h"

#include "arguments.h"
#include "configuration_json.h"
#include "configuration_texts.h"
#include "diff_command.h"
#include "file_access.h"
#include "fill_messages.h"
#include "messages.h"
#include "output.h"
#include "paths.h"
#include "utf8.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <ostream>
#include <span>
#include <thread>

namespace mr4500x {
namespace {

constexpr std::chrono::milliseconds LockPoll{20};
constexpr int MostLockPolls = 250; // five seconds

// nullopt, with a message, if another command holds the file's lock.
std::optional<OpenFile> Lock(FileSystem& files, const std::string& path) {
  int waits = 0;
  return LockForChange(files, path, [&] {
    std::this_thread::sleep_for(LockPoll);
    return ++waits < MostLockPolls;
  });
}

// The number of hard links of a file, 0 without one.
std::uintmax_t LinksTo(const std::string& path) {
  std::error_code failed;
  const std::uintmax_t links = std::filesystem::hard_link_count(PathOf(path), failed);
  return failed ? 0 : links;
}

ExitStatus Store(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes, Surplus surplus,
                 const std::string& failure, Terminal& terminal) {
  const FileResult stored = StoreForCommand(files, path, bytes, surplus, terminal);
  if (stored) return ExitStatus::Done;
  return path == Stream ? PrintData(terminal) : Fail(terminal, path + ": " + failure + ReasonOf(stored));
}

// Prints the settings that have changed with the named ones. For example, a new lower limit resets all channels.
void PrintConsequences(const std::vector<Difference>& differences, const std::set<FieldAt>& named, Terminal& terminal) {
  constexpr std::size_t MostNamed = 8;
  std::vector<std::string> names;
  for (const Difference& difference : differences)
    if (!named.contains(difference.at)) names.push_back(IdentifierOf(difference.at));
  if (names.empty()) return;
  terminal.err << "also changed:";
  for (const std::string& name : std::span(names).first(std::min(names.size(), MostNamed)))
    terminal.err << ' ' << name;
  if (names.size() > MostNamed) terminal.err << " and " << names.size() - MostNamed << " more";
  terminal.err << '\n';
}

} // namespace

bool LoadForCommand(FileSystem& files, const std::string& path, RadioImage& image, Terminal& terminal) {
  const LoadResult result = LoadInput(files, path, &terminal.in, image);
  for (const std::string& line : LinesFor(result))
    terminal.err << NameOfSource(path) << ": " << line << '\n';
  return result.outcome == LoadOutcome::Loaded;
}

Configuration ValuesForCommand(const std::string& path, const FieldTexts& texts, RadioImage& image,
                               const Terminal& terminal) {
  Decoded decoded = Decode(image, texts);
  const std::string name = NameOfSource(path) + ": ";
  if (decoded.end == DecodeEnd::DataError) {
    terminal.err << name << DataErrorText << ZeroStandardText << '\n';
    SettleAfterFill(image);
    decoded = Decode(image, texts);
  }
  if (decoded.keyConflicts > 0) terminal.err << name << KeyConflictText << '\n';
  return std::move(decoded.configuration);
}

std::optional<Configuration> LoadValuesForCommand(FileSystem& files, const std::string& path, Terminal& terminal) {
  RadioImage image;
  if (!LoadForCommand(files, path, image, terminal)) return std::nullopt;
  return ValuesForCommand(path, PointTexts(), image, terminal);
}

std::optional<std::string> ReadTextForCommand(FileSystem& files, const std::string& path, Terminal& terminal) {
  TextInput input = ReadTextInput(files, path, &terminal.in);
  const std::string failure = LineFor(input);
  if (failure.empty()) return std::move(input.text);
  Fail(terminal, NameOfSource(path) + ": " + failure);
  return std::nullopt;
}

bool IsDataFile(FileSystem& files, const std::string& path) {
  std::error_code failed;
  RadioImage unused;
  return HasDataFileEnding(TextOf(std::filesystem::weakly_canonical(PathOf(path), failed))) ||
         LoadDataFile(files, path, unused).outcome == LoadOutcome::Loaded;
}

bool LeadsToInput(FileSystem& files, const std::string& path, const std::string& input) {
  return !IsStandardOutput(path) && IsSameFile(files, path, input == Stream ? "/dev/stdin" : input);
}

bool CheckOutput(FileSystem& files, const std::string& path, const std::string& input, Terminal& terminal) {
  const bool isInput = LeadsToInput(files, path, input);
  const std::string stream = IsStandardOutput(path) ? "" : StandardStreamAt(path);
  if (!isInput && stream.empty()) return true;
  Refuse(terminal,
         path + (isInput ? ": is read by the same command" : ": is also " + stream) + ", so it can't be replaced");
  return false;
}

bool CheckExport(FileSystem& files, const std::string& path, Terminal& terminal) {
  if (IsStandardOutput(path) || !IsDataFile(files, path)) return CheckOutput(files, path, "", terminal);
  Refuse(terminal, path + ": the output must not be a data file");
  return false;
}

ExitStatus ChangeFile(FileSystem& files, const FileChange& given, Terminal& terminal,
                      const std::function<ExitStatus(RadioImage& image, std::set<FieldAt>& named)>& change) {
  const auto& [path, output, input, isDryRun] = given;
  if (!CheckOutput(files, output, input, terminal) || (path == Stream && !CheckOutput(files, output, path, terminal)))
    return ExitStatus::UnusableArguments;
  const bool isReplaced = path != Stream && IsSameFile(files, path, output);
  if (isReplaced && IsWrittenInto(path)) return Refuse(terminal, path + ": can't be replaced; use --output");
  const std::optional<OpenFile> lock = isReplaced ? Lock(files, path) : OpenFile();
  if (!lock) return Fail(terminal, path + ": another program is changing it; nothing was changed");
  const auto content = isReplaced ? ContentHash(files, path) : std::nullopt;
  RadioImage loaded;
  if (!LoadForCommand(files, path, loaded, terminal)) return ExitStatus::Failed;
  RadioImage image = loaded;
  const Configuration before = ValuesForCommand(path, PointTexts(), image, terminal);
  std::set<FieldAt> named;
  if (const ExitStatus status = change(image, named); status != ExitStatus::Done) return status;
  if (isReplaced && image == loaded) return ExitStatus::Done;
  if (isDryRun) {
    if (const FileResult mayStore = MayStoreOutput(files, output); !mayStore)
      return Fail(terminal, output + ": " + MessageForFailed(SaveCommand::Save).text + ReasonOf(mayStore));
    return PrintData(terminal, DifferencesAs(DiffForm::Labels, loaded, image));
  }
  if (isReplaced && ContentHash(files, path) != content)
    return Fail(terminal, path + ": another program has changed it in the meantime; it was left unchanged");
  const ExitStatus saved = SaveForCommand(files, output, image, terminal);
  if (saved == ExitStatus::Done)
    PrintConsequences(DifferencesBetween(before, Decode(image, PointTexts()).configuration), named, terminal);
  return saved;
}

FileResult StoreForCommand(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes,
                           Surplus surplus, Terminal& terminal) {
  const std::uintmax_t links = LinksTo(path);
  FileResult stored = StoreOutput(files, path, bytes, surplus, terminal.out);
  if (links > 1 && LinksTo(path) == 1)
    terminal.err << Printable(path) << ": its other hard links keep the old content\n";
  return stored;
}

ExitStatus StoreTextForCommand(FileSystem& files, const std::string& path, std::string_view text, Terminal& terminal) {
  const std::span bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  return Store(files, path, bytes, Surplus::Drop, "can't be written", terminal);
}

ExitStatus SaveForCommand(FileSystem& files, const std::string& path, const RadioImage& image, Terminal& terminal) {
  // A longer old file keeps its bytes after the written ones.
  return Store(files, path, BuildDataFile(image), Surplus::Keep, MessageForFailed(SaveCommand::Save).text, terminal);
}

ExitStatus SaveNewForCommand(FileSystem& files, const std::string& path, bool mayReplace, const RadioImage& image,
                             Terminal& terminal) {
  if (!CheckOutput(files, path, "", terminal)) return ExitStatus::UnusableArguments;
  if (!mayReplace && !IsWrittenInto(path) && IsThere(files, path) && MayStoreOutput(files, path))
    return Fail(terminal, NameOfSource(path) + ": file exists; use --replace to overwrite it");
  return SaveForCommand(files, path, image, terminal);
}

ExitStatus RunNew(FileSystem& files, const std::string& path, bool mayReplace, const LocalTime& now,
                  Terminal& terminal) {
  RadioImage image;
  Encode(NewConfiguration(image, PointTexts(), now), image, PointTexts()); // as a save does
  return SaveNewForCommand(files, path, mayReplace, image, terminal);
}

ExitStatus RunShow(FileSystem& files, const std::string& path, bool asJson, Terminal& terminal) {
  const std::optional<Configuration> values = LoadValuesForCommand(files, path, terminal);
  if (!values) return ExitStatus::Failed;
  return PrintData(terminal, asJson ? ConfigurationJson(*values) : ConfigurationTable(*values));
}

} // namespace mr4500x
