// The list format that many radio programs exchange.
#include "channel_list.h"
#include "columns.h"
#include "decimal.h"
#include "field_rules.h"

#include <algorithm>
#include <map>

namespace mr4500x {
namespace {

constexpr std::array<std::string_view, 12> UsedColumns = {"Location",     "Frequency",  "Duplex",    "Offset",
                                                          "Tone",         "rToneFreq",  "cToneFreq", "DtcsCode",
                                                          "DtcsPolarity", "RxDtcsCode", "CrossMode", "Mode"};
constexpr char Point = '.';

// Converts the cells of one line to settings of its channel.
class Line {
public:
  Line(const std::vector<std::string>& columns, const CsvRow& row, std::size_t channel, const FieldTexts& texts)
      : m_texts(texts), m_row{row.line, channel, {}} {
    for (std::size_t i = 0; i < std::min(columns.size(), row.cells.size()); ++i) {
      std::string& cell = m_cells[columns[i]] = OneLine(row.cells[i]);
      std::ranges::replace(cell, ',', Point); // a comma that does not separate is a decimal one
    }
  }

  void Read(ChannelList& list) {
    ReadFrequencies();
    ReadTones();
    const std::string mode = Cell("Mode");
    if (mode == "FM" || mode == "NFM")
      Set(GridColumn::BandWidth, mode == "FM" ? "25" : "12.5", "Mode");
    else if (!mode.empty())
      Refuse("Mode", "FM or NFM");
    Set(Box::InUse, "true", "Location");
    if (m_bad.empty()) list.rows.push_back(std::move(m_row));
    list.bad.insert(list.bad.end(), m_bad.begin(), m_bad.end());
  }

private:
  [[nodiscard]] std::string Cell(const std::string& column) const {
    const auto found = m_cells.find(column);
    return found == m_cells.end() ? "" : found->second;
  }
  void Set(FieldPlace place, const std::string& text, const std::string& column) {
    const Field& field = FieldOf(place);
    const Assignment assignment = {{&field, m_row.channel}, ValueOfCell(field, false, text, m_texts)};
    m_row.cells.push_back({m_row.line, column, Cell(column), assignment});
  }
  void Refuse(const std::string& column, std::string allowed) {
    RefusedCell bad = {m_row.line, column, Cell(column), Refused::Value, {std::move(allowed), {}}, m_row.channel};
    if (std::ranges::find(m_bad, bad) == m_bad.end()) m_bad.push_back(std::move(bad));
  }

  std::optional<TensOfHertz> Megahertz(const std::string& column) {
    const std::string text = Cell(column);
    const auto number = ParseDecimal(text, Point);
    const std::optional<TensOfHertz> frequency = ReadFrequency(text, Point);
    if (frequency && CountOfUnits(*number, 0, 1) < 1000 && IsExact(*number, 5)) return frequency;
    Refuse(column, "MHz with up to five decimals");
    return std::nullopt;
  }
  static bool IsExact(Decimal number, int decimals) {
    for (; number.decimals > decimals; --number.decimals, number.digits /= 10)
      if (number.digits % 10 != 0) return false;
    return true;
  }

  void ReadFrequencies() {
    const std::string duplex = Cell("Duplex");
    const auto receive = Megahertz("Frequency");
    auto transmit = receive;
    const bool hasOffset = duplex == "+" || duplex == "-" || duplex == "split";
    if (!hasOffset && !duplex.empty() && duplex != "off") Refuse("Duplex", "+, -, split, off or nothing");
    if (hasOffset) {
      const auto offset = Megahertz("Offset");
      if (!offset || !receive) return;
      transmit = duplex == "split" ? *offset : *receive + (duplex == "+" ? *offset : -*offset);
    }
    if (!receive) return;
    // Prefers the usual step if both frequencies fit it, then the other one. If neither does, each frequency gets its
    // own.
    const auto fits = [](TensOfHertz step, auto... frequencies) { return ((frequencies % step == 0) && ...); };
    const auto both = fits(625, *receive, *transmit) || !fits(250, *receive, *transmit);
    const auto stepOf = [&](TensOfHertz frequency) {
      return both && (fits(625, frequency) || !fits(250, frequency)) ? "6.25" : "2.5";
    };
    Set(GridColumn::RxStep, stepOf(*receive), "Frequency");
    Set(GridColumn::TxStep, stepOf(*transmit), "Frequency");
    Set(GridColumn::RxFreq, FrequencyText(*receive, Point), "Frequency");
    Set(GridColumn::TxFreq, FrequencyText(*transmit, Point), hasOffset ? "Offset" : "Frequency");
    Set(Box::TxAllowed, duplex == "off" ? "false" : "true", "Duplex");
  }

  // The text of the tone list, unless the cell is not a number.
  [[nodiscard]] std::string Ctcss(const std::string& column) const {
    const auto hertz = ParseDecimal(Cell(column), Point);
    const bool isTone = hertz && hertz->digits > 0 && IsExact(*hertz, 1);
    return "CTC" + (isTone ? FormatDecimal(CountOfUnits(*hertz, 1, 1), 2, 1, Point) : Cell(column));
  }
  std::string Dcs(const std::string& column, std::size_t side) {
    const std::string polarity = Cell("DtcsPolarity").empty() ? "NN" : Cell("DtcsPolarity");
    if (polarity.size() != 2 || polarity.find_first_not_of("NR") != std::string::npos)
      Refuse("DtcsPolarity", "NN, NR, RN or RR");
    std::string code = Cell(column);
    if (code.size() < 3) code.insert(0, 3 - code.size(), '0'); // a spreadsheet drops the zeros
    return (polarity.size() == 2 && polarity[side] == 'R' ? "-DCS" : "DCS") + code;
  }

  void ReadTones() {
    if (!m_cells.contains("Tone")) return;
    const std::string tone = Cell("Tone"), mode = Cell("CrossMode");
    const std::size_t arrow = mode.find("->");
    if (tone == "Cross") {
      const auto isKind = [](const std::string& kind) { return kind.empty() || kind == "Tone" || kind == "DTCS"; };
      const std::string sent = mode.substr(0, arrow),
                        expected = arrow == std::string::npos ? "?" : mode.substr(arrow + 2);
      if (!isKind(sent) || !isKind(expected)) return Refuse("CrossMode", "Tone or DTCS or nothing, ->, the same");
      SetTone(GridColumn::TxTone, sent, sent == "DTCS" ? "DtcsCode" : "rToneFreq");
      SetTone(GridColumn::RxTone, expected, expected == "DTCS" ? "RxDtcsCode" : "cToneFreq");
    } else if (tone.empty() || tone == "Tone" || tone == "TSQL" || tone == "DTCS") {
      const char* const column = tone == "Tone" ? "rToneFreq" : tone == "TSQL" ? "cToneFreq" : "DtcsCode";
      SetTone(GridColumn::TxTone, tone, column);
      SetTone(GridColumn::RxTone, tone == "Tone" ? "" : tone, column);
    } else {
      Refuse("Tone", "Tone, TSQL, DTCS, Cross or nothing; a radio has no others");
    }
  }

  void SetTone(GridColumn place, const std::string& kind, const std::string& column) {
    const std::size_t side = place == GridColumn::TxTone ? 0 : 1; // position in DtcsPolarity
    const std::string text = kind.empty() ? "OFF" : kind == "DTCS" ? Dcs(column, side) : Ctcss(column);
    Set(place, text, kind.empty() ? "Tone" : column);
  }

  const FieldTexts& m_texts;
  std::map<std::string, std::string> m_cells;
  ChannelRow m_row;
  std::vector<RefusedCell> m_bad;
};

} // namespace

bool IsExchangeColumn(std::string_view column) {
  return std::ranges::find(UsedColumns, column) != UsedColumns.end();
}

bool IsExchangeList(const std::vector<std::string>& columns) {
  const auto has = [&](std::string_view column) { return std::ranges::find(columns, column) != columns.end(); };
  return has("Location") && has("Frequency");
}

void ReadExchangeLine(const std::vector<std::string>& columns, const CsvRow& row, std::size_t channel,
                      const FieldTexts& texts, ChannelList& list) {
  Line(columns, row, channel, texts).Read(list);
}

} // namespace mr4500x
