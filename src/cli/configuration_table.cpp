// Laying the tables out.
#include "configuration_table.h"

#include <algorithm>
#include <vector>

namespace mr4500x {
namespace {

using Row = std::vector<std::string>;

constexpr std::string_view ColumnGap = "  ";

// The rows with every column as wide as its longest text.
void AppendAligned(std::string& text, const std::vector<Row>& rows) {
  std::vector<std::size_t> widths;
  for (const Row& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column) {
      widths[column] = std::max(widths[column], row[column].size());
    }
  }
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t column = 0; column < row.size(); ++column) {
      line += row[column];
      line.append(widths[column] - row[column].size(), ' ');
      line += ColumnGap;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + '\n';
  }
}

void AppendSection(std::string& text, std::string_view title, const std::vector<Row>& rows) {
  if (!text.empty()) text += '\n';
  text += title;
  text += '\n';
  AppendAligned(text, rows);
}

Row ListRow(std::string_view label, const Configuration& values, ChoiceList list) {
  return {"  " + std::string(label), std::string(TextOf(values, list))};
}

Row TextRow(std::string_view label, std::string_view text) {
  return {"  " + std::string(label), std::string(text)};
}

std::vector<Row> ChannelRows(const Configuration& values) {
  std::vector<Row> rows = {{"  CH No.", "In Use", "Rx Freq (MHz)", "Step (kHz)", "Rx CTC/DCS", "Rx SelCall",
                            "Combo_Signaling", "Tail Cut", "Tx", "Tx Freq (MHz)", "Step (kHz)", "Tx CTC/DCS",
                            "Tx SelCall", "High Tx Power", "PTT ID Enable", "Band With", "Group Call"}};
  for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
    const ChannelTexts& texts = values.channels[channel];
    Row row = {"   CH" + std::to_string(channel + 1), texts.noCh ? "no" : "yes"};
    for (std::size_t column = 1; column < GridColumnCount; ++column) {
      if (static_cast<GridColumn>(column) == GridColumn::TxFreq) row.emplace_back(texts.noTx ? "no" : "yes");
      row.push_back(texts.cells[column]);
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<Row> TtsRows(const Configuration& values) {
  std::vector<Row> rows = {{"  No.", "Tone A Freq(Hz)", "Tone A Dur.(s)", "Tone B Freq(Hz)", "Tone B Dur.(s)",
                            "Gap Time(s)", "Group Call Dur.(s)"}};
  for (std::size_t n = 1; n <= TtsEntryCount; ++n) {
    Row row = {"  " + std::to_string(n)};
    row.insert(row.end(), values.ttsTable[n - 1].begin() + 1, values.ttsTable[n - 1].end());
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<Row> KeyRows(const Configuration& values) {
  constexpr std::array<std::string_view, 6> labels = {"Short A", "Long A", "Short B", "Long B", "Short C", "Long C"};
  std::vector<Row> rows;
  for (std::size_t key = 0; key < labels.size(); ++key) {
    rows.push_back(TextRow(labels[key], KeyTextOf(values, key)));
  }
  return rows;
}

} // namespace

std::string ConfigurationTable(const Configuration& values) {
  std::string text;
  AppendSection(text, "Frequency Band",
                {TextRow("Limits", values.lowerBandLimit + " ~ " + values.upperBandLimit + " MHz")});
  AppendSection(text, "Channel Settings", ChannelRows(values));
  AppendSection(
      text, "Global Radio Settings",
      {ListRow("Battery Save", values, ChoiceList::BatterySave), ListRow("Beep Tone", values, ChoiceList::BeepTone),
       ListRow("Tx TOT", values, ChoiceList::TxTot), ListRow("Busy CH Lock", values, ChoiceList::BusyChLock),
       ListRow("Squelch Level", values, ChoiceList::SquelchLevel), ListRow("Compander", values, ChoiceList::Compander),
       ListRow("VOX Sensivity", values, ChoiceList::VoxSensivity),
       ListRow("Beep Enable", values, ChoiceList::BeepEnable), TextRow("Emerge ANI", values.emergencyAni),
       ListRow("PTT ID", values, ChoiceList::PttId), TextRow("Connect ID", values.connectId),
       TextRow("Disconnect ID", values.disconnectId), ListRow("Digit Time", values, ChoiceList::DigitTime),
       ListRow("Inter Digit Time", values, ChoiceList::InterDigitTime),
       ListRow("Manual Tune", values, ChoiceList::ManualTune)});
  AppendSection(
      text, "Scan Information",
      {TextRow("Signal", values.scanSignal ? "ON" : "OFF"), ListRow("Scan Mode", values, ChoiceList::ScanMode),
       ListRow("Priority CH", values, ChoiceList::PriorityCh),
       ListRow("TO Scan Delay", values, ChoiceList::ToScanDelay), ListRow("Revert CH", values, ChoiceList::RevertCh),
       ListRow("Restore Time", values, ChoiceList::RestoreTime), ListRow("Look Back", values, ChoiceList::LookBack)});
  AppendSection(text, "Key Program", KeyRows(values));
  AppendSection(text, "Auto Reset Time",
                {TextRow("Auto Reset Time(s)", values.autoResetOff ? "OFF" : values.autoResetTime)});
  AppendSection(
      text, "Signaling",
      {ListRow("Select Call", values, ChoiceList::SelectCall), ListRow("Standards", values, ChoiceList::Standards)});
  AppendSection(text, "TTS", TtsRows(values));
  return text;
}

} // namespace mr4500x
