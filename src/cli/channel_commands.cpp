#include "channel_commands.h"

#include "channel_list.h"
#include "file_commands.h"
#include "setting_commands.h"

#include <algorithm>
#include <ostream>

namespace mr4500x {
namespace {

// Imports the good rows and leaves only them; appends the cells that keep others out.
void ImportGoodRows(RadioImage& image, std::vector<ImportedRow>& rows, std::vector<BadCell>& bad) {
  const FieldTexts texts = BuildFieldTexts('.');
  for (;;) {
    const std::vector<BadCell> refused = ImportChannels(image, rows, texts);
    if (refused.empty()) return;
    bad.insert(bad.end(), refused.begin(), refused.end());
    std::erase_if(rows, [&](const ImportedRow& row) {
      return std::ranges::find(refused, row.line, &BadCell::line) != refused.end();
    });
  }
}

} // namespace

ExitStatus RunChannelsExport(FileSystem& files, const std::string& path, const std::string& csv, Terminal& terminal) {
  if (csv != Stream && LeadsToDataFile(files, path, csv)) {
    terminal.err << csv << ": OUT.csv must not be a data file\n";
    return ExitStatus::UnusableArguments;
  }
  RadioImage image;
  Configuration values;
  if (!LoadValuesForCommand(files, path, '.', image, values, terminal)) return ExitStatus::Failed;
  return StoreTextForCommand(files, csv, ChannelsCsv(values), terminal);
}

ExitStatus RunChannelsImport(FileSystem& files, const ChannelsImport& given, Terminal& terminal) {
  RadioImage image;
  Configuration before;
  const auto text = ReadTextForCommand(files, given.csv, terminal);
  if (!text || !LoadValuesForCommand(files, given.path, '.', image, before, terminal)) return ExitStatus::Failed;
  ChannelList list = ReadChannelList(*text);
  ImportGoodRows(image, list.rows, list.bad);
  for (const std::string& bad : TextsOf(list.bad))
    terminal.err << given.csv << ':' << bad << '\n';
  for (const std::string& column : list.leftOut)
    terminal.err << given.csv << ": " << column << ": left out; a radio has nothing for it\n";
  if (!list.bad.empty() && !(given.skipsBad && list.hasHeading)) return ExitStatus::UnusableArguments;
  if (!list.bad.empty() && list.rows.empty()) return ExitStatus::Failed; // no line was left to import
  return SaveForCommand(files, given.output, image, terminal) ? ExitStatus::Done : ExitStatus::Failed;
}

} // namespace mr4500x
