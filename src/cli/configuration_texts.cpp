#include "configuration_texts.h"

#include "differences.h"
#include "text.h"

#include <algorithm>

namespace mr4500x {
namespace {

using Row = std::vector<std::string>;

// Makes every column as wide as its longest text.
void AppendSection(std::string& text, std::string_view title, const std::vector<Row>& rows) {
  if (!text.empty()) text += '\n';
  text += std::string(title) + '\n';
  std::vector<std::size_t> widths;
  for (const Row& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column)
      widths[column] = std::max(widths[column], row[column].size());
  }
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t column = 0; column < row.size(); ++column) {
      line += row[column];
      line.append(widths[column] - row[column].size() + 2, ' ');
    }
    text.append(TrimmedAtEnd(line, " ")) += '\n';
  }
}

Row SettingRow(const Configuration& configuration, const Field& field) {
  return {"  " + OnOneLine(field.label), ShownTextOf(configuration, {&field})};
}

std::vector<Row> GroupRows(const Configuration& configuration, FieldGroup group) {
  std::vector<Row> rows;
  for (const Field& field : Fields())
    if (field.group == group) rows.push_back(SettingRow(configuration, field));
  return rows;
}

// A heading and one row per entry. The first column numbers the entries.
std::vector<Row> GridRows(const Configuration& configuration, FieldGroup group, std::string_view heading,
                          std::string_view number) {
  std::vector<Row> rows(1 + EntriesOf(group));
  for (std::size_t entry = 0; entry < rows.size(); ++entry) {
    Row& row = rows[entry];
    row.push_back(entry == 0 ? std::string(heading) : std::string(number) + std::to_string(entry));
    for (const Field& field : Fields())
      if (field.group == group)
        row.push_back(entry == 0 ? OnOneLine(field.label) : ShownTextOf(configuration, {&field, entry}));
  }
  return rows;
}

} // namespace

std::string ConfigurationTable(const Configuration& configuration) {
  const auto setting = [&](FieldPlace place) { return SettingRow(configuration, FieldOf(place)); };
  std::vector<Row> global = GroupRows(configuration, FieldGroup::Global);
  global.push_back(setting(ChoiceList::ManualTune));

  std::string text;
  AppendSection(text, "Frequency Band",
                {{"  Limits", configuration.lowerBandLimit + " ~ " + configuration.upperBandLimit + " MHz"}});
  AppendSection(text, "Channel Settings", GridRows(configuration, FieldGroup::Channels, "  CH No.", "   CH"));
  AppendSection(text, "Global Radio Settings", global);
  AppendSection(text, "Scan Information", GroupRows(configuration, FieldGroup::Scan));
  AppendSection(text, "Key Program", GroupRows(configuration, FieldGroup::Keys));
  AppendSection(text, "Auto Reset Time", {setting(Box::AutoResetTime)});
  AppendSection(text, "Signaling", {setting(ChoiceList::SelectCall), setting(ChoiceList::Standards)});
  AppendSection(text, "TTS", GridRows(configuration, FieldGroup::Tts, "  No.", "  "));
  return text;
}

} // namespace mr4500x
