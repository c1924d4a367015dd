#include "configuration.h"

#include "decimal.h"

#include <algorithm>

namespace mr4500x {
namespace {

void EncodeBand(const Configuration& configuration, RadioImage& image) {
  if (const auto lower = ParseWhole(configuration.lowerBandLimit)) SetLowerBandLimit(image.BandBlock, *lower);
  if (const auto upper = ParseWhole(configuration.upperBandLimit)) SetUpperBandLimit(image.BandBlock, *upper);
  SetSeriesMark(image.BandBlock);
}

void EncodeLists(const Configuration& configuration, RadioImage& image) {
  for (const std::size_t byte : RebuiltSettingsBytes)
    image.RadioSettingsBlock[byte] = 0;
  for (std::size_t i = 0; i < ChoiceListCount; ++i) {
    const auto list = static_cast<ChoiceList>(i);
    const ListCoding& coding = CodingOf(list);
    if (!coding.setting) continue;
    const Choice& choice = configuration[list];
    WriteSetting(image, *coding.setting,
                 choice.position < 0 ? choice.unlisted : coding.firstCode + choice.position * coding.step);
  }
  const int lock = configuration[ChoiceList::BusyChLock].position;
  const int priority = configuration[ChoiceList::PriorityCh].position;
  WriteSetting(image, Setting::SelcallMode, IsTtsMode(configuration) ? 1 : 0);
  WriteSetting(image, Setting::BusyLockOn, lock > ListOff ? 1 : 0);
  WriteSetting(image, Setting::BusyLockKind, lock > ListOff ? lock - 1 : 0);
  WriteSetting(image, Setting::PriorityOn, priority > ListOff ? 1 : 0);
  WriteSetting(image, Setting::PriorityCh, priority > ListOff ? priority - 1 : 0);
  WriteSetting(image, Setting::ScanSignal, configuration.scanSignal ? 1 : 0);
}

void EncodeNumber(const std::string& text, Setting lengthSetting, std::span<std::uint8_t, 8> area, RadioImage& image) {
  const auto length = std::min(text.size(), static_cast<std::size_t>(MostDigits));
  WriteSetting(image, lengthSetting, text == NoNumberText ? 0 : static_cast<int>(length));
  // The dashes of the placeholder would overwrite the digits with zeros. With length 0 the old digits are never read.
  if (text != NoNumberText) PackDigits(text, area);
}

void EncodeNumbers(const Configuration& configuration, RadioImage& image) {
  WriteSetting(image, Setting::ConnectLength, 0);
  WriteSetting(image, Setting::DisconnectLength, 0);
  const int pttId = ReadSetting(image, Setting::PttId);
  if (SendsConnectId(pttId))
    EncodeNumber(configuration.connectId, Setting::ConnectLength, ConnectIdDigits(image), image);
  if (SendsDisconnectId(pttId))
    EncodeNumber(configuration.disconnectId, Setting::DisconnectLength, DisconnectIdDigits(image), image);
  EncodeNumber(configuration.emergencyAni, Setting::AniLength, image.EmergencyAniBlock, image);
}

std::uint8_t KeyByte(const Configuration& configuration, std::size_t key) {
  const int position = configuration.keys.selection[key];
  if (position == KeyNoSelection) return configuration.keys.codes[key];
  return KeyItems(key)[static_cast<std::size_t>(position)].code;
}

void EncodeKeys(const Configuration& configuration, RadioImage& image) {
  auto& keys = image.KeyProgramBlock;
  for (std::size_t key = 0; key < KeyCount; ++key)
    keys[key] = LongPressEnabled(configuration.keys, key) ? KeyByte(configuration, key) : KeyItems(key)[0].code;
  if (keys[ShortA] == EmergencyAlertKey || keys[LongA] == CancelEmergencyAlertKey) {
    keys[ShortA] = EmergencyAlertKey;
    keys[LongA] = CancelEmergencyAlertKey;
  }
}

// In 5-tone mode the selected standard becomes FiveToneStandard. Otherwise the image keeps its own.
void EncodeStandard(const Configuration& configuration, RadioImage& image) {
  const Choice& selected = configuration[ChoiceList::Standards];
  if (!IsTtsMode(configuration) && selected.position >= 0) {
    image.FiveToneStandard = static_cast<std::int16_t>(selected.position + 1);
    ApplyStandard(image, image.FiveToneStandard);
  } else if (!IsTtsMode(configuration) && selected.unlisted != 0) {
    image.FiveToneStandard = selected.unlisted;
  }
  image.ResetTimeBlock[StandardByte] = static_cast<std::uint8_t>(image.FiveToneStandard);
}

void EncodeSignaling(const Configuration& configuration, RadioImage& image, char separator) {
  for (std::size_t n = 1; n <= TtsEntryCount; ++n) {
    TtsEntry entry = ReadTtsEntry(image, n);
    for (std::size_t i = 0; IsTtsMode(configuration) && i < TtsToneColumns.size(); ++i)
      if (const auto hertz = ParseWhole(configuration.Tts(n, TtsToneColumns[i])))
        entry.tones[i] = static_cast<std::uint16_t>(*hertz);
    for (std::size_t i = 0; i < TtsTimeColumns.size(); ++i)
      if (const auto time = TtsTime(configuration.Tts(n, TtsTimeColumns[i]), separator)) entry.times[i] = *time;
    WriteTtsEntry(image, n, entry);
  }
  EncodeStandard(configuration, image);
}

} // namespace

void Encode(const Configuration& configuration, RadioImage& image, const FieldTexts& texts) {
  EncodeBand(configuration, image);
  EncodeLists(configuration, image);
  EncodeNumbers(configuration, image);
  WriteSetting(image, Setting::ChannelsInUse, 0);
  for (std::size_t channel = 0; channel < ChannelCount; ++channel)
    RecordFromTexts(image, channel, configuration.channels[channel], texts);
  image.RadioIdBlock = {};
  EncodeKeys(configuration, image);
  if (configuration.autoResetOff)
    image.ResetTimeBlock[ResetTimeByte] = 0;
  else if (const auto seconds = ParseWhole(configuration.autoResetTime))
    image.ResetTimeBlock[ResetTimeByte] = static_cast<std::uint8_t>(std::min(*seconds, 255));
  EncodeSignaling(configuration, image, texts.decimalSeparator);
}

} // namespace mr4500x
