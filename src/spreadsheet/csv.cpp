#include "csv.h"

#include "text.h"
#include "utf8.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace mr4500x {
namespace {

constexpr std::string_view HardSpaces[] = {"\xC2\xA0", "\xE2\x80\xAF"}; // the usual and the narrow one
constexpr std::size_t MostCharactersTold = 40;

// The names of columns have none of them inside.
char SeparatorIn(std::string_view text) {
  const std::size_t first = text.find_first_of(",;\t\r\n");
  return first == std::string_view::npos || text[first] == '\r' || text[first] == '\n' ? ',' : text[first];
}

// The bytes of the blank or control character at the front, 0 for any other.
std::size_t BlankAt(std::string_view text) {
  for (const std::string_view space : HardSpaces)
    if (text.starts_with(space)) return space.size();
  return static_cast<unsigned char>(text.front()) <= ' ' || text.front() == '\x7F' ? 1 : 0;
}

// With one space for all blanks and line ends together.
std::string AsOneLine(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const std::size_t blank = BlankAt(text);
    if (blank == 0)
      line += text.front();
    else if (!line.empty() && line.back() != ' ')
      line += ' ';
    text.remove_prefix(std::max<std::size_t>(blank, 1));
  }
  return std::string(Trimmed(line));
}

class Reader {
public:
  explicit Reader(char separator) : m_table{separator, {}} {}

  CsvTable Read(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      const bool isPair =
          i + 1 < text.size() && (text[i] == '"' || text[i] == '\r') && text[i + 1] == (text[i] == '"' ? '"' : '\n');
      if (m_isInQuotes && text[i] == '"' && isPair)
        m_cell += text[i++]; // a doubled quote is one of the text
      else
        Take(text[i]);
      if (!m_isInQuotes && text[i] == '\r' && isPair) ++i;
    }
    m_row.isWhole &= !m_isInQuotes;
    EndRow();
    return std::move(m_table);
  }

private:
  void Take(char c) {
    const bool isLineEnd = c == '\n' || c == '\r';
    if (m_isInQuotes) {
      m_line += c == '\n' ? 1 : 0;
      if (c == '"')
        m_isInQuotes = false;
      else
        m_cell += c;
    } else if (isLineEnd) {
      EndRow();
      m_row.line = ++m_line;
    } else if (c == m_table.separator) {
      EndCell();
    } else if (c == '"' && !m_wasQuoted && Trimmed(m_cell).empty()) {
      m_isInQuotes = m_wasQuoted = true;
    } else {
      if (c == '"' || (m_wasQuoted && Blanks.find(c) == std::string_view::npos)) m_row.isWhole = false;
      m_cell += c;
    }
  }

  void EndCell() {
    m_row.cells.emplace_back(Trimmed(m_cell));
    m_cell.clear();
    m_wasQuoted = false;
  }

  void EndRow() {
    EndCell();
    const bool isEmpty = std::ranges::all_of(m_row.cells, &std::string::empty);
    if (!isEmpty || !m_row.isWhole) m_table.rows.push_back(m_row);
    m_row = {m_line, {}, true, m_row.place + 1};
  }

  CsvTable m_table;
  CsvRow m_row{1, {}, true, 0};
  std::string m_cell;
  std::size_t m_line = 1;
  bool m_isInQuotes = false, m_wasQuoted = false;
};

} // namespace

CsvTable ReadCsv(std::string_view text, char separator) {
  if (text.starts_with(ByteOrderMark)) text.remove_prefix(ByteOrderMark.size());
  return Reader(separator == '\0' ? SeparatorIn(text) : separator).Read(text);
}

CsvTable ReadCells(std::string_view text, char separator) {
  CsvTable table = ReadCsv(text, separator);
  for (CsvRow& row : table.rows) {
    std::ranges::transform(row.cells, row.cells.begin(), AsOneLine);
    while (row.cells.size() > 1 && row.cells.back().empty())
      row.cells.pop_back();
  }
  std::erase_if(table.rows, [](const CsvRow& row) { return row.isWhole && row.cells.back().empty(); });
  return table;
}

std::string Shortened(std::string_view cell) {
  std::string line = AsOneLine(cell);
  std::size_t characters = 0;
  for (std::size_t i = 0; i < line.size(); ++i)
    if (BeginsCharacter(line[i]) && ++characters > MostCharactersTold) return line.substr(0, i) + "...";
  return line;
}

std::string CsvLine(const std::vector<std::string>& cells) {
  std::ostringstream line;
  for (const std::string& cell : cells) {
    if (&cell != cells.data()) line << ',';
    if (cell.find_first_of(",;\t\"\r\n") == std::string::npos)
      line << cell;
    else
      line << std::quoted(cell, '"', '"'); // doubles a quote
  }
  return line.str() + "\r\n";
}

} // namespace mr4500x
