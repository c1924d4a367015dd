#include "file_commands.h"

#include "configuration_json.h"
#include "configuration_texts.h"
#include "file_access.h"
#include "fill_messages.h"
#include "messages.h"

#include <ostream>

namespace mr4500x {
namespace {

constexpr char DecimalSeparator = '.'; // in every locale: scripts read the output

} // namespace

bool LoadForCommand(FileSystem& files, const std::string& path, RadioImage& image, Terminal& terminal) {
  ResetToDefaults(image, {}); // for what no file holds
  const LoadResult result = LoadDataFile(files, path, image);
  if (result.markerNotEmpty) terminal.err << NewVersionNotice.text << '\n';
  const std::optional<Message> failure = MessageFor(result.outcome);
  if (failure) terminal.err << failure->text << '\n';
  return !failure;
}

bool LoadValuesForCommand(FileSystem& files, const std::string& path, char decimalSeparator, RadioImage& image,
                          Configuration& values, Terminal& terminal) {
  if (!LoadForCommand(files, path, image, terminal)) return false;
  Decoded decoded = Decode(image, BuildFieldTexts(decimalSeparator));
  if (decoded.keyConflict) terminal.err << KeyConflictText << '\n';
  if (decoded.end == DecodeEnd::DataError) terminal.err << DataErrorText << '\n';
  values = std::move(decoded.configuration);
  return decoded.end != DecodeEnd::DataError;
}

bool SaveForCommand(FileSystem& files, const std::string& path, const RadioImage& image, Terminal& terminal) {
  if (SaveDataFile(files, path, image)) return true;
  terminal.err << MessageForFailed(SaveCommand::Save).text << '\n';
  return false;
}

ExitStatus RunNew(FileSystem& files, const std::string& path, bool mayReplace, const LocalTime& now,
                  Terminal& terminal) {
  if (!mayReplace && !IsMissing(files, path)) {
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
