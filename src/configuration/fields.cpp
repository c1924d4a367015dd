#include "fields.h"

#include "decimal.h"

#include <array>

namespace mr4500x {
namespace {

using G = FieldGroup;
using K = FieldKind;
using L = ChoiceList;
using C = GridColumn;
using T = TtsColumn;

// The labels of the windows. "VOX Sensivity" and "Band With" are misspelt on purpose, as in the product. A channel
// heading breaks at two blanks and after "_". The check boxes "No CH" and "No Tx" say the opposite of in_use and
// tx_allowed.
// clang-format off
constexpr std::array<Field, 55> Table = {{
    {G::Band,     "lower",              "Lower Limit",         K::WholeNumber, Box::LowerBandLimit},
    {G::Band,     "upper",              "Upper Limit",         K::WholeNumber, Box::UpperBandLimit},
    {G::None,     "manual_tune",        "Manual Tune",         K::Choice,      L::ManualTune},
    {G::None,     "select_call",        "Select Call",         K::Choice,      L::SelectCall},
    {G::None,     "five_tone_standard", "Standards",           K::Choice,      L::Standards},
    {G::Global,   "battery_save",       "Battery Save",        K::Choice,      L::BatterySave},
    {G::Global,   "beep_tone",          "Beep Tone",           K::Choice,      L::BeepTone},
    {G::Global,   "tx_tot",             "Tx TOT",              K::Choice,      L::TxTot},
    {G::Global,   "busy_ch_lock",       "Busy CH Lock",        K::Choice,      L::BusyChLock},
    {G::Global,   "squelch_level",      "Squelch Level",       K::Choice,      L::SquelchLevel},
    {G::Global,   "compander",          "Compander",           K::Choice,      L::Compander},
    {G::Global,   "vox_sensivity",      "VOX Sensivity",       K::Choice,      L::VoxSensivity},
    {G::Global,   "beep_enable",        "Beep Enable",         K::Choice,      L::BeepEnable},
    {G::Global,   "emergency_ani",      "Emerge ANI ",         K::Digits,      Box::EmergencyAni},
    {G::Global,   "ptt_id",             "PTT ID",              K::Choice,      L::PttId},
    {G::Global,   "connect_id",         "Connect ID",          K::Digits,      Box::ConnectId},
    {G::Global,   "disconnect_id",      "Disconnect ID",       K::Digits,      Box::DisconnectId},
    {G::Global,   "digit_time",         "Digit Time",          K::Choice,      L::DigitTime},
    {G::Global,   "inter_digit_time",   "Inter Digit Time",    K::Choice,      L::InterDigitTime},
    {G::Scan,     "signal",             "Signal",              K::YesNo,       Box::ScanSignal},
    {G::Scan,     "scan_mode",          "Scan Mode",           K::Choice,      L::ScanMode},
    {G::Scan,     "priority_ch",        "Priority CH",         K::Choice,      L::PriorityCh},
    {G::Scan,     "to_scan_delay",      "TO Scan Delay",       K::Choice,      L::ToScanDelay},
    {G::Scan,     "revert_ch",          "Revert CH",           K::Choice,      L::RevertCh},
    {G::Scan,     "restore_time",       "Restore Time",        K::Choice,      L::RestoreTime},
    {G::Scan,     "look_back",          "Look Back",           K::Choice,      L::LookBack},
    {G::Keys,     "short_a",            "Short A",             K::Choice,      ShortA},
    {G::Keys,     "long_a",             "Long A",              K::Choice,      LongA},
    {G::Keys,     "short_b",            "Short B",             K::Choice,      ShortB},
    {G::Keys,     "long_b",             "Long B",              K::Choice,      LongB},
    {G::Keys,     "short_c",            "Short C",             K::Choice,      ShortC},
    {G::Keys,     "long_c",             "Long C",              K::Choice,      LongC},
    {G::None,     "auto_reset_time",    "Auto Reset Time(s)",  K::WholeNumber, Box::AutoResetTime},
    {G::Tts,      "tone_a",             "Tone A Freq(Hz)",     K::WholeNumber, T::ToneAFreq},
    {G::Tts,      "tone_a_dur",         "Tone A Dur.(s)",      K::Choice,      T::ToneADur},
    {G::Tts,      "tone_b",             "Tone B Freq(Hz)",     K::WholeNumber, T::ToneBFreq},
    {G::Tts,      "tone_b_dur",         "Tone B Dur.(s)",      K::Choice,      T::ToneBDur},
    {G::Tts,      "gap",                "Gap Time(s)",         K::Choice,      T::GapTime},
    {G::Tts,      "group_call_dur",     "Group Call Dur.(s)",  K::Choice,      T::GroupCallDur},
    {G::Channels, "in_use",             "In Use",              K::YesNo,       Box::InUse},
    {G::Channels, "rx_freq",            "Rx Freq  (MHz)",      K::Frequency,   C::RxFreq},
    {G::Channels, "rx_step",            "Step (kHz)",          K::Choice,      C::RxStep},
    {G::Channels, "rx_tone",            "Rx CTC/DCS",          K::Choice,      C::RxTone},
    {G::Channels, "rx_selcall",         "Rx  SelCall",         K::Choice,      C::RxSelCall},
    {G::Channels, "combination",        "Combo_ Signaling",    K::Choice,      C::Combination},
    {G::Channels, "tail_cut",           "Tail Cut",            K::Choice,      C::TailCut},
    {G::Channels, "tx_allowed",         "Tx",                  K::YesNo,       Box::TxAllowed},
    {G::Channels, "tx_freq",            "Tx Freq  (MHz)",      K::Frequency,   C::TxFreq},
    {G::Channels, "tx_step",            "Step (kHz)",          K::Choice,      C::TxStep},
    {G::Channels, "tx_tone",            "Tx CTC/DCS",          K::Choice,      C::TxTone},
    {G::Channels, "tx_selcall",         "Tx  SelCall",         K::Choice,      C::TxSelCall},
    {G::Channels, "high_tx_power",      "High Tx Power",       K::Choice,      C::HighTxPower},
    {G::Channels, "ptt_id",             "PTT ID Enable",       K::Choice,      C::PttId},
    {G::Channels, "bandwidth",          "Band With",           K::Choice,      C::BandWidth},
    {G::Channels, "group_call",         "Group Call",          K::Choice,      C::GroupCall},
}};
constexpr std::string_view CodeBegin = "{\"code\": ";
constexpr std::array<std::string_view, 7> GroupNames = {"", "band", "global", "scan", "keys", "tts", "channels"};
// clang-format on

// The number of a place among all places, kind by kind.
constexpr std::size_t NumberOf(const FieldPlace& place) {
  constexpr std::size_t keys = ChoiceListCount, boxes = keys + KeyCount, tts = boxes + BoxCount;
  constexpr std::array<std::size_t, 5> first = {0, keys, boxes, tts, tts + TtsColumnCount};
  return first[place.index()] + std::visit([](auto value) { return static_cast<std::size_t>(value); }, place);
}

constexpr auto RowOfPlace = [] {
  std::array<std::uint8_t, NumberOf(GridColumn::GroupCall) + 1> rows{};
  for (std::size_t row = 0; row < Table.size(); ++row)
    rows[NumberOf(Table[row].place)] = static_cast<std::uint8_t>(row);
  return rows;
}();

// The part of the configuration that holds a setting's value. A new kind of place or box does not compile until it is
// added here.
struct Holders {
  using Holder = std::variant<ChoiceList, Key, std::string*, Flag>;
  Configuration& configuration;
  std::size_t entry;

  Holder operator()(ChoiceList list) const { return list; }
  Holder operator()(Key key) const { return key; }
  Holder operator()(TtsColumn column) const { return &configuration.Tts(entry, column); }
  Holder operator()(GridColumn column) const { return &configuration.channels[entry - 1][column]; }
  Holder operator()(Box box) const {
    // clang-format off
    switch (box) {
    case Box::LowerBandLimit: return &configuration.lowerBandLimit;
    case Box::UpperBandLimit: return &configuration.upperBandLimit;
    case Box::EmergencyAni:   return &configuration.emergencyAni;
    case Box::ConnectId:      return &configuration.connectId;
    case Box::DisconnectId:   return &configuration.disconnectId;
    case Box::ScanSignal:     return Flag{&configuration.scanSignal, true};
    case Box::AutoResetTime:  return &configuration.autoResetTime;
    case Box::InUse:          return Flag{&configuration.channels[entry - 1].noCh, false};
    case Box::TxAllowed:      return Flag{&configuration.channels[entry - 1].noTx, false};
    }
    // clang-format on
    throw std::bad_variant_access(); // not a box
  }
};

Holders::Holder HolderOf(Configuration& configuration, FieldAt at) {
  return std::visit(Holders{configuration, at.entry}, at.field->place);
}

} // namespace

std::span<const Field> Fields() {
  return Table;
}

std::string_view NameOf(FieldGroup group) {
  return GroupNames[static_cast<std::size_t>(group)];
}

std::size_t EntriesOf(FieldGroup group) {
  if (group == FieldGroup::Tts) return TtsEntryCount;
  return group == FieldGroup::Channels ? ChannelCount : 1;
}

std::string IdentifierOf(FieldAt at) {
  std::string identifier(NameOf(at.field->group));
  if (!identifier.empty()) identifier += '.';
  if (IsArray(at.field->group)) identifier += std::to_string(at.entry) + '.';
  return identifier += at.field->key;
}

std::optional<FieldAt> FindField(std::string_view identifier) {
  const std::size_t lastDot = identifier.rfind('.');
  const std::string_view key = identifier.substr(lastDot == std::string_view::npos ? 0 : lastDot + 1);
  for (const Field& field : Table) {
    if (field.key != key) continue;
    for (std::size_t entry = 1; entry <= EntriesOf(field.group); ++entry) {
      const FieldAt at = {&field, entry};
      if (IdentifierOf(at) == identifier) return at;
    }
  }
  return std::nullopt;
}

const Field& FieldOf(FieldPlace place) {
  return Table[RowOfPlace[NumberOf(place)]];
}

std::string& TextIn(Configuration& configuration, FieldAt at) {
  return *std::get<std::string*>(HolderOf(configuration, at));
}

Flag FlagIn(Configuration& configuration, FieldAt at) {
  return std::get<Flag>(HolderOf(configuration, at));
}

std::string TextOf(const Configuration& configuration, FieldAt at) {
  const FieldPlace& place = at.field->place;
  if (const auto* const list = std::get_if<ChoiceList>(&place)) return std::string(TextOf(configuration, *list));
  if (const auto* const key = std::get_if<Key>(&place)) return std::string(KeyTextOf(configuration, *key));
  if (place == FieldPlace(Box::AutoResetTime) && configuration.autoResetOff) return "OFF";
  auto& held = const_cast<Configuration&>(configuration); // only read
  if (at.field->kind != FieldKind::YesNo) return TextIn(held, at);
  const Flag flag = FlagIn(held, at);
  return *flag.box == flag.whenYes ? "true" : "false";
}

std::optional<std::uint8_t> UnlistedCodeOf(const Configuration& configuration, FieldAt at) {
  if (const auto* const list = std::get_if<ChoiceList>(&at.field->place)) {
    const Choice& choice = configuration[*list];
    if (choice.position < 0) return choice.unlisted;
  }
  const auto* const key = std::get_if<Key>(&at.field->place);
  if (key != nullptr && KeyTextOf(configuration, *key).empty()) return configuration.keys.codes[*key];
  return std::nullopt;
}

std::string ValueOf(const Configuration& configuration, FieldAt at) {
  const std::optional<std::uint8_t> code = UnlistedCodeOf(configuration, at);
  return code ? std::string(CodeBegin) + std::to_string(*code) + '}' : TextOf(configuration, at);
}

std::optional<std::uint8_t> CodeIn(std::string_view value) {
  return value.ends_with('}') ? ByteAfter(value.substr(0, value.size() - 1), CodeBegin) : std::nullopt;
}

} // namespace mr4500x
