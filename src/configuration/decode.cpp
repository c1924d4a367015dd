#include "configuration.h"

#include "decimal.h"

#include <algorithm>

namespace mr4500x {
namespace {

Choice ChoiceFor(ChoiceList list, int position, int code) {
  const bool listed = position >= 0 && static_cast<std::size_t>(position) < ItemsOf(list).size();
  return {listed ? position : -1, static_cast<std::uint8_t>(listed ? 0 : code)};
}

// A code between two items rounds to the nearer one.
void DecodeLists(const RadioImage& image, Configuration& configuration) {
  for (std::size_t i = 0; i < ChoiceListCount; ++i) {
    const auto list = static_cast<ChoiceList>(i);
    const ListCoding& coding = CodingOf(list);
    if (!coding.setting) continue;
    const int code = ReadSetting(image, *coding.setting);
    const auto position = static_cast<int>(RoundHalfEven(code - coding.firstCode, coding.step));
    configuration[list] = ChoiceFor(list, position, code);
  }
  const bool lock = ReadSetting(image, Setting::BusyLockOn) != 0;
  const bool priority = ReadSetting(image, Setting::PriorityOn) != 0;
  configuration[ChoiceList::SelectCall] = {IsTtsMode(image) ? TtsMode : FiveToneMode, 0};
  configuration[ChoiceList::BusyChLock] = {lock ? 1 + ReadSetting(image, Setting::BusyLockKind) : ListOff, 0};
  configuration[ChoiceList::PriorityCh] = {priority ? 1 + ReadSetting(image, Setting::PriorityCh) : ListOff, 0};
}

std::string NumberOrNone(std::string digits) {
  return digits.empty() ? std::string(NoNumberText) : std::move(digits);
}

void DecodeNumbers(const RadioImage& image, Configuration& configuration) {
  const auto number = [&](bool used, std::span<const std::uint8_t, 8> area, Setting length) {
    return used ? NumberOrNone(UnpackDigits(area, ReadSetting(image, length))) : std::string(NoNumberText);
  };
  const int pttId = configuration[ChoiceList::PttId].position;
  configuration.connectId = number(SendsConnectId(pttId), ConnectIdDigits(image), Setting::ConnectLength);
  configuration.disconnectId = number(SendsDisconnectId(pttId), DisconnectIdDigits(image), Setting::DisconnectLength);
  configuration.emergencyAni = number(true, image.EmergencyAniBlock, Setting::AniLength);
  configuration.identityNumber = NumberOrNone(CharactersText(image.RadioIdBlock));
  configuration.firmwareVersion = NumberOrNone(CharactersText(image.FirmwareVersionBlock));
}

// Checks only the bits that distinguish the functions. The others may have any value.
int KeyPosition(const RadioImage& image, std::size_t key) {
  const std::uint8_t byte = image.KeyProgramBlock[key];
  if ((byte & KeyAssignedBit) == 0) return KeyUnassigned;
  const bool isSpecial = (byte & KeySpecialBit) != 0;
  if (key == LongB || key == LongC) {
    if ((image.KeyProgramBlock[key - 1] & KeySpecialBit) != 0) return KeyUnassigned;
    if (isSpecial) return KeyNoSelection;
  } else if (isSpecial) {
    return KeySpecial;
  }
  const int code = KeyAssignedBit | (byte & KeyCodeMask);
  const std::span<const KeyItem> items = KeyItems(key);
  const auto found =
      std::find_if(items.begin(), items.end(), [code](const KeyItem& item) { return item.code == code; });
  return found == items.end() ? KeyNoSelection : static_cast<int>(found - items.begin());
}

int DecodeKeys(const RadioImage& image, KeyProgram& keys) {
  int conflicts = 0;
  for (std::size_t key = 0; key < KeyCount; ++key) {
    const int position = KeyPosition(image, key);
    conflicts += SelectKey(keys, key, position);
    if (keys.selection[key] == position) keys.codes[key] = image.KeyProgramBlock[key];
  }
  return conflicts;
}

void DecodeTtsTable(const RadioImage& image, Configuration& configuration, char separator) {
  for (std::size_t n = 1; n <= TtsEntryCount; ++n) {
    const TtsEntry entry = IsTtsMode(image) ? ReadTtsEntry(image, n) : TtsDefaultTable[n - 1];
    for (std::size_t i = 0; i < TtsToneColumns.size(); ++i)
      configuration.Tts(n, TtsToneColumns[i]) = std::to_string(entry.tones[i]);
    for (std::size_t i = 0; i < TtsTimeColumns.size(); ++i)
      configuration.Tts(n, TtsTimeColumns[i]) = TtsTimeText(entry.times[i], separator);
  }
}

bool IsListedStandard(int standard) {
  return standard >= 1 && static_cast<std::size_t>(standard) <= FiveToneStandardTable.size();
}

} // namespace

std::string_view TextOf(const Configuration& configuration, ChoiceList list) {
  const int position = configuration[list].position;
  return position < 0 ? std::string_view() : ItemsOf(list)[static_cast<std::size_t>(position)];
}

std::string_view KeyTextOf(const Configuration& configuration, std::size_t key) {
  const KeyProgram& keys = configuration.keys;
  const bool fixed = (key == ShortA && keys.fixedShortAShown) || (key == LongA && keys.fixedLongAShown);
  return KeyItemText(key, fixed ? KeySpecial : keys.selection[key]);
}

Decoded Decode(const RadioImage& image, const FieldTexts& texts, const KeyProgram& shownKeys) {
  Decoded decoded;
  Configuration& configuration = decoded.configuration;
  configuration.lowerBandLimit = std::to_string(LowerBandLimit(image.BandBlock));
  configuration.upperBandLimit = std::to_string(UpperBandLimit(image.BandBlock));
  DecodeLists(image, configuration);
  configuration.scanSignal = ReadSetting(image, Setting::ScanSignal) != 0;
  DecodeNumbers(image, configuration);
  for (std::size_t channel = 0; channel < ChannelCount; ++channel)
    configuration.channels[channel] = TextsOfChannel(image, channel, texts);
  configuration.keys = shownKeys;
  decoded.keyConflicts = DecodeKeys(image, configuration.keys);

  const std::uint8_t standard = image.ResetTimeBlock[StandardByte];
  if (standard == 0) {
    decoded.end = DecodeEnd::DataError;
    return decoded;
  }
  configuration[ChoiceList::Standards] = ChoiceFor(ChoiceList::Standards, standard - 1, standard);
  DecodeTtsTable(image, configuration, texts.decimalSeparator);
  const std::uint8_t seconds = image.ResetTimeBlock[ResetTimeByte];
  configuration.autoResetOff = seconds == 0;
  if (!configuration.autoResetOff) configuration.autoResetTime = std::to_string(seconds);
  return decoded;
}

void SettleAfterFill(RadioImage& image) {
  std::uint8_t& standard = image.ResetTimeBlock[StandardByte];
  if (standard == 0) {
    standard = 1;
    if (!IsListedStandard(image.FiveToneStandard)) image.FiveToneStandard = 1;
    return;
  }
  image.FiveToneStandard = standard;
  if (IsTtsMode(image)) return;
  // The tones of a standard that is not in the table could not be rebuilt.
  const auto tones = image.ToneFrequencyBlock;
  const auto resetTime = image.ResetTimeBlock;
  LoadTtsDefaults(image);
  if (IsListedStandard(image.FiveToneStandard)) return;
  image.ToneFrequencyBlock = tones;
  image.ResetTimeBlock = resetTime;
}

RadioImage WithStandard(RadioImage image) {
  if (image.ResetTimeBlock[StandardByte] == 0) SettleAfterFill(image);
  return image;
}

Configuration NewConfiguration(RadioImage& image, const FieldTexts& texts, const LocalTime& now) {
  ResetToDefaults(image, now);
  Configuration configuration = Decode(image, texts).configuration;
  configuration.identityNumber = NoNumberText;
  configuration.firmwareVersion = NoNumberText;
  return configuration;
}

} // namespace mr4500x
