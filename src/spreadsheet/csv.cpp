#include "csv.h"

#include "columns.h"
#include "decimal.h"
#include "text.h"
#include "utf8.h"

#include <algorithm>
#include <iomanip>
#include <optional>
#include <sstream>

namespace mr4500x {
namespace {

constexpr std::string_view HardSpaces[] = {"\xC2\xA0", "\xE2\x80\xAF"}; // the usual and the narrow one
constexpr std::size_t MostCharactersShown = 40;

// The length in bytes of a blank or control character at the front, or 0.
std::size_t BlankAt(std::string_view text) {
  for (const std::string_view space : HardSpaces)
    if (text.starts_with(space)) return space.size();
  return static_cast<unsigned char>(text.front()) <= ' ' || text.front() == '\x7F' ? 1 : 0;
}

// The separator in a first line "sep=;". Removes that line, except its end.
std::optional<char> TakeNamedSeparator(std::string_view& text) {
  constexpr std::string_view begin = "sep=";
  const std::string_view whole = text.substr(0, text.find_first_of("\r\n"));
  std::string_view line = whole;
  if (line.starts_with('"') && line.ends_with('"')) line = line.substr(1, std::max<std::size_t>(line.size(), 2) - 2);
  if (line.size() != begin.size() + 1 || Lower(std::string(line.substr(0, begin.size()))) != begin) return std::nullopt;
  text.remove_prefix(whole.size());
  return line.back();
}

char SeparatorIn(std::string_view text, char decimalSeparator) {
  bool isInQuotes = false;
  std::string line, unquoted; // the first one with a text, without the quotes
  for (const char c : text) {
    const bool isLineEnd = !isInQuotes && (c == '\n' || c == '\r');
    if (isLineEnd && line.find_first_not_of(" \t,;") != std::string::npos) break;
    if (c == '"') isInQuotes = !isInQuotes;
    if (isLineEnd) line = unquoted = "";
    if (!isLineEnd && c != '"') line += c;
    if (!isLineEnd && c != '"' && !isInQuotes) unquoted += c;
  }
  const bool hasOthers = unquoted.find_first_of(",;") != std::string::npos; // tabs at the end are blanks then
  if ((hasOthers ? TrimmedAtEnd(unquoted) : unquoted).find('\t') != std::string_view::npos) return '\t';
  if (unquoted.find(';') != std::string::npos) return ';';
  const bool isNumber = decimalSeparator == ',' && ParseDecimal(OneLine(line), decimalSeparator);
  return isNumber || NamesSetting(line) ? '\t' : ','; // a line with a single cell has no tab
}

class Reader {
public:
  // `place` is the first row's.
  Reader(char separator, std::size_t place) : m_separator(separator), m_row{1, {}, true, place} {}

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
    } else if (c == m_separator) {
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
    const bool isEmpty = std::ranges::all_of(m_row.cells, [](const auto& cell) { return OneLine(cell).empty(); });
    if (!isEmpty || !m_row.isWhole) m_table.rows.push_back(m_row);
    m_row = {m_line, {}, true, m_row.place + 1};
  }

  char m_separator;
  CsvTable m_table;
  CsvRow m_row;
  std::string m_cell;
  std::size_t m_line = 1;
  bool m_isInQuotes = false, m_wasQuoted = false;
};

} // namespace

CsvTable ReadCsv(std::string_view bytes, char decimalSeparator) {
  const std::string decoded = DecodedText(bytes);
  std::string_view text = decoded;
  const std::optional<char> named = TakeNamedSeparator(text); // this line is not counted
  return Reader(named.value_or(SeparatorIn(text, decimalSeparator)), named ? std::size_t{0} - 1 : 0).Read(text);
}

std::string OneLine(std::string_view cell) {
  std::string line;
  while (!cell.empty()) {
    const std::size_t blank = BlankAt(cell);
    if (blank == 0)
      line += cell.front();
    else if (!line.empty() && line.back() != ' ')
      line += ' ';
    cell.remove_prefix(std::max<std::size_t>(blank, 1));
  }
  return std::string(Trimmed(line));
}

std::string Shortened(std::string_view cell) {
  return Printable(OneLine(cell), MostCharactersShown);
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
