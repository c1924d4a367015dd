#include "file_commands.h"

#include "arguments.h"
#include "configuration_json.h"
#include "configuration_texts.h"
#include "file_access.h"
#include "fill_messages.h"
#include "messages.h"

#include <filesystem>
#include <ostream>

namespace mr4500x {
namespace {

constexpr char DecimalSeparator = '.'; // in every locale: scripts read the output

// Why there is nothing to load, where the message does not say it.
std::string ReasonOf(const LoadResult& result) {
  if (result.outcome != LoadOutcome::Missing && result.outcome != LoadOutcome::Damaged) return "";
  if (result.damagedItem == 0) return SystemReason();
  const std::string item = "item " + std::to_string(result.damagedItem);
  return result.endsInItem ? " (ends within " + item + ')' : " (" + item + " is not what belongs there)";
}

LoadResult LoadInput(Terminal& terminal, RadioImage& image) {
  const std::string bytes = ReadInput(terminal);
  return ParseDataFile({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, image);
}

} // namespace

std::string NameOfSource(const std::string& path) {
  return path == Stream ? "standard input" : path;
}

bool LoadForCommand(FileSystem& files, const std::string& path, RadioImage& image, Terminal& terminal) {
  ResetToDefaults(image, {}); // for what no file holds
  const LoadResult result = path == Stream ? LoadInput(terminal, image) : LoadDataFile(files, path, image);
  const std::string reason = ReasonOf(result), name = NameOfSource(path) + ": ";
  if (result.markerNotEmpty) terminal.err << name << NewVersionNotice.text << '\n';
  const std::optional<Message> failure = MessageFor(result.outcome);
  if (failure) terminal.err << name << failure->text << reason << '\n';
  return !failure;
}

bool LoadValuesForCommand(FileSystem& files, const std::string& path, char decimalSeparator, RadioImage& image,
                          Configuration& values, Terminal& terminal) {
  if (!LoadForCommand(files, path, image, terminal)) return false;
  Decoded decoded = Decode(image, BuildFieldTexts(decimalSeparator));
  const std::string name = NameOfSource(path) + ": ";
  if (decoded.keyConflict) terminal.err << name << KeyConflictText << '\n';
  if (decoded.end == DecodeEnd::DataError) terminal.err << name << DataErrorText << '\n';
  values = std::move(decoded.configuration);
  return decoded.end != DecodeEnd::DataError;
}

bool LeadsToDataFile(FileSystem& files, const std::string& dataFile, const std::string& target) {
  std::error_code failed; // of a missing file there is nothing to overwrite
  if (std::filesystem::equivalent(dataFile, target, failed)) return true;
  if (HasDataFileEnding(std::filesystem::weakly_canonical(target, failed).string())) return true;
  RadioImage unused;
  return LoadDataFile(files, target, unused).outcome == LoadOutcome::Loaded;
}

bool SaveForCommand(FileSystem& files, const std::string& path, const RadioImage& image, Terminal& terminal) {
  if (path == Stream) {
    for (const std::uint8_t byte : BuildDataFile(image))
      terminal.out.put(static_cast<char>(byte));
    return EndOutput(terminal) == ExitStatus::Done;
  }
  if (SaveDataFile(files, path, image)) return true;
  terminal.err << path << ": " << MessageForFailed(SaveCommand::Save).text << SystemReason() << '\n';
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
