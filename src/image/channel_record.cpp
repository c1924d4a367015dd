#include "channel_record.h"

#include "block_field.h"
#include "cell_items.h"
#include "decimal.h"
#include "function_settings.h"
#include "signaling.h"
#include "tone_codes.h"

#include <algorithm>

namespace mr4500x {
namespace {

using Record = std::span<std::uint8_t, 16>;
using ConstRecord = std::span<const std::uint8_t, 16>;

constexpr std::uint8_t InUseBit = 0x80; // in RxFlags; in TxFlags it means transmit allowed
constexpr std::uint8_t StepCodeMask = 0x03;
constexpr std::uint8_t KeptFlags = 0x7C; // bits of RxFlags and TxFlags that a collect keeps
constexpr std::size_t OptionFlags = 12;

// The bytes of one side of the record and the cells that show them.
struct Side {
  std::size_t flags, count, toneCode;
  Direction direction;
  GridColumn freq, step, tone, selCall;
};
constexpr Side Receive = {
    0, 1, 4, Direction::Rx, GridColumn::RxFreq, GridColumn::RxStep, GridColumn::RxTone, GridColumn::RxSelCall};
constexpr Side Transmit = {
    6, 7, 10, Direction::Tx, GridColumn::TxFreq, GridColumn::TxStep, GridColumn::TxTone, GridColumn::TxSelCall};

// clang-format off
struct OptionField { GridColumn column; BlockField field; std::span<const std::string_view> items; std::size_t set; };
constexpr std::array<OptionField, 4> OptionFields = {{
    {GridColumn::PttId,       {OptionFlags, 0x10, 4}, SwitchItems,      1},
    {GridColumn::Combination, {OptionFlags, 0x20, 5}, CombinationItems, 1},
    {GridColumn::TailCut,     {OptionFlags, 0x40, 6}, SwitchItems,      1},
    {GridColumn::HighTxPower, {OptionFlags, 0x80, 7}, PowerItems,       0},
}};
constexpr BlockField WideBandField =                  {OptionFlags, 0x08, 3};
// clang-format on

std::uint32_t ReadCount(ConstRecord record, std::size_t at) {
  return record[at] + (std::uint32_t{record[at + 1]} << 8) + (std::uint32_t{record[at + 2]} << 16);
}

void WriteCount(Record record, std::size_t at, std::uint32_t count) {
  record[at] = static_cast<std::uint8_t>(count & 0xFF);
  record[at + 1] = static_cast<std::uint8_t>((count >> 8) & 0xFF);
  record[at + 2] = static_cast<std::uint8_t>((count >> 16) & 0x03); // writes 18 bits, though 24 are read
}

void ReadSide(const RadioImage& image, std::size_t channel, const Side& side, const FieldTexts& texts,
              ChannelTexts& shown) {
  const ConstRecord record = image.ChannelBlock.Row(channel);
  const std::uint8_t flags = record[side.flags];
  const int stepCode = flags & StepCodeMask;
  const std::int64_t frequency = std::int64_t{ReadCount(record, side.count)} * StepUnit(stepCode);
  shown[side.freq] = FormatDecimal(frequency, 3, 5, texts.decimalSeparator);
  shown[side.step] = StepText(stepCode, texts);
  shown[side.tone] = ToneText({flags, record[side.toneCode], record[side.toneCode + 1]}, texts);
  shown[side.selCall] = SelCallText(image, channel, side.direction);
}

void CollectSide(RadioImage& image, std::size_t channel, const Side& side, bool marked, const ChannelTexts& shown,
                 const FieldTexts& texts) {
  const Record record = image.ChannelBlock.Row(channel);
  std::uint8_t& flags = record[side.flags];
  const int stepCode = StepCode(shown[side.step], texts).value_or(flags & StepCodeMask);
  flags = static_cast<std::uint8_t>((flags & KeptFlags) | (marked ? InUseBit : 0) | stepCode);
  const std::optional<Decimal> megahertz = ParseDecimal(shown[side.freq], texts.decimalSeparator);
  if (megahertz && megahertz->digits >= 0 && StepUnit(stepCode) > 0) {
    const std::int64_t count = CountOfUnits(*megahertz, 5, StepUnit(stepCode));
    WriteCount(record, side.count, static_cast<std::uint32_t>(count & 0xFFFFFFFF));
  }
  ToneField tone = {flags, record[side.toneCode], record[side.toneCode + 1]};
  ApplyToneText(tone, shown[side.tone], texts);
  flags = tone.flags;
  record[side.toneCode] = tone.codeA;
  record[side.toneCode + 1] = tone.codeB;
  ApplySelCallText(image, channel, side.direction, shown[side.selCall]);
}

void CollectOption(Record record, BlockField field, std::string_view text, std::string_view set,
                   std::string_view clear) {
  if (text == set || text == clear) WriteField(record, field, text == set ? 1 : 0);
}

} // namespace

int StepUnit(int stepCode) {
  constexpr std::array<int, 4> units = {250, 625, 0, 0};
  return units[static_cast<std::size_t>(stepCode & StepCodeMask)];
}

std::string StepText(int stepCode, const FieldTexts& texts) {
  return texts.StepTexts[stepCode == 0 ? 0 : 1];
}

std::optional<int> StepCode(std::string_view text, const FieldTexts& texts) {
  for (const int code : {0, 1})
    if (text == StepText(code, texts)) return code;
  return std::nullopt;
}

void ResetChannels(RadioImage& image) {
  const std::int64_t lowerLimit = LowerBandLimit(image.BandBlock);
  const auto count = static_cast<std::uint32_t>(RoundHalfEven(lowerLimit * 100'000, StepUnit(1)));
  for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
    const Record record = image.ChannelBlock.Row(channel);
    constexpr std::array<std::uint8_t, 16> unused = {0x01, 0, 0, 0, 0, 0, 0x81, 0, 0, 0, 0, 0, 0xA8};
    std::ranges::copy(unused, record.begin());
    WriteCount(record, Receive.count, count);
    WriteCount(record, Transmit.count, count);
  }
  image.ChannelBlock(0, Receive.flags) |= InUseBit;
}

ChannelTexts TextsOfChannel(const RadioImage& image, std::size_t channel, const FieldTexts& texts) {
  const ConstRecord record = image.ChannelBlock.Row(channel);
  ChannelTexts shown;
  shown.noCh = (record[Receive.flags] & InUseBit) == 0;
  shown.noTx = (record[Transmit.flags] & InUseBit) == 0;
  ReadSide(image, channel, Receive, texts, shown);
  ReadSide(image, channel, Transmit, texts, shown);
  for (const OptionField& option : OptionFields)
    shown[option.column] = option.items[ReadField(record, option.field) != 0 ? option.set : 1 - option.set];
  shown[GridColumn::BandWidth] = ReadField(record, WideBandField) != 0 ? texts.WideBandText : texts.NarrowBandText;
  shown[GridColumn::GroupCall] = GroupCallText(image, channel);
  return shown;
}

void RecordFromTexts(RadioImage& image, std::size_t channel, const ChannelTexts& shown, const FieldTexts& texts) {
  const Record record = image.ChannelBlock.Row(channel);
  if (!shown.noCh) ++image.RadioSettingsBlock[ChannelsInUseByte];
  CollectSide(image, channel, Receive, !shown.noCh, shown, texts);
  CollectSide(image, channel, Transmit, !shown.noTx, shown, texts);
  CollectOption(record, WideBandField, shown[GridColumn::BandWidth], texts.WideBandText, texts.NarrowBandText);
  for (const OptionField& option : OptionFields)
    CollectOption(record, option.field, shown[option.column], option.items[option.set], option.items[1 - option.set]);
  ApplyGroupCallText(image, channel, shown[GridColumn::GroupCall]);
}

} // namespace mr4500x
