#include "set_field.h"

#include "cell_items.h"
#include "decimal.h"
#include "field_rules.h"

#include <algorithm>
#include <climits>

namespace mr4500x {
namespace {

using Choices = std::vector<std::string_view>;

constexpr std::size_t ChoicesWrittenOut = 20; // a longer list is shortened to its ends
constexpr std::string_view DigitsAllowed = "up to 16 of 0 to 9, A to D, * and #, or ----------------";
constexpr std::string_view FiveToneCode = "5T ";

std::string InWords(const Choices& choices) {
  const bool whole = choices.size() <= ChoicesWrittenOut;
  std::string words = "one of ";
  for (std::size_t i = 0; i < (whole ? choices.size() : 3); ++i)
    words.append(i == 0 ? "" : ", ").append(choices[i]);
  return whole ? words : words.append(" … ").append(choices.back());
}

std::string InWords(Range range) {
  return std::to_string(range.lowest) + " to " + std::to_string(range.highest);
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

bool Is(FieldAt at, FieldPlace place) {
  return at.field->place == place;
}

// The limits of a whole number.
Range RangeOf(const Configuration& configuration, FieldAt at) {
  if (Is(at, Box::LowerBandLimit)) return {LowestBandLimit, BandOf(configuration).upper - 1};
  if (Is(at, Box::UpperBandLimit)) return {BandOf(configuration).lower + 1, HighestBandLimit};
  return Is(at, Box::AutoResetTime) ? ResetTimes : TtsFrequencies;
}

// The TTS table and the standards each belong to one mode and are not stored in the other.
bool IsUnused(const Configuration& configuration, FieldAt at) {
  return IsTtsMode(configuration) ? Is(at, ChoiceList::Standards) : at.field->group == FieldGroup::Tts;
}

bool IsSent(const Configuration& configuration, FieldAt at) {
  const int pttId = configuration[ChoiceList::PttId].position;
  return (!Is(at, Box::ConnectId) || SendsConnectId(pttId)) && (!Is(at, Box::DisconnectId) || SendsDisconnectId(pttId));
}

bool TakesFiveToneCode(const Configuration& configuration, FieldAt at) {
  return !IsTtsMode(configuration) && (Is(at, GridColumn::RxSelCall) || Is(at, GridColumn::TxSelCall));
}

bool IsReceive(FieldAt at) {
  return std::get<GridColumn>(at.field->place) < GridColumn::TxFreq;
}

// The step of a frequency or of its step cell, in tens of Hz.
int StepOf(const Configuration& configuration, FieldAt at, const FieldTexts& texts) {
  const GridColumn step = IsReceive(at) ? GridColumn::RxStep : GridColumn::TxStep;
  return StepUnit(StepCode(configuration.channels[at.entry - 1][step], texts).value_or(1));
}

// One change of one setting. The operations return whether the text was accepted.
struct Change {
  Configuration& configuration;
  FieldAt at;
  std::string_view text;
  const FieldTexts& texts;

  [[nodiscard]] bool Apply() const {
    if (IsUnused(configuration, at)) return false;
    // clang-format off
    switch (at.field->kind) {
    case FieldKind::Choice:      return Choose();
    case FieldKind::WholeNumber: return SetNumber();
    case FieldKind::Digits:      return SetDigits();
    case FieldKind::Frequency:   return SetFrequency();
    case FieldKind::YesNo:       return SetYesNo();
    }
    // clang-format on
    return false;
  }

private:
  [[nodiscard]] ChannelTexts& Channel() const { return configuration.channels[at.entry - 1]; }

  [[nodiscard]] bool Choose() const {
    const Choices choices = ChoicesOf(configuration, at, texts);
    const auto found = std::ranges::find(choices, text);
    if (found == choices.end() && !IsFiveToneCode()) return false;
    const auto position = static_cast<int>(found - choices.begin());
    if (const auto* const key = std::get_if<Key>(&at.field->place)) return ChooseForKey(*key, position);
    if (const auto* const list = std::get_if<ChoiceList>(&at.field->place)) {
      configuration[*list] = {position, 0};
      if (*list == ChoiceList::SelectCall) ResetSelcallCells(configuration);
      if (*list == ChoiceList::PttId) BlankUnsentIds();
      return true;
    }
    TextIn(configuration, at) = text;
    if (Is(at, GridColumn::RxTone)) Channel()[GridColumn::TailCut] = text == "OFF" ? "OFF" : "ON";
    if (Is(at, GridColumn::RxStep) || Is(at, GridColumn::TxStep)) RoundToStep();
    return true;
  }

  [[nodiscard]] bool ChooseForKey(Key key, int position) const {
    KeyProgram changed = configuration.keys;
    if (SelectKey(changed, key, position) > 0) return false;
    configuration.keys = changed;
    return true;
  }

  [[nodiscard]] bool IsFiveToneCode() const {
    return TakesFiveToneCode(configuration, at) && text.starts_with(FiveToneCode) &&
           CheckFiveToneCode(text.substr(FiveToneCode.size())).entry == CodeEntry::Accepted;
  }

  void BlankUnsentIds() const {
    const int pttId = configuration[ChoiceList::PttId].position;
    if (!SendsConnectId(pttId)) configuration.connectId = NoNumberText;
    if (!SendsDisconnectId(pttId)) configuration.disconnectId = NoNumberText;
  }

  void RoundToStep() const {
    std::string& frequency = Channel()[IsReceive(at) ? GridColumn::RxFreq : GridColumn::TxFreq];
    const int unit = StepOf(configuration, at, texts);
    if (auto rounded = CommitFrequency(frequency, BandOf(configuration), unit, texts.decimalSeparator))
      frequency = std::move(*rounded);
  }

  [[nodiscard]] bool SetNumber() const {
    const Range range = RangeOf(configuration, at);
    const std::optional<int> number = ParseWhole(text);
    const bool isWithin = number && *number >= range.lowest && *number <= range.highest;
    const bool isOff = Is(at, Box::AutoResetTime) && text == "OFF";
    if (!isWithin && !isOff) return false;
    if (Is(at, Box::AutoResetTime)) configuration.autoResetOff = isOff;
    if (Is(at, Box::LowerBandLimit) && *number != BandOf(configuration).lower) ResetChannelsTo(*number);
    if (isWithin) TextIn(configuration, at) = std::to_string(*number);
    return true;
  }

  // The group calls of 5-tone mode stay, because they are not in the records that are reset.
  void ResetChannelsTo(int lowerLimit) const {
    RadioImage image;
    auto channels = RestartChannels(image, lowerLimit, texts);
    for (std::size_t i = 0; i < ChannelCount && !IsTtsMode(configuration); ++i)
      channels[i][GridColumn::GroupCall] = configuration.channels[i][GridColumn::GroupCall];
    configuration.channels = std::move(channels);
  }

  [[nodiscard]] bool SetDigits() const {
    const bool none = text.empty() || text == NoNumberText;
    const bool isNumber = text.size() <= MostDigits && IdTextValid(text) && text.find('-') == std::string_view::npos;
    if (!none && !(isNumber && IsSent(configuration, at))) return false;
    TextIn(configuration, at) = none ? NoNumberText : text;
    return true;
  }

  [[nodiscard]] bool SetYesNo() const {
    if (text != "true" && text != "false") return false;
    const Flag flag = FlagIn(configuration, at);
    *flag.box = (text == "true") == flag.whenYes;
    return true;
  }

  [[nodiscard]] bool SetFrequency() const {
    const std::optional<TensOfHertz> frequency = ReadFrequency(text, texts.decimalSeparator);
    const int unit = StepOf(configuration, at, texts);
    if (!frequency || ClampToBand(*frequency, BandOf(configuration), unit) != *frequency || *frequency % unit != 0)
      return false;
    if (!HasAtMostDecimals(*ParseDecimal(text, texts.decimalSeparator), 5)) return false; // ReadFrequency rounded it
    TextIn(configuration, at) = FrequencyText(*frequency, texts.decimalSeparator);
    return true;
  }
};

std::string AllowedFrequency(const Configuration& configuration, FieldAt at, std::string_view text,
                             const FieldTexts& texts) {
  const Band band = BandOf(configuration);
  const int unit = StepOf(configuration, at, texts);
  const TensOfHertz end = ClampToBand(LLONG_MAX, band, unit);
  std::string limits = std::to_string(band.lower) + " to " + FrequencyText(end, texts.decimalSeparator) + " MHz";
  const std::string grid = "a multiple of " + StepText(unit == StepUnit(0) ? 0 : 1, texts) + " kHz";
  if (text.empty()) return limits + ", " + grid;
  const std::optional<TensOfHertz> frequency = ReadFrequency(text, texts.decimalSeparator);
  if (!frequency || ClampToBand(*frequency, band, unit) != *frequency) return limits;
  const TensOfHertz below = *frequency / unit * unit;
  const std::string nearest = FrequencyText(below, texts.decimalSeparator);
  if (below == end) return grid + "; nearest is " + nearest;
  return grid + "; nearest are " + nearest + " and " + FrequencyText(below + unit, texts.decimalSeparator);
}

// A frequency with the wrong decimal separator.
Refusal::Cause CauseFor(FieldAt at, std::string_view text, const FieldTexts& texts) {
  const bool isPoint = texts.decimalSeparator == '.';
  if (at.field->kind != FieldKind::Frequency || !ReadFrequency(text, isPoint ? ',' : '.') ||
      ReadFrequency(text, texts.decimalSeparator))
    return Refusal::Cause::NotAllowed;
  return isPoint ? Refusal::Cause::NeedsPoint : Refusal::Cause::NeedsComma;
}

std::string AllowedChoice(const Configuration& configuration, FieldAt at, const FieldTexts& texts) {
  const Choices choices = ChoicesOf(configuration, at, texts);
  if (TakesFiveToneCode(configuration, at)) return "OFF, or 5T and 5 digits";
  const bool isKey = std::holds_alternative<Key>(at.field->place);
  if (!choices.empty()) return InWords(choices) + (isKey ? "; Talk Around or Reverse on one key only" : "");
  if (Is(at, ShortA)) return "Emergency Alert while Long A is Cancel Emergency Alert";
  if (Is(at, LongA)) return "Cancel Emergency Alert while Short A is Emergency Alert";
  return "no change while the short press is Monitor";
}

std::string Allowed(const Configuration& configuration, FieldAt at, std::string_view text, const FieldTexts& texts) {
  if (IsUnused(configuration, at))
    return "no change while Select Call is " + std::string(TextOf(configuration, ChoiceList::SelectCall));
  switch (at.field->kind) {
  case FieldKind::Choice:
    return AllowedChoice(configuration, at, texts);
  case FieldKind::WholeNumber:
    return (Is(at, Box::AutoResetTime) ? "OFF or " : "") + InWords(RangeOf(configuration, at));
  case FieldKind::Digits:
    if (IsSent(configuration, at)) return std::string(DigitsAllowed);
    return "---------------- while PTT ID is " + std::string(TextOf(configuration, ChoiceList::PttId));
  case FieldKind::Frequency:
    return AllowedFrequency(configuration, at, text, texts);
  case FieldKind::YesNo:
    break;
  }
  return "true or false";
}

Choices ChannelChoices(const Configuration& configuration, FieldAt at, const FieldTexts& texts) {
  if (Is(at, GridColumn::RxStep) || Is(at, GridColumn::TxStep)) return {texts.StepTexts.begin(), texts.StepTexts.end()};
  if (Is(at, GridColumn::RxTone) || Is(at, GridColumn::TxTone))
    return {texts.ToneChoiceList.begin(), texts.ToneChoiceList.end()};
  if (Is(at, GridColumn::BandWidth)) return {texts.WideBandText, texts.NarrowBandText};
  auto items = CellItems(std::get<GridColumn>(at.field->place), IsTtsMode(configuration));
  const bool hasTone = configuration.channels[at.entry - 1][GridColumn::RxTone] != "OFF";
  if (Is(at, GridColumn::TailCut) && !hasTone) items = items.first(1);
  return {items.begin(), items.end()};
}

// A list that is disabled or replaced by its fixed counterpart offers nothing.
Choices KeyChoices(const KeyProgram& keys, Key key) {
  Choices choices;
  if ((key == ShortA && keys.fixedShortAShown) || (key == LongA && keys.fixedLongAShown)) return choices;
  if (LongPressEnabled(keys, key)) std::ranges::transform(KeyItems(key), std::back_inserter(choices), &KeyItem::text);
  return choices;
}

} // namespace

std::vector<std::string_view> ChoicesOf(const Configuration& configuration, FieldAt at, const FieldTexts& texts) {
  if (at.field->kind != FieldKind::Choice || IsUnused(configuration, at)) return {};
  if (const auto* const key = std::get_if<Key>(&at.field->place)) return KeyChoices(configuration.keys, *key);
  if (std::holds_alternative<TtsColumn>(at.field->place)) return {texts.TtsTimes.begin(), texts.TtsTimes.end()};
  const auto* const list = std::get_if<ChoiceList>(&at.field->place);
  return list != nullptr ? std::vector(ItemsOf(*list).begin(), ItemsOf(*list).end())
                         : ChannelChoices(configuration, at, texts);
}

std::optional<Refusal> SetField(Configuration& configuration, FieldAt at, std::string_view text,
                                const FieldTexts& texts) {
  if (text == TextOf(configuration, at) || Change{configuration, at, text, texts}.Apply()) return std::nullopt;
  return Refusal{Allowed(configuration, at, text, texts), CauseFor(at, text, texts)};
}

std::string ReasonOf(const Refusal& refusal) {
  // clang-format off
  switch (refusal.cause) {
  case Refusal::Cause::NotAllowed: break;
  case Refusal::Cause::NeedsPoint: return "use a point";
  case Refusal::Cause::NeedsComma: return "use a comma";
  case Refusal::Cause::GivenTwice: return "given twice";
  }
  // clang-format on
  return "allowed: " + refusal.allowed;
}

std::optional<Limits> LimitsOf(const Configuration& configuration, FieldAt at, const FieldTexts& texts) {
  if (IsUnused(configuration, at)) return std::nullopt;
  if (at.field->kind == FieldKind::Frequency) {
    const auto text = [&](TensOfHertz frequency) { return FrequencyText(frequency, texts.decimalSeparator); };
    const Band band = BandOf(configuration);
    const int unit = StepOf(configuration, at, texts);
    return Limits{text(ClampToBand(0, band, unit)), text(ClampToBand(LLONG_MAX, band, unit)),
                  FormatDecimal(unit, 1, 5, texts.decimalSeparator), "MHz"};
  }
  if (at.field->kind != FieldKind::WholeNumber) return std::nullopt;
  const Range range = RangeOf(configuration, at);
  const std::string_view unit = Is(at, Box::AutoResetTime) ? "s" : at.field->group == FieldGroup::Band ? "MHz" : "Hz";
  return Limits{std::to_string(range.lowest), std::to_string(range.highest), "1", unit};
}

std::string AllowedFor(const Configuration& configuration, FieldAt at, const FieldTexts& texts) {
  return Allowed(configuration, at, {}, texts);
}

std::vector<FieldAt> OutsideRules(const Configuration& configuration, const FieldTexts& texts) {
  std::vector<FieldAt> outside;
  Configuration scratch = configuration;
  for (const Field& field : Fields()) {
    const bool isList = std::holds_alternative<ChoiceList>(field.place) || std::holds_alternative<Key>(field.place);
    for (std::size_t entry = 1; !isList && entry <= EntriesOf(field.group); ++entry) {
      const FieldAt at = {&field, entry};
      if (IsUnused(configuration, at)) continue;
      if (!Change{scratch, at, TextOf(configuration, at), texts}.Apply()) outside.push_back(at);
      if (field.group == FieldGroup::Channels) scratch.channels[entry - 1] = configuration.channels[entry - 1];
    }
  }
  return outside;
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
