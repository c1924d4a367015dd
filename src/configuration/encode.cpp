// Collecting the image from the editor's values, in the order of the collect.
#include "configuration.h"

#include "decimal.h"
#include "field_rules.h"
#include "function_settings.h"
#include "setting_lists.h"

#include <algorithm>

namespace mr4500x {
namespace {

void EncodeList(const Configuration& values, const SettingList& row, RadioImage& image) {
  const Choice& choice = values[row.list];
  WriteSetting(image, row.setting, choice.position < 0 ? choice.unlisted : row.firstCode + choice.position * row.step);
}

void EncodeBand(const Configuration& values, RadioImage& image) {
  if (const auto lower = ParseWhole(values.lowerBandLimit)) SetLowerBandLimit(image.BandBlock, *lower);
  if (const auto upper = ParseWhole(values.upperBandLimit)) SetUpperBandLimit(image.BandBlock, *upper);
  image.BandBlock[4] = 0x00;
  image.BandBlock[5] = 0x30;
}

void EncodeNumber(const std::string& text, Setting lengthSetting, std::span<std::uint8_t, 8> area, RadioImage& image) {
  const auto length = std::min(text.size(), static_cast<std::size_t>(MostDigits));
  WriteSetting(image, lengthSetting, text == NoNumberText ? 0 : static_cast<int>(length));
  // The placeholder's dashes would overwrite the digits with zeros; without a length nobody reads them.
  if (text != NoNumberText) PackDigits(text, area);
}

void EncodeGlobalSettings(const Configuration& values, RadioImage& image) {
  auto& settings = image.RadioSettingsBlock;
  settings[0] = 0;
  settings[14] = 0;
  settings[1] = 0;
  for (const SettingList& row : GlobalSettingLists) {
    EncodeList(values, row, image);
  }
  const int lock = values[ChoiceList::BusyChLock].position;
  WriteSetting(image, Setting::BusyLockOn, lock > 0 ? 1 : 0);
  WriteSetting(image, Setting::BusyLockKind, lock > 0 ? lock - 1 : 0);
  WriteSetting(image, Setting::ScanSignal, values.scanSignal ? 1 : 0);

  WriteSetting(image, Setting::ConnectLength, 0);
  WriteSetting(image, Setting::DisconnectLength, 0);
  const int pttId = ReadSetting(image, Setting::PttId); // bit 0: Connect ID in use, bit 1: Disconnect ID
  const std::span pttIds(image.PttIdBlock);
  if ((pttId & 1) != 0) EncodeNumber(values.connectId, Setting::ConnectLength, pttIds.first<8>(), image);
  if ((pttId & 2) != 0) EncodeNumber(values.disconnectId, Setting::DisconnectLength, pttIds.last<8>(), image);
  EncodeNumber(values.emergencyAni, Setting::AniLength, image.EmergencyAniBlock, image);
}

void EncodeScan(const Configuration& values, RadioImage& image) {
  image.RadioSettingsBlock[3] = 0;
  for (const SettingList& row : ScanLists) {
    EncodeList(values, row, image);
  }
  const int priority = values[ChoiceList::PriorityCh].position;
  WriteSetting(image, Setting::PriorityOn, priority > 0 ? 1 : 0);
  WriteSetting(image, Setting::PriorityCh, priority > 0 ? priority - 1 : 0);
}

// The byte of a key's own list, the emergency pair and the long press under "Monitor" apart.
std::uint8_t KeyByte(const Configuration& values, std::size_t key, std::uint8_t special) {
  const int position = values.keys.selection[key];
  if (position == KeyNoSelection) return values.keyCodes[key];
  if (position == KeyUnassigned) return 0x00;
  const bool hasSpecial = key != LongB && key != LongC;
  if (hasSpecial && position == KeySpecial) return special;
  return static_cast<std::uint8_t>(KeyAssignedBit | (position + KeyCodeOffset(key)));
}

void EncodeKeys(Configuration& values, RadioImage& image) {
  auto& keys = image.KeyProgramBlock;
  keys[ShortA] = KeyByte(values, ShortA, EmergencyAlertKey);
  keys[LongA] = KeyByte(values, LongA, CancelEmergencyAlertKey);
  // Either half of the emergency pair brings the other. With both shown no key of A counts for Talk Around, so that
  // the rules have no conflict to report.
  if (keys[ShortA] == EmergencyAlertKey && keys[LongA] != CancelEmergencyAlertKey) {
    keys[LongA] = CancelEmergencyAlertKey;
    static_cast<void>(SelectKey(values.keys, LongA, KeySpecial));
  } else if (keys[LongA] == CancelEmergencyAlertKey && keys[ShortA] != EmergencyAlertKey) {
    keys[ShortA] = EmergencyAlertKey;
    static_cast<void>(SelectKey(values.keys, ShortA, KeySpecial));
  }
  for (const std::size_t shortKey : {ShortB, ShortC}) {
    const std::size_t longKey = shortKey + 1;
    keys[shortKey] = KeyByte(values, shortKey, MonitorKey);
    keys[longKey] = keys[shortKey] == MonitorKey ? std::uint8_t{0x00} : KeyByte(values, longKey, 0x00);
  }
}

void EncodeSignaling(Configuration& values, RadioImage& image, char separator) {
  for (std::size_t n = 1; n <= TtsEntryCount; ++n) {
    const TtsEntry old = ReadTtsEntry(image, n);
    const auto hertz = [&](TtsColumn column, std::uint16_t kept) {
      return static_cast<std::uint16_t>(ParseWhole(values.Tts(n, column)).value_or(kept));
    };
    const auto time = [&](TtsColumn column, std::uint8_t kept) {
      return TtsTime(values.Tts(n, column), separator).value_or(kept);
    };
    if (IsTtsMode(image)) {
      WriteTtsFrequencies(image, n, hertz(TtsColumn::ToneAFreq, old.toneA), hertz(TtsColumn::ToneBFreq, old.toneB));
    }
    WriteTtsTimes(image, n,
                  {0, 0, time(TtsColumn::ToneADur, old.toneADuration), time(TtsColumn::ToneBDur, old.toneBDuration),
                   time(TtsColumn::GapTime, old.gap), time(TtsColumn::GroupCallDur, old.groupCallDuration)});
  }
  const int selected = values[ChoiceList::Standards].position;
  if (!IsTtsMode(image) && selected >= 0) {
    values.fiveToneStandard = static_cast<std::int16_t>(selected + 1);
    ApplyStandard(image, values.fiveToneStandard);
  }
  image.FiveToneStandard = values.fiveToneStandard;
  image.ResetTimeBlock[StandardByte] = static_cast<std::uint8_t>(values.fiveToneStandard);
}

} // namespace

void Encode(Configuration& values, RadioImage& image, const FieldTexts& texts) {
  EncodeBand(values, image);
  EncodeList(values, ManualTuneList, image);
  WriteSetting(image, Setting::SelcallMode, values[ChoiceList::SelectCall].position == 0 ? 1 : 0);
  EncodeGlobalSettings(values, image);
  WriteSetting(image, Setting::ChannelsInUse, 0);
  for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
    RecordFromTexts(image, channel, values.channels[channel], texts);
  }
  image.RadioIdBlock = {};
  EncodeScan(values, image);
  EncodeKeys(values, image);
  if (values.autoResetOff) {
    image.ResetTimeBlock[0] = 0;
  } else if (const auto seconds = ParseWhole(values.autoResetTime)) {
    image.ResetTimeBlock[0] = static_cast<std::uint8_t>(std::min(*seconds, 255));
  }
  EncodeSignaling(values, image, texts.decimalSeparator);
}

} // namespace mr4500x
