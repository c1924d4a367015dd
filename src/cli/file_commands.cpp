#include "file_commands.h"

#include "arguments.h"
#include "configuration_json.h"
#include "configuration_texts.h"
#include "diff_command.h"
#include "file_access.h"
#include "fill_messages.h"
#include "messages.h"
#include "paths.h"

#include <chrono>
#include <filesystem>
#include <ostream>
#include <thread>

namespace mr4500x {
namespace {

constexpr char DecimalSeparator = '.'; // in every locale: scripts read the output
constexpr std::chrono::milliseconds LockPoll{20};
constexpr int MostLockPolls = 250; // five seconds

} // namespace

bool LoadForCommand(FileSystem& files, const std::string& path, RadioImage& image, Terminal& terminal) {
  const LoadResult result = LoadInput(files, path, &terminal.in, image);
  for (const std::string& line : LinesFor(result))
    terminal.err << NameOfSource(path) << ": " << line << '\n';
  return result.outcome == LoadOutcome::Loaded;
}

Configuration ValuesForCommand(const std::string& path, char decimalSeparator, RadioImage& image,
                               const Terminal& terminal) {
  const FieldTexts texts = BuildFieldTexts(decimalSeparator);
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

bool LoadValuesForCommand(FileSystem& files, const std::string& path, char decimalSeparator, RadioImage& image,
                          Configuration& values, Terminal& terminal) {
  if (!LoadForCommand(files, path, image, terminal)) return false;
  values = ValuesForCommand(path, decimalSeparator, image, terminal);
  return true;
}

ExitStatus ChangeFile(FileSystem& files, const FileChange& given, Terminal& terminal,
                      const std::function<ExitStatus(RadioImage& image, const Configuration& before)>& change) {
  const auto fail = [&](const std::string& path, const std::string& why, ExitStatus status) {
    terminal.err << path << ": " << why << '\n';
    return status;
  };
  const auto& [path, output, input, isDryRun] = given;
  if (output != Stream && IsSameFile(files, output, input))
    return fail(output, "is read by the same command, so it can't be replaced", ExitStatus::UnusableArguments);
  const bool isReplaced = path != Stream && (path == output || IsSameFile(files, path, output));
  int waits = 0;
  const auto wait = [&] {
    std::this_thread::sleep_for(LockPoll);
    return ++waits < MostLockPolls;
  };
  const std::optional<OpenFile> lock = isReplaced ? LockForChange(files, path, wait) : OpenFile();
  if (!lock) return fail(path, "another program is changing it; nothing was changed", ExitStatus::Failed);
  const auto content = isReplaced ? ContentHash(files, path) : std::nullopt;
  RadioImage loaded;
  if (!LoadForCommand(files, path, loaded, terminal)) return ExitStatus::Failed;
  RadioImage image = loaded;
  const Configuration before = ValuesForCommand(path, DecimalSeparator, image, terminal);
  if (const ExitStatus status = change(image, before); status != ExitStatus::Done) return status;
  if (isDryRun) {
    const FileResult mayReplace = output == Stream ? FileResult() : MayReplace(files, output);
    if (!mayReplace) return fail(output, "can't be written" + ReasonOf(mayReplace), ExitStatus::Failed);
    terminal.out << DifferenceLines(CompareImages(loaded, image, BuildFieldTexts(DecimalSeparator)), NamedBy::Label);
    return EndOutput(terminal);
  }
  if (isReplaced && image == loaded) return ExitStatus::Done;
  if (isReplaced && ContentHash(files, path) != content)
    return fail(path, "another program has changed it in the meantime; it was left unchanged", ExitStatus::Failed);
  return SaveForCommand(files, output, image, terminal) ? ExitStatus::Done : ExitStatus::Failed;
}

bool LeadsToDataFile(FileSystem& files, const std::string& dataFile, const std::string& target) {
  std::error_code failed; // of a missing file there is nothing to overwrite
  if (std::filesystem::equivalent(PathOf(dataFile), PathOf(target), failed)) return true;
  if (HasDataFileEnding(TextOf(std::filesystem::weakly_canonical(PathOf(target), failed)))) return true;
  RadioImage unused;
  return LoadDataFile(files, target, unused).outcome == LoadOutcome::Loaded;
}

ExitStatus StoreTextForCommand(FileSystem& files, const std::string& path, const std::string& text,
                               Terminal& terminal) {
  if (path == Stream) {
    terminal.out << text;
    return EndOutput(terminal);
  }
  const FileResult stored =
      ReplaceFile(files, path, std::vector<std::uint8_t>(text.begin(), text.end()), Surplus::Drop);
  if (stored) return ExitStatus::Done;
  terminal.err << path << ": can't be written" << ReasonOf(stored) << '\n';
  return ExitStatus::Failed;
}

bool SaveForCommand(FileSystem& files, const std::string& path, const RadioImage& image, Terminal& terminal) {
  if (path == Stream) {
    for (const std::uint8_t byte : BuildDataFile(image))
      terminal.out.put(static_cast<char>(byte));
    return EndOutput(terminal) == ExitStatus::Done;
  }
  const FileResult saved = SaveDataFile(files, path, image);
  if (saved) return true;
  terminal.err << path << ": " << MessageForFailed(SaveCommand::Save).text << ReasonOf(saved) << '\n';
  return false;
}

ExitStatus RunNew(FileSystem& files, const std::string& path, bool mayReplace, const LocalTime& now,
                  Terminal& terminal) {
  if (!mayReplace && path != Stream && IsThere(files, path)) {
    terminal.err << path << ": file exists; use --replace to overwrite it\n";
    return ExitStatus::Failed;
  }
  const FieldTexts texts = BuildFieldTexts(DecimalSeparator);
  RadioImage image;
  Encode(NewConfiguration(image, texts, now), image, texts); // as a save does
  return SaveForCommand(files, path, image, terminal) ? ExitStatus::Done : ExitStatus::Failed;
}

ExitStatus RunShow(FileSystem& files, const std::string& path, ShowAs form, Terminal& terminal) {
  RadioImage image;
  Configuration values;
  if (!LoadValuesForCommand(files, path, DecimalSeparator, image, values, terminal)) return ExitStatus::Failed;
  terminal.out << (form == ShowAs::Json ? ConfigurationJson(values) : ConfigurationTable(values));
  return EndOutput(terminal);
}

} // namespace mr4500x
