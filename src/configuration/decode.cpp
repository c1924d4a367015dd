// Filling the editor's values from the image, in the order of the fill.
#include "configuration.h"

#include "decimal.h"
#include "field_rules.h"
#include "function_settings.h"
#include "setting_lists.h"

namespace mr4500x {
namespace {

Choice ChoiceFor(ChoiceList list, int position, int code) {
  const bool listed = position >= 0 && static_cast<std::size_t>(position) < ItemsOf(list).size();
  return {listed ? position : -1, static_cast<std::uint8_t>(listed ? 0 : code)};
}

void DecodeList(const RadioImage& image, const SettingList& row, Configuration& values) {
  const int code = ReadSetting(image, row.setting);
  const auto position = static_cast<int>(RoundHalfEven(code - row.firstCode, row.step));
  values[row.list] = ChoiceFor(row.list, position, code);
}

std::string NumberOrNone(std::string digits) {
  return digits.empty() ? std::string(NoNumberText) : std::move(digits);
}

std::span<const std::uint8_t, 8> ConnectArea(const RadioImage& image) {
  return std::span(image.PttIdBlock).first<8>();
}
std::span<const std::uint8_t, 8> DisconnectArea(const RadioImage& image) {
  return std::span(image.PttIdBlock).last<8>();
}

void DecodeGlobalSettings(const RadioImage& image, Configuration& values) {
  for (const SettingList& row : GlobalSettingLists) {
    DecodeList(image, row, values);
  }
  const bool lock = ReadSetting(image, Setting::BusyLockOn) != 0;
  values[ChoiceList::BusyChLock] = {lock ? 1 + ReadSetting(image, Setting::BusyLockKind) : 0, 0};
  values.scanSignal = ReadSetting(image, Setting::ScanSignal) != 0;

  const int pttId = ReadSetting(image, Setting::PttId); // bit 0: Connect ID in use, bit 1: Disconnect ID
  values.connectId = NumberOrNone(
      (pttId & 1) != 0 ? UnpackDigits(ConnectArea(image), ReadSetting(image, Setting::ConnectLength)) : "");
  values.disconnectId = NumberOrNone(
      (pttId & 2) != 0 ? UnpackDigits(DisconnectArea(image), ReadSetting(image, Setting::DisconnectLength)) : "");
  values.emergencyAni = NumberOrNone(UnpackDigits(image.EmergencyAniBlock, ReadSetting(image, Setting::AniLength)));
}

void DecodeScan(const RadioImage& image, Configuration& values) {
  for (const SettingList& row : ScanLists) {
    DecodeList(image, row, values);
  }
  const bool priority = ReadSetting(image, Setting::PriorityOn) != 0;
  values[ChoiceList::PriorityCh] = {priority ? ReadSetting(image, Setting::PriorityCh) + 1 : 0, 0};
}

// The list position of a key byte, no selection where its list has no item for it.
int KeyPosition(const RadioImage& image, std::size_t key) {
  const std::uint8_t byte = image.KeyProgramBlock[key];
  if ((byte & KeyAssignedBit) == 0) return KeyUnassigned;
  if (key == LongB || key == LongC) {
    if ((image.KeyProgramBlock[key - 1] & KeySpecialBit) != 0) return KeyUnassigned;
    if ((byte & KeySpecialBit) != 0) return KeyNoSelection;
  } else if ((byte & KeySpecialBit) != 0) {
    return KeySpecial;
  }
  const int code = byte & KeyCodeMask;
  constexpr int firstCode = 3; // "Scan"
  const int position = code - KeyCodeOffset(key);
  const bool listed = code >= firstCode && static_cast<std::size_t>(position) < KeyItems(key).size();
  return listed ? position : KeyNoSelection;
}

bool DecodeKeys(const RadioImage& image, Configuration& values) {
  values.keys = {}; // the keys shown before must not meet the new ones
  bool conflict = false;
  for (std::size_t key = 0; key < KeyCount; ++key) {
    values.keyCodes[key] = image.KeyProgramBlock[key];
    conflict |= SelectKey(values.keys, key, KeyPosition(image, key));
  }
  return conflict;
}

void FillTtsGrid(const RadioImage& image, Configuration& values, char separator) {
  for (std::size_t n = 1; n <= TtsEntryCount; ++n) {
    const TtsEntry entry = ReadTtsEntry(image, n);
    values.Tts(n, TtsColumn::ToneAFreq) = std::to_string(entry.toneA);
    values.Tts(n, TtsColumn::ToneADur) = TtsTimeText(entry.toneADuration, separator);
    values.Tts(n, TtsColumn::ToneBFreq) = std::to_string(entry.toneB);
    values.Tts(n, TtsColumn::ToneBDur) = TtsTimeText(entry.toneBDuration, separator);
    values.Tts(n, TtsColumn::GapTime) = TtsTimeText(entry.gap, separator);
    values.Tts(n, TtsColumn::GroupCallDur) = TtsTimeText(entry.groupCallDuration, separator);
  }
}

// The standard, the TTS table and the reset time; the check of the standard can end the fill before them.
DecodeEnd DecodeSignaling(RadioImage& image, Configuration& values, char separator) {
  std::uint8_t& stored = image.ResetTimeBlock[StandardByte];
  if (stored == 0) {
    stored = 1;
    return DecodeEnd::DataError;
  }
  const std::uint8_t standard = stored;
  values.fiveToneStandard = standard;
  values[ChoiceList::Standards] = ChoiceFor(ChoiceList::Standards, standard - 1, standard);
  if (!IsTtsMode(image)) {
    const RadioImage before = image;
    LoadTtsDefaults(image);
    FillTtsGrid(image, values, separator);
    if (values[ChoiceList::Standards].position < 0) {
      image.ToneFrequencyBlock = before.ToneFrequencyBlock; // nothing could rebuild these tones
      image.ResetTimeBlock = before.ResetTimeBlock;
    }
  } else {
    FillTtsGrid(image, values, separator);
  }
  values.autoResetOff = image.ResetTimeBlock[0] == 0;
  if (!values.autoResetOff) values.autoResetTime = std::to_string(image.ResetTimeBlock[0]);
  return DecodeEnd::Complete;
}

} // namespace

std::string_view TextOf(const Configuration& values, ChoiceList list) {
  return ItemAt(ItemsOf(list), values[list].position);
}

std::string_view KeyTextOf(const Configuration& values, std::size_t key) {
  if (key == ShortA && values.keys.fixedShortAShown) return EmergencyAlertItem;
  if (key == LongA && values.keys.fixedLongAShown) return CancelEmergencyAlertItem;
  return ItemAt(KeyItems(key), values.keys.selection[key]);
}

DecodeResult Decode(RadioImage& image, Configuration& values, const FieldTexts& texts) {
  values.lowerBandLimit = std::to_string(LowerBandLimit(image.BandBlock));
  values.upperBandLimit = std::to_string(UpperBandLimit(image.BandBlock));
  DecodeList(image, ManualTuneList, values);
  values[ChoiceList::SelectCall] = {IsTtsMode(image) ? 0 : 1, 0};
  DecodeGlobalSettings(image, values);
  for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
    values.channels[channel] = TextsOfChannel(image, channel, texts);
  }
  values.identityNumber = NumberOrNone(CharactersText(image.RadioIdBlock)); // no file holds them
  values.firmwareVersion = NumberOrNone(CharactersText(image.FirmwareVersionBlock));
  DecodeScan(image, values);
  const bool conflict = DecodeKeys(image, values);
  return {DecodeSignaling(image, values, texts.decimalSeparator), conflict};
}

void ResetEditor(RadioImage& image, Configuration& values, const FieldTexts& texts, const LocalTime& now) {
  ResetToDefaults(image, now);
  // The defaults hold a valid standard and no assigned key, so the fill has nothing to report.
  static_cast<void>(Decode(image, values, texts));
  values.identityNumber = NoNumberText;
  values.firmwareVersion = NoNumberText;
}

} // namespace mr4500x
