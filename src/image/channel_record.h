// One channel's 16-byte record: its layout, and its fields as the texts that the channel grid and the report show.
// Tone fields are tone_codes', selective-call and group-call fields are signaling's.
//
//   byte  content
//   0     RxFlags     7 in use | 6 DCS normal | 5 CTCSS | 4 tone on | 3 kept | 2 selective call on | 1-0 StepCode
//   1-3   receive FrequencyCount, low byte first (bits 0-15 and, as written, 16-17)
//   4-5   receive tone code bytes
//   6     TxFlags     7 transmit allowed, the rest as RxFlags for transmit
//   7-9   transmit FrequencyCount
//   10-11 transmit tone code bytes
//   12    OptionFlags 7 high power | 6 tail cut | 5 OR | 4 PTT ID | 3 25 kHz | 2-0 kept
//   13-15 receive TTS entry, transmit TTS entry, TTS group call
#pragma once

#include "field_texts.h"
#include "radio_image.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

using ChannelRecord = std::array<std::uint8_t, 16>;

// The columns of the channel grid, in its order.
enum class GridColumn : std::uint8_t {
  ChannelNo,
  RxFreq,
  RxStep,
  RxTone,
  RxSelCall,
  Combination,
  TailCut,
  TxFreq,
  TxStep,
  TxTone,
  TxSelCall,
  HighTxPower,
  PttId,
  BandWidth,
  GroupCall,
};
inline constexpr std::size_t GridColumnCount = 15;

// What the editor shows of one channel. The ChannelNo cell is the grid's own and stays empty here.
struct ChannelTexts {
  bool noCh = false; // "No CH" checked: the channel is not in use
  bool noTx = false; // "No Tx" checked: transmit is inhibited
  std::array<std::string, GridColumnCount> cells;

  std::string& operator[](GridColumn column) { return cells[static_cast<std::size_t>(column)]; }
  const std::string& operator[](GridColumn column) const { return cells[static_cast<std::size_t>(column)]; }
  bool operator==(const ChannelTexts&) const = default;
};

// StepCode 0 is 2.5 kHz, 1 is 6.25 kHz. Codes 2 and 3 can come from a radio: a step of 0 kHz with the text "6.25".
[[nodiscard]] std::string StepText(int stepCode, char decimalSeparator);
// 0 or 1; nothing for another text.
[[nodiscard]] std::optional<int> StepCode(std::string_view text, char decimalSeparator);

// The step unit in tens of Hz: 250 or 625, and 0 for codes 2 and 3.
[[nodiscard]] int StepUnit(int stepCode);

// The frequency of a count of step units in MHz, "000.00000".
[[nodiscard]] std::string FrequencyText(std::uint32_t count, int stepCode, char decimalSeparator);

// The record of a channel at the lower band limit (whole MHz): not in use, 6.25 kHz steps, transmit allowed.
[[nodiscard]] ChannelRecord DefaultChannelRecord(int lowerLimit);

// All texts of channel 0 to 15, under the image's own SelcallMode.
[[nodiscard]] ChannelTexts TextsOfChannel(const RadioImage& image, std::size_t channel, const FieldTexts& texts);

// Rebuilds the record of a channel (and its share of SelCallCodeBlock) from its texts, under the image's own
// SelcallMode, and counts the channel in ChannelsInUse. A text that no field can have leaves the field as it was.
void RecordFromTexts(RadioImage& image, std::size_t channel, const ChannelTexts& channelTexts, const FieldTexts& texts);

} // namespace mr4500x
