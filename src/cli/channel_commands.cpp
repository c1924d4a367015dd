#include "channel_commands.h"

#include "channel_list.h"
#include "file_commands.h"
#include "setting_commands.h"

#include <algorithm>
#include <ostream>

namespace mr4500x {
namespace {

// Imports the good rows and leaves only them; appends the cells that keep others out.
void ImportGoodRows(RadioImage& image, ChannelList& list, const FieldTexts& texts) {
  for (;;) {
    const std::vector<RefusedCell> refused = ApplyCells(image, CellsOf(list.rows), texts);
    if (refused.empty()) return;
    list.bad.insert(list.bad.end(), refused.begin(), refused.end());
    std::erase_if(list.rows, [&](const ChannelRow& row) {
      return std::ranges::find(refused, row.line, &RefusedCell::line) != refused.end();
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
  const FieldTexts texts = BuildFieldTexts('.');
  ChannelList list = ReadChannelList(*text, texts);
  ImportGoodRows(image, list, texts);
  for (const std::string& bad : TextsOf(list.bad))
    terminal.err << given.csv << ':' << bad << '\n';
  for (const std::string& column : list.leftOut)
    terminal.err << given.csv << ": " << column << ": left out; a radio has nothing for it\n";
  if (!list.bad.empty() && !(given.skipsBad && list.hasHeading)) return ExitStatus::UnusableArguments;
  if (!list.bad.empty() && list.rows.empty()) return ExitStatus::Failed; // no line was left to import
  return SaveForCommand(files, given.output, image, terminal) ? ExitStatus::Done : ExitStatus::Failed;
}

} // namespace mr4500x
