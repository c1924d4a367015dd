// Building the document.
#include "configuration_json.h"

#include "decimal.h"

#include <nlohmann/json.hpp>

namespace mr4500x {
namespace {

using Json = nlohmann::ordered_json;

// A key of the document and what stands under it.
struct ListKey {
  const char* key;
  ChoiceList list;
};
struct CellKey {
  const char* key;
  GridColumn column;
};

// clang-format off
constexpr std::array<ListKey, 8> GlobalLists = {{
    {"battery_save",  ChoiceList::BatterySave},  {"beep_tone",     ChoiceList::BeepTone},
    {"tx_tot",        ChoiceList::TxTot},        {"busy_ch_lock",  ChoiceList::BusyChLock},
    {"squelch_level", ChoiceList::SquelchLevel}, {"compander",     ChoiceList::Compander},
    {"vox_sensivity", ChoiceList::VoxSensivity}, {"beep_enable",   ChoiceList::BeepEnable},
}};
constexpr std::array<ListKey, 6> ScanLists = {{
    {"scan_mode",     ChoiceList::ScanMode},     {"priority_ch",   ChoiceList::PriorityCh},
    {"to_scan_delay", ChoiceList::ToScanDelay},  {"revert_ch",     ChoiceList::RevertCh},
    {"restore_time",  ChoiceList::RestoreTime},  {"look_back",     ChoiceList::LookBack},
}};
constexpr std::array<const char*, 6> KeyNames = {"short_a", "long_a", "short_b", "long_b", "short_c", "long_c"};
constexpr std::array<CellKey, 6> ReceiveCells = {{
    {"rx_freq",       GridColumn::RxFreq},       {"rx_step",       GridColumn::RxStep},
    {"rx_tone",       GridColumn::RxTone},       {"rx_selcall",    GridColumn::RxSelCall},
    {"combination",   GridColumn::Combination},  {"tail_cut",      GridColumn::TailCut},
}};
constexpr std::array<CellKey, 8> TransmitCells = {{
    {"tx_freq",       GridColumn::TxFreq},       {"tx_step",       GridColumn::TxStep},
    {"tx_tone",       GridColumn::TxTone},       {"tx_selcall",    GridColumn::TxSelCall},
    {"high_tx_power", GridColumn::HighTxPower},  {"ptt_id",        GridColumn::PttId},
    {"bandwidth",     GridColumn::BandWidth},    {"group_call",    GridColumn::GroupCall},
}};
// clang-format on

int Number(std::string_view text) {
  return ParseWhole(text).value_or(0);
}

void AddLists(Json& object, std::span<const ListKey> keys, const Configuration& values) {
  for (const ListKey& row : keys) {
    object[row.key] = TextOf(values, row.list);
  }
}

Json GlobalSettings(const Configuration& values) {
  Json global = Json::object();
  AddLists(global, GlobalLists, values);
  global["emergency_ani"] = values.emergencyAni;
  global["ptt_id"] = TextOf(values, ChoiceList::PttId);
  global["connect_id"] = values.connectId;
  global["disconnect_id"] = values.disconnectId;
  global["digit_time"] = TextOf(values, ChoiceList::DigitTime);
  global["inter_digit_time"] = TextOf(values, ChoiceList::InterDigitTime);
  return global;
}

Json TtsTable(const Configuration& values) {
  Json table = Json::array();
  for (std::size_t n = 1; n <= TtsEntryCount; ++n) {
    table.push_back({{"tone_a", Number(values.Tts(n, TtsColumn::ToneAFreq))},
                     {"tone_a_dur", values.Tts(n, TtsColumn::ToneADur)},
                     {"tone_b", Number(values.Tts(n, TtsColumn::ToneBFreq))},
                     {"tone_b_dur", values.Tts(n, TtsColumn::ToneBDur)},
                     {"gap", values.Tts(n, TtsColumn::GapTime)},
                     {"group_call_dur", values.Tts(n, TtsColumn::GroupCallDur)}});
  }
  return table;
}

Json Channel(std::size_t number, const ChannelTexts& texts) {
  Json channel = {{"number", number}, {"in_use", !texts.noCh}};
  for (const CellKey& cell : ReceiveCells) {
    channel[cell.key] = texts[cell.column];
  }
  channel["tx_allowed"] = !texts.noTx;
  for (const CellKey& cell : TransmitCells) {
    channel[cell.key] = texts[cell.column];
  }
  return channel;
}

} // namespace

std::string ConfigurationJson(const Configuration& values) {
  Json document;
  document["band"] = {{"lower", Number(values.lowerBandLimit)}, {"upper", Number(values.upperBandLimit)}};
  document["manual_tune"] = TextOf(values, ChoiceList::ManualTune);
  document["select_call"] = TextOf(values, ChoiceList::SelectCall);
  document["five_tone_standard"] = TextOf(values, ChoiceList::Standards);
  document["global"] = GlobalSettings(values);
  document["scan"]["signal"] = values.scanSignal;
  AddLists(document["scan"], ScanLists, values);
  for (std::size_t key = 0; key < KeyNames.size(); ++key) {
    document["keys"][KeyNames[key]] = KeyTextOf(values, key);
  }
  if (values.autoResetOff) {
    document["auto_reset_time"] = "OFF";
  } else {
    document["auto_reset_time"] = Number(values.autoResetTime);
  }
  document["tts"] = TtsTable(values);
  document["channels"] = Json::array();
  for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
    document["channels"].push_back(Channel(channel + 1, values.channels[channel]));
  }
  return document.dump(2) + '\n';
}

} // namespace mr4500x
