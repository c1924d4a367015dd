#include "file_commands.h"

#include "arguments.h"
#include "configuration_json.h"
#include "configuration_texts.h"
#include "file_access.h"
#include "fill_messages.h"
#include "messages.h"
#include "paths.h"

#include <filesystem>
#include <ostream>

namespace mr4500x {
namespace {

constexpr char DecimalSeparator = '.'; // in every locale: scripts read the output

} // namespace

bool LoadForCommand(FileSystem& files, const std::string& path, RadioImage& image, Terminal& terminal) {
  const LoadResult result = LoadInput(files, path, &terminal.in, image);
  for (const std::string& line : LinesFor(result))
    terminal.err << NameOfSource(path) << ": " << line << '\n';
  return result.outcome == LoadOutcome::Loaded;
}

bool LoadValuesForCommand(FileSystem& files, const std::string& path, char decimalSeparator, RadioImage& image,
                          Configuration& values, Terminal& terminal) {
  if (!LoadForCommand(files, path, image, terminal)) return false;
  Decoded decoded = Decode(image, BuildFieldTexts(decimalSeparator));
  const std::string name = NameOfSource(path) + ": ";
  if (decoded.keyConflicts > 0) terminal.err << name << KeyConflictText << '\n';
  if (decoded.end == DecodeEnd::DataError) terminal.err << name << DataErrorText << '\n';
  values = std::move(decoded.configuration);
  return decoded.end != DecodeEnd::DataError;
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
  if (!mayReplace && path != Stream && !IsMissing(files, path)) {
    terminal.err << path << ": there is such a file already; --replace replaces it\n";
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
