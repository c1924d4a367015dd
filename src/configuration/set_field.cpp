#include "set_field.h"

#include "decimal.h"
#include "field_rules.h"

#include <algorithm>
#include <array>

namespace mr4500x {
namespace {

struct Range {
  int lowest, highest;
};

constexpr Range TtsFrequencies = {288, 3000}; // Hz
constexpr Range ResetTimes = {1, 255};        // s
constexpr int LongestTtsTime = 100;           // 0.1 s
constexpr std::size_t ChoicesWrittenOut = 20; // a longer list is shortened to its ends
constexpr std::string_view DigitsAllowed = "up to 16 of 0 to 9, A to D, * and #, or ----------------";
constexpr std::string_view FiveToneCode = "5T ";

std::string InWords(const std::vector<std::string>& choices) {
  const bool whole = choices.size() <= ChoicesWrittenOut;
  std::string words = "one of ";
  for (std::size_t i = 0; i < (whole ? choices.size() : 3); ++i)
    words += (i == 0 ? "" : ", ") + choices[i];
  return whole ? words : words + " … " + choices.back();
}

std::string InWords(Range range) {
  return std::to_string(range.lowest) + " to " + std::to_string(range.highest);
}

std::optional<int> ParseWithin(std::string_view text, Range range) {
  const std::optional<int> number = ParseWhole(text);
  return number && *number >= range.lowest && *number <= range.highest ? number : std::nullopt;
}

std::optional<bool> ParseYesNo(std::string_view text) {
  if (text != "true" && text != "false") return std::nullopt;
  return text == "true";
}

bool HasAtMostDecimals(Decimal number, int decimals) {
  while (number.decimals > decimals && number.digits % 10 == 0) {
    number.digits /= 10;
    --number.decimals;
  }
  return number.decimals <= decimals;
}

Band BandOf(const Configuration& configuration) {
  return {ParseWhole(configuration.lowerBandLimit).value_or(LowestBandLimit),
          ParseWhole(configuration.upperBandLimit).value_or(HighestBandLimit)};
}

bool TakesFiveToneCode(const Configuration& configuration, GridColumn column) {
  return !IsTtsMode(configuration) && (column == GridColumn::RxSelCall || column == GridColumn::TxSelCall);
}

bool IsReceive(GridColumn column) {
  return column < GridColumn::TxFreq;
}

// One change of one setting. The operators return whether the text was accepted.
struct Setter {
  Configuration& configuration;
  std::size_t entry;
  std::string_view text;
  const FieldTexts& texts;

  bool operator()(ChoiceList list) {
    if (list == ChoiceList::Standards && IsTtsMode(configuration)) return false; // not in use, and not stored
    const std::span<const std::string_view> items = ItemsOf(list);
    const auto item = std::find(items.begin(), items.end(), text);
    if (item == items.end()) return false;
    configuration[list] = {static_cast<int>(item - items.begin()), 0};
    if (list == ChoiceList::SelectCall) ResetSelcallCells(configuration);
    if (list == ChoiceList::PttId) BlankUnsentIds();
    return true;
  }

  // A list that is disabled or replaced by its fixed counterpart can't be changed.
  bool operator()(Key key) {
    const KeyProgram& keys = configuration.keys;
    if ((key == ShortA && keys.fixedShortAShown) || (key == LongA && keys.fixedLongAShown)) return false;
    if (!LongPressEnabled(keys, key)) return false;
    const std::span<const KeyItem> items = KeyItems(key);
    const auto item = std::find_if(items.begin(), items.end(), [&](const KeyItem& i) { return i.text == text; });
    if (item == items.end()) return false;
    KeyProgram changed = keys;
    if (SelectKey(changed, key, static_cast<int>(item - items.begin()))) return false;
    configuration.keys = changed;
    return true;
  }

  bool operator()(Box box) {
    // clang-format off
    switch (box) {
    case Box::LowerBandLimit: return SetLowerLimit();
    case Box::UpperBandLimit: return SetUpperLimit();
    case Box::EmergencyAni:   return SetDigits(configuration.emergencyAni, true);
    case Box::ConnectId:      return SetDigits(configuration.connectId, SendsConnectId(PttIdPosition()));
    case Box::DisconnectId:   return SetDigits(configuration.disconnectId, SendsDisconnectId(PttIdPosition()));
    case Box::ScanSignal:     return SetYesNo(configuration.scanSignal, true);
    case Box::AutoResetTime:  return SetAutoResetTime();
    case Box::InUse:          return SetYesNo(Channel().noCh, false);
    case Box::TxAllowed:      return SetYesNo(Channel().noTx, false);
    }
    // clang-format on
    return false;
  }

  bool operator()(TtsColumn column) {
    const bool isFrequency = column == TtsColumn::ToneAFreq || column == TtsColumn::ToneBFreq;
    if (isFrequency ? !ParseWithin(text, TtsFrequencies) : !IsChoice(column)) return false;
    configuration.Tts(entry, column) = isFrequency ? std::to_string(*ParseWhole(text)) : std::string(text);
    return true;
  }

  bool operator()(GridColumn column) {
    if (column == GridColumn::RxFreq || column == GridColumn::TxFreq) return SetFrequency(column);
    if (!IsChoice(column) && !IsFiveToneCode(column)) return false;
    Channel()[column] = text;
    if (column == GridColumn::RxTone) Channel()[GridColumn::TailCut] = text == "OFF" ? "OFF" : "ON";
    if (column == GridColumn::RxStep || column == GridColumn::TxStep) RoundToStep(column);
    return true;
  }

private:
  [[nodiscard]] ChannelTexts& Channel() const { return configuration.channels[entry - 1]; }
  [[nodiscard]] int PttIdPosition() const { return configuration[ChoiceList::PttId].position; }

  [[nodiscard]] bool IsChoice(FieldPlace place) const {
    const std::vector<std::string> choices = ChoicesOf(configuration, {&FieldOf(place), entry}, texts);
    return std::find(choices.begin(), choices.end(), text) != choices.end();
  }

  [[nodiscard]] bool IsFiveToneCode(GridColumn column) const {
    return TakesFiveToneCode(configuration, column) && text.starts_with(FiveToneCode) &&
           CheckFiveToneCode(text.substr(FiveToneCode.size())).entry == CodeEntry::Accepted;
  }

  void BlankUnsentIds() const {
    if (!SendsConnectId(PttIdPosition())) configuration.connectId = NoNumberText;
    if (!SendsDisconnectId(PttIdPosition())) configuration.disconnectId = NoNumberText;
  }

  bool SetLowerLimit() const {
    const std::optional<int> limit = ParseWithin(text, {LowestBandLimit, BandOf(configuration).upper - 1});
    if (!limit) return false;
    if (*limit == BandOf(configuration).lower) return true;
    configuration.lowerBandLimit = std::to_string(*limit);
    RadioImage image;
    configuration.channels = RestartChannels(image, *limit, texts);
    return true;
  }

  bool SetUpperLimit() const {
    const std::optional<int> limit = ParseWithin(text, {BandOf(configuration).lower + 1, HighestBandLimit});
    if (limit) configuration.upperBandLimit = std::to_string(*limit);
    return limit.has_value();
  }

  bool SetDigits(std::string& digits, bool used) const {
    const bool none = text.empty() || text == NoNumberText;
    if (!none && (!used || text.size() > MostDigits || !IdTextValid(text) || text.find('-') != std::string_view::npos))
      return false;
    digits = none ? NoNumberText : text;
    return true;
  }

  bool SetYesNo(bool& flag, bool whenYes) const {
    const std::optional<bool> yes = ParseYesNo(text);
    if (yes) flag = *yes == whenYes;
    return yes.has_value();
  }

  bool SetAutoResetTime() const {
    const std::optional<int> seconds = ParseWithin(text, ResetTimes);
    if (!seconds && text != "OFF") return false;
    configuration.autoResetOff = !seconds;
    if (seconds) configuration.autoResetTime = std::to_string(*seconds);
    return true;
  }

  bool SetFrequency(GridColumn column) const {
    const std::optional<TensOfHertz> frequency = ReadFrequency(text, texts.decimalSeparator);
    const int unit = StepOf(Channel(), column, texts);
    const Band band = BandOf(configuration);
    if (!frequency || ClampToBand(*frequency, band, unit) != *frequency || *frequency % unit != 0) return false;
    if (!HasAtMostDecimals(*ParseDecimal(text, texts.decimalSeparator), 5)) return false; // ReadFrequency rounded it
    Channel()[column] = FrequencyText(*frequency, texts.decimalSeparator);
    return true;
  }

  void RoundToStep(GridColumn stepColumn) const {
    const GridColumn column = IsReceive(stepColumn) ? GridColumn::RxFreq : GridColumn::TxFreq;
    const int unit = StepOf(Channel(), column, texts);
    std::string& frequency = Channel()[column];
    frequency =
        CommitFrequency(frequency, BandOf(configuration), unit, texts.decimalSeparator).value_or(std::move(frequency));
  }

public:
  // In tens of Hz.
  static int StepOf(const ChannelTexts& channel, GridColumn column, const FieldTexts& texts) {
    const GridColumn step = IsReceive(column) ? GridColumn::RxStep : GridColumn::TxStep;
    return StepUnit(StepCode(channel[step], texts.decimalSeparator).value_or(1));
  }
};

std::string AllowedFrequency(const Configuration& configuration, FieldAt at, std::string_view text,
                             const FieldTexts& texts) {
  const Band band = BandOf(configuration);
  std::string limits = std::to_string(band.lower) + " to " + std::to_string(band.upper) + " MHz";
  const GridColumn column = std::get<GridColumn>(at.field->place);
  const ChannelTexts& channel = configuration.channels[at.entry - 1];
  const int unit = Setter::StepOf(channel, column, texts);
  const std::string grid = "a multiple of " + StepText(unit == StepUnit(0) ? 0 : 1, texts.decimalSeparator) + " kHz";
  const std::optional<TensOfHertz> frequency = ReadFrequency(text, texts.decimalSeparator);
  if (text.empty()) return limits + ", " + grid;
  if (!frequency || ClampToBand(*frequency, band, unit) != *frequency) return limits;
  const TensOfHertz below = *frequency / unit * unit;
  return grid + "; nearest are " + FrequencyText(below, texts.decimalSeparator) + " and " +
         FrequencyText(below + unit, texts.decimalSeparator);
}

std::string AllowedKey(const Configuration& configuration, Key key, const std::vector<std::string>& choices) {
  const KeyProgram& keys = configuration.keys;
  if (key == ShortA && keys.fixedShortAShown) return "Emergency Alert while Long A is Cancel Emergency Alert";
  if (key == LongA && keys.fixedLongAShown) return "Cancel Emergency Alert while Short A is Emergency Alert";
  if (!LongPressEnabled(keys, key)) return "no change while the short press is Monitor";
  return InWords(choices) + "; Talk Around or Reverse on one key only";
}

std::string AllowedBox(const Configuration& configuration, Box box) {
  const Band band = BandOf(configuration);
  const int pttId = configuration[ChoiceList::PttId].position;
  const std::string unsent =
      "---------------- while PTT ID is " + std::string(TextOf(configuration, ChoiceList::PttId));
  // clang-format off
  switch (box) {
  case Box::LowerBandLimit: return InWords({LowestBandLimit, band.upper - 1});
  case Box::UpperBandLimit: return InWords({band.lower + 1, HighestBandLimit});
  case Box::EmergencyAni:   return std::string(DigitsAllowed);
  case Box::ConnectId:      return SendsConnectId(pttId) ? std::string(DigitsAllowed) : unsent;
  case Box::DisconnectId:   return SendsDisconnectId(pttId) ? std::string(DigitsAllowed) : unsent;
  case Box::AutoResetTime:  return "OFF or " + InWords(ResetTimes);
  case Box::ScanSignal:
  case Box::InUse:
  case Box::TxAllowed:      break;
  }
  // clang-format on
  return "true or false";
}

std::string Allowed(const Configuration& configuration, FieldAt at, std::string_view text, const FieldTexts& texts) {
  const FieldPlace& place = at.field->place;
  if (at.field->kind == FieldKind::Frequency) return AllowedFrequency(configuration, at, text, texts);
  if (const auto* box = std::get_if<Box>(&place)) return AllowedBox(configuration, *box);
  const std::vector<std::string> choices = ChoicesOf(configuration, at, texts);
  if (place == FieldPlace(ChoiceList::Standards) && IsTtsMode(configuration))
    return "no change while Select Call is TTS";
  if (const auto* key = std::get_if<Key>(&place)) return AllowedKey(configuration, *key, choices);
  if (choices.empty()) return InWords(TtsFrequencies);
  if (const auto* column = std::get_if<GridColumn>(&place); column && TakesFiveToneCode(configuration, *column))
    return "OFF, or 5T and 5 digits";
  return InWords(choices);
}

std::vector<std::string> ChannelChoices(const Configuration& configuration, FieldAt at, GridColumn column,
                                        const FieldTexts& texts) {
  const bool tts = IsTtsMode(configuration);
  switch (column) {
  case GridColumn::RxStep:
  case GridColumn::TxStep:
    return {StepText(0, texts.decimalSeparator), StepText(1, texts.decimalSeparator)};
  case GridColumn::RxTone:
  case GridColumn::TxTone:
    return ToneChoiceList(texts);
  case GridColumn::Combination:
    return {"AND", "OR"};
  case GridColumn::TailCut:
    if (configuration.channels[at.entry - 1][GridColumn::RxTone] == "OFF") return {"OFF"};
    return {"OFF", "ON"};
  case GridColumn::PttId:
    return {"OFF", "ON"};
  case GridColumn::HighTxPower:
    return {"Permit", "Prohibit"};
  case GridColumn::BandWidth:
    return {texts.WideBandText, texts.NarrowBandText};
  case GridColumn::RxSelCall:
  case GridColumn::TxSelCall:
    if (!tts) return {"OFF"}; // and any five digits
    return {"OFF", "TTS 1", "TTS 2", "TTS 3", "TTS 4", "TTS 5", "TTS 6", "TTS 7", "TTS 8"};
  case GridColumn::GroupCall:
    if (!tts) return {"OFF", "5T 1", "5T 2", "5T 3", "5T 4"};
    return {"OFF", "Tone A", "Tone B"};
  case GridColumn::ChannelNo:
  case GridColumn::RxFreq:
  case GridColumn::TxFreq:
    break;
  }
  return {};
}

} // namespace

std::vector<std::string> ChoicesOf(const Configuration& configuration, FieldAt at, const FieldTexts& texts) {
  std::vector<std::string> choices;
  if (at.field->kind != FieldKind::Choice) return choices;
  const FieldPlace& place = at.field->place;
  if (const auto* list = std::get_if<ChoiceList>(&place)) {
    const std::span<const std::string_view> items = ItemsOf(*list);
    choices.assign(items.begin(), items.end());
  } else if (const auto* key = std::get_if<Key>(&place)) {
    for (const KeyItem& item : KeyItems(*key))
      choices.emplace_back(item.text);
  } else if (std::holds_alternative<TtsColumn>(place)) {
    for (int tenths = 1; tenths <= LongestTtsTime; ++tenths)
      choices.push_back(TtsTimeText(static_cast<std::uint8_t>(tenths), texts.decimalSeparator));
  } else if (const auto* column = std::get_if<GridColumn>(&place)) {
    choices = ChannelChoices(configuration, at, *column, texts);
  }
  return choices;
}

std::optional<Refusal> SetField(Configuration& configuration, FieldAt at, std::string_view text,
                                const FieldTexts& texts) {
  if (text == TextOf(configuration, at)) return std::nullopt;
  if (std::visit(Setter{configuration, at.entry, text, texts}, at.field->place)) return std::nullopt;
  return Refusal{Allowed(configuration, at, text, texts)};
}

std::string AllowedFor(const Configuration& configuration, FieldAt at, const FieldTexts& texts) {
  return Allowed(configuration, at, {}, texts);
}

std::array<ChannelTexts, ChannelCount> RestartChannels(RadioImage& image, int lowerLimit, const FieldTexts& texts) {
  SetLowerBandLimit(image.BandBlock, lowerLimit);
  ResetChannels(image);
  std::array<ChannelTexts, ChannelCount> channels;
  for (std::size_t channel = 0; channel < ChannelCount; ++channel)
    channels[channel] = TextsOfChannel(image, channel, texts);
  return channels;
}

void ResetSelcallCells(Configuration& configuration) {
  for (ChannelTexts& channel : configuration.channels)
    channel[GridColumn::RxSelCall] = channel[GridColumn::TxSelCall] = channel[GridColumn::GroupCall] = "OFF";
}

} // namespace mr4500x
