#include "plan.h"

#include "channel_list.h"
#include "csv.h"
#include "data_file.h"
#include "embedded_info.h"
#include "fill_messages.h"

#include <algorithm>
#include <map>
#include <span>

namespace mr4500x {
namespace {

constexpr std::string_view InfoColumn = "embedded_info", RadioColumn = "radio", LabelColumn = "label";
constexpr std::ptrdiff_t MostIdentityCharacters = 16;

// Reads the rows of a list; what is wrong becomes problems.
class RowReader {
public:
  RowReader(PlanCheck& check, const FieldTexts& texts) : m_check(check), m_texts(texts) {}

  void Read(std::string_view text) {
    const CsvTable table = ReadCsv(text);
    m_hasDecimalComma = table.separator != ',';
    if (table.rows.empty()) return Refuse(1, "", "", "no heading");
    m_columns = table.rows.front().cells;
    ReadHeading(table.rows.front());
    if (!m_check.problems.empty()) return; // each row would be refused for the same
    for (const CsvRow& row : std::span(table.rows).subspan(1))
      ReadRow(row);
    if (table.rows.size() == 1) Refuse(table.rows.front().line, "", "", "no rows below the heading");
  }

private:
  void Refuse(std::size_t line, std::string_view column, const std::string& value, const std::string& why) {
    std::string problem = "line " + std::to_string(line);
    if (!column.empty()) problem += ", " + Shortened(column);
    m_check.problems.push_back(problem + ": " + (value.empty() ? "" : Shortened(value) + ", ") + why);
  }

  void ReadHeading(const CsvRow& heading) {
    if (!heading.isWhole) Refuse(heading.line, "", "", "quotes that do not enclose a whole cell");
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
      const std::string& column = m_columns[i];
      const bool isOwn = column == InfoColumn || column == RadioColumn || column == LabelColumn;
      if (!isOwn && !FindField(column)) Refuse(heading.line, column, "", "no such column");
      if (std::find(m_columns.begin(), m_columns.begin() + static_cast<std::ptrdiff_t>(i), column) !=
          m_columns.begin() + static_cast<std::ptrdiff_t>(i))
        Refuse(heading.line, column, "", "a column twice");
    }
  }

  void ReadRow(CsvRow row) {
    while (row.cells.size() > m_columns.size() && row.cells.back().empty())
      row.cells.pop_back();
    if (!row.isWhole) return Refuse(row.line, "", "", "quotes that do not enclose a whole cell");
    const std::size_t cells = row.cells.size(), columns = m_columns.size();
    if (cells != columns)
      return Refuse(row.line, "", "",
                    std::to_string(cells) + (cells == 1 ? " cell" : " cells") + " where the heading has " +
                        std::to_string(columns));
    PlanRow& read = m_check.plan.rows.emplace_back();
    read.line = row.line;
    for (std::size_t i = 0; i < m_columns.size(); ++i)
      if (!row.cells[i].empty()) ReadCell(read, m_columns[i], row.cells[i]);
    RadioImage image = m_check.plan.image;
    for (const auto& [at, value, allowed] : ApplyChanges(image, read.values, m_texts))
      Refuse(row.line, IdentifierOf(at), value, "allowed: " + allowed);
  }

  void ReadCell(PlanRow& row, const std::string& column, std::string cell) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; };
    const bool isShown = column == LabelColumn || column == RadioColumn;
    if (isShown && (std::ranges::any_of(cell, isControl) || !InfoFromKept(cell)))
      return Refuse(row.line, column, "", "allowed: a line of text in UTF-8");
    if (column == LabelColumn) {
      RefuseSecond(row.line, column, row.label = cell);
    } else if (column == RadioColumn) {
      RefuseSecond(row.line, column, row.radio = cell);
      const auto isFirst = [](char c) { return (c & 0xC0) != 0x80; }; // byte of a character
      if (std::ranges::count_if(cell, isFirst) > MostIdentityCharacters)
        Refuse(row.line, column, cell, "allowed: up to 16 characters");
    } else if (column == InfoColumn) {
      const auto text = InfoFromKept(cell);
      if (!text) return Refuse(row.line, column, "", "not valid UTF-8");
      if (text->size() > MostEmbeddedCharacters)
        return Refuse(row.line, column, "",
                      std::to_string(text->size()) + " characters, allowed: " + std::to_string(MostEmbeddedCharacters));
      row.embeddedInfo = cell;
    } else {
      const FieldAt at = FindField(column).value();
      if (m_hasDecimalComma) std::ranges::replace(cell, ',', '.');
      row.values.push_back({at, ValueFrom(*at.field, cell)});
    }
  }

  void RefuseSecond(std::size_t line, const std::string& column, const std::string& value) {
    const auto [first, isNew] = m_firstLines.try_emplace({column, value}, line);
    if (!isNew) Refuse(line, column, value, "given in line " + std::to_string(first->second) + ", too");
  }

  PlanCheck& m_check;
  const FieldTexts& m_texts;
  std::vector<std::string> m_columns;
  bool m_hasDecimalComma = false;
  std::map<std::pair<std::string, std::string>, std::size_t> m_firstLines; // by column and value
};

// The same for the same cells, whatever the separator and the line ends.
std::string CanonicalCsv(std::string_view text) {
  std::string canonical;
  for (const CsvRow& row : ReadCsv(text).rows)
    canonical += CsvLine(row.cells);
  return canonical;
}

} // namespace

PlanCheck MakePlan(const RadioImage& image, std::string name, std::optional<std::string_view> rows,
                   const FieldTexts& texts, Sha256 sha256) {
  PlanCheck check;
  check.plan.name = std::move(name);
  check.plan.image = image;
  check.plan.isEndless = !rows;
  if (Decode(image, texts).end == DecodeEnd::DataError)
    check.problems.push_back("the template: " + std::string(DataErrorText));
  if (rows && check.problems.empty()) RowReader(check, texts).Read(*rows);
  const std::vector<std::uint8_t> file = BuildDataFile(image);
  check.plan.key = sha256(std::string(file.begin(), file.end()) + CanonicalCsv(rows.value_or("")));
  return check;
}

RadioImage ImageFor(const Plan& plan, std::size_t row, const FieldTexts& texts) {
  RadioImage image = plan.image;
  if (row == 0 || row > plan.rows.size()) return image;
  const PlanRow& given = plan.rows[row - 1];
  static_cast<void>(ApplyChanges(image, given.values, texts)); // MakePlan has seen that it takes them
  if (given.embeddedInfo)
    static_cast<void>(StoreEmbeddedText(image.EmbeddedInfoBlock, *InfoFromKept(*given.embeddedInfo)));
  return image;
}

std::vector<JournalRow> JournalRowsOf(const Plan& plan) {
  std::vector<JournalRow> rows;
  for (const PlanRow& row : plan.rows)
    rows.push_back({.row = rows.size() + 1, .label = row.label, .radio = row.radio, .bench = "", .idNumber = ""});
  return rows;
}

} // namespace mr4500x
