#include "plan.h"

#include "columns.h"
#include "csv.h"
#include "data_file.h"
#include "embedded_info.h"
#include "fill_messages.h"
#include "given_cells.h"
#include "utf8.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>

namespace mr4500x {
namespace {

constexpr std::string_view InfoColumn = "embedded_info", RadioColumn = "radio", LabelColumn = "label";
constexpr std::size_t MostRows = 50'000, MostProblems = 200;
constexpr std::ptrdiff_t MostIdentityCharacters = 16;

// Reads the rows of a list. Errors become problems.
class RowReader {
public:
  RowReader(PlanCheck& check, const FieldTexts& texts, Sha256 sha256)
      : m_check(check), m_texts(texts), m_sha256(sha256) {}

  void Read(std::string_view bytes) {
    std::vector<CsvRow> rows = ReadCsv(bytes, m_texts.decimalSeparator).rows;
    if (rows.empty()) return Refuse({1, "", "", Refused::NoHeading});
    if (rows.size() > MostRows + 1)
      return Refuse(rows.front().line, "", "", "more than " + std::to_string(MostRows) + " rows");
    ReadHeading(rows.front());
    if (!m_check.problems.empty()) return; // each row would be refused for the same reason
    m_check.plan.rows.reserve(rows.size());
    for (CsvRow& row : std::span(rows).subspan(1))
      ReadRow(std::move(row)); // a long list is not in memory twice
    if (rows.size() == 1) Refuse(rows.front().line, "", "", "no rows below the heading");
    if (m_check.problems.size() <= MostProblems) return;
    m_check.problems.resize(MostProblems);
    m_check.problems.emplace_back("... and more lines with problems");
  }

private:
  // A setting, or one of the list's own columns.
  struct Column {
    std::string name;
    std::optional<SettingColumn> setting;
  };

  void Refuse(std::size_t line, std::string_view column, const std::string& value, const std::string& why) {
    std::string problem = "line " + std::to_string(line);
    if (!column.empty()) problem += ", " + Shortened(column);
    m_check.problems.push_back(problem + ": " + (value.empty() ? "" : Shortened(value) + ", ") + why);
  }
  void Refuse(const RefusedCell& refused) { Refuse(refused.line, refused.column, refused.cell, ReasonOf(refused)); }

  void ReadHeading(const CsvRow& heading) {
    if (!heading.isWhole) Refuse({heading.line, "", "", Refused::BrokenQuotes});
    std::set<std::pair<FieldAt, std::string>> seen;
    FieldAt last;
    for (const std::string& cell : heading.cells) {
      Column& column = m_columns.emplace_back(Column{OneLine(cell), {}});
      const bool isOwn = column.name == InfoColumn || column.name == RadioColumn || column.name == LabelColumn;
      if (!isOwn) column.setting = FindSettingColumn(column.name, last);
      if (column.setting) last = column.setting->at;
      const auto meaning = std::pair(column.setting ? last : FieldAt(), column.setting ? "" : column.name);
      if (!isOwn && !column.setting && !column.name.empty())
        Refuse({heading.line, column.name, "", Refused::UnknownColumn});
      else if (!column.name.empty() && !seen.insert(meaning).second)
        Refuse({heading.line, column.name, "", Refused::ColumnTwice});
    }
    while (m_columns.size() > 1 && m_columns.back().name.empty())
      m_columns.pop_back();
  }

  void ReadRow(CsvRow row) {
    while (row.cells.size() > m_columns.size() && OneLine(row.cells.back()).empty())
      row.cells.pop_back();
    if (!row.isWhole) return Refuse({row.line, "", "", Refused::BrokenQuotes});
    const std::size_t cells = row.cells.size(), columns = m_columns.size();
    if (cells != columns)
      return Refuse(row.line, "", "",
                    std::to_string(cells) + (cells == 1 ? " cell" : " cells") + " where the heading has " +
                        std::to_string(columns));
    PlanRow& read = m_check.plan.rows.emplace_back();
    read.line = row.line;
    std::vector<GivenCell> given;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
      const auto& [name, setting] = m_columns[i];
      const std::string cell = setting ? OneLine(row.cells[i]) : row.cells[i];
      if (cell.empty()) continue;
      if (setting) {
        const auto& [at, isOpposite] = *setting;
        given.push_back({row.line, name, cell, {at, ValueOfCell(*at.field, isOpposite, cell, m_texts)}});
      } else if (name.empty()) {
        Refuse({row.line, "", cell, Refused::InNoColumn});
      } else {
        ReadOwnCell(read, name, cell);
      }
    }
    SetValues(read, given);
  }

  // The values as the radio will show them, so that each value has one spelling.
  void SetValues(PlanRow& row, const std::vector<GivenCell>& cells) {
    RadioImage image = m_check.plan.image;
    for (const RefusedCell& refused : ApplyCells(image, cells, m_texts))
      Refuse(refused);
    const Configuration shown = Decode(image, m_texts).configuration;
    row.values.reserve(cells.size());
    for (const GivenCell& cell : cells)
      row.values.push_back({cell.assignment.at, ValueOf(shown, cell.assignment.at)});
    std::ranges::sort(row.values, {}, &Assignment::at);
    const std::vector<std::uint8_t> file = BuildDataFile(image);
    row.content = m_sha256({reinterpret_cast<const char*>(file.data()), file.size()}); // as attempts have it
    if (row.embeddedInfo) row.content = m_sha256(row.content + *row.embeddedInfo);
  }

  void ReadOwnCell(PlanRow& row, const std::string& column, const std::string& cell) {
    const auto text = InfoFromKept(cell);
    if (column == InfoColumn) {
      row.embeddedInfo = cell;
      if (!text)
        Refuse(row.line, column, "", "not valid UTF-8");
      else if (text->find(u'\0') != std::u16string::npos)
        Refuse(row.line, column, "", "has a zero byte, which would end the text");
      else if (text->size() > MostEmbeddedCharacters)
        Refuse(row.line, column, "",
               std::to_string(text->size()) + " characters, allowed: " + std::to_string(MostEmbeddedCharacters));
      return;
    }
    if (!text || std::ranges::any_of(*text, IsControl))
      return Refuse(row.line, column, "", "allowed: a line of text in UTF-8");
    (column == LabelColumn ? row.label : row.radio) = cell;
    RefuseSecond(row.line, column, cell);
    if (column == RadioColumn && std::ranges::count_if(cell, BeginsCharacter) > MostIdentityCharacters)
      Refuse(row.line, column, cell, "allowed: up to 16 characters");
  }

  void RefuseSecond(std::size_t line, const std::string& column, const std::string& value) {
    const auto [first, isNew] = m_firstLines.try_emplace({column, value}, line);
    if (!isNew) Refuse(line, column, value, "also given in line " + std::to_string(first->second));
  }

  PlanCheck& m_check;
  const FieldTexts& m_texts;
  Sha256 m_sha256;
  std::vector<Column> m_columns;
  std::map<std::pair<std::string, std::string>, std::size_t> m_firstLines; // indexed by column and value
};

// The meaning of the rows, independent of the list's spelling.
std::string MeaningOf(const std::vector<PlanRow>& rows) {
  std::string meaning;
  for (const PlanRow& row : rows) {
    std::vector<std::string> parts = {row.label, row.radio,
                                      row.embeddedInfo.value_or("")}; // never empty, so "" means none
    for (const auto& [at, value, asStored] : row.values)
      parts.insert(parts.end(), {IdentifierOf(at), value});
    meaning += CsvLine(parts);
  }
  return meaning;
}

} // namespace

PlanCheck MakePlan(const RadioImage& image, std::string name, std::optional<std::string_view> rows,
                   const FieldTexts& texts, Sha256 sha256) {
  PlanCheck check;
  check.plan.name = std::move(name);
  check.plan.image = image;
  check.plan.isEndless = !rows;
  if (Decode(image, texts).end == DecodeEnd::DataError)
    check.problems.push_back(check.plan.name + ": " + DataErrorText);
  if (rows && check.problems.empty()) RowReader(check, texts, sha256).Read(*rows);
  const std::vector<std::uint8_t> file = BuildDataFile(image);
  check.plan.templateKey = sha256({reinterpret_cast<const char*>(file.data()), file.size()});
  check.plan.key = sha256(std::string(file.begin(), file.end()) + MeaningOf(check.plan.rows));
  return check;
}

RadioImage ImageFor(const Plan& plan, std::size_t row, const FieldTexts& texts) {
  RadioImage image = plan.image;
  if (row == 0 || row > plan.rows.size()) return image;
  const PlanRow& given = plan.rows[row - 1];
  static_cast<void>(ApplyChanges(image, given.values, texts)); // MakePlan has checked that they are accepted
  if (given.embeddedInfo)
    static_cast<void>(StoreEmbeddedText(image.EmbeddedInfoBlock, *InfoFromKept(*given.embeddedInfo)));
  return image;
}

std::vector<JournalRow> JournalRowsOf(const Plan& plan) {
  std::vector<JournalRow> rows;
  rows.reserve(plan.rows.size());
  for (const PlanRow& row : plan.rows)
    rows.push_back({.row = rows.size() + 1,
                    .label = row.label,
                    .radio = row.radio,
                    .bench = "",
                    .idNumber = "",
                    .content = row.content});
  return rows;
}

} // namespace mr4500x
