#include "channel_commands.h"

#include "channel_list.h"
#include "columns.h"
#include "tone_codes.h"
#include "utf8.h"

#include <algorithm>
#include <ostream>

namespace mr4500x {
namespace {

// Imports the valid rows and removes the others. Appends the refused cells.
void ImportGoodRows(RadioImage& image, ChannelList& list) {
  for (;;) {
    const std::vector<RefusedCell> refused = ApplyCells(image, CellsOf(list.rows), PointTexts());
    if (refused.empty()) return;
    list.bad.insert(list.bad.end(), refused.begin(), refused.end());
    std::erase_if(list.rows, [&](const ChannelRow& row) {
      return std::ranges::find(refused, row.line, &RefusedCell::line) != refused.end();
    });
  }
}

} // namespace

ExitStatus RunChannelsExport(FileSystem& files, const std::string& path, const std::string& csv, Terminal& terminal) {
  if (!CheckExport(files, csv, path, terminal)) return ExitStatus::UnusableArguments;
  const std::optional<Configuration> values = LoadValuesForCommand(files, path, terminal);
  return values ? StoreTextForCommand(files, csv, ChannelsCsv(*values), terminal) : ExitStatus::Failed;
}

ExitStatus RunChannelsImport(FileSystem& files, const FileChange& given, bool skipsBad, Terminal& terminal) {
  const auto text = ReadTextForCommand(files, given.input, terminal);
  if (!text) return ExitStatus::Failed;
  return ChangeFile(files, given, terminal, [&](RadioImage& image, std::set<FieldAt>& named) {
    const std::string name = NameOfSource(given.input) + ':';
    if (DecodedText(*text).find('\0') != std::string::npos) // a cell would take it for a blank
      return Refuse(terminal, name + " has a zero byte");
    ChannelList list = ReadChannelList(*text, PointTexts());
    ImportGoodRows(image, list);
    for (const std::string& bad : TextsOf(list.bad))
      terminal.err << name << bad << '\n';
    for (const std::string& column : list.leftOut)
      terminal.err << name << ' ' << column << ": column ignored; "
                   << (NamesSetting(column) ? "not one of this format\n" : "the radio has no such setting\n");
    if (!list.bad.empty() && !(skipsBad && list.hasHeading)) return ExitStatus::UnusableArguments;
    for (const GivenCell& cell : CellsOf(list.rows))
      named.insert(cell.assignment.at);
    if (list.bad.empty() && named.empty()) return Refuse(terminal, name + " has no value to import");
    return named.empty() ? ExitStatus::Failed : ExitStatus::Done;
  });
}

} // namespace mr4500x
