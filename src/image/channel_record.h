// One channel's 16-byte record and its fields as the texts of the channel grid and the report. The tone fields are in
// tone_codes.h, selective call and group call in signaling.h.
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

#include "radio_image.h"
#include "tone_codes.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

// In the order of the channel grid.
// clang-format off
enum class GridColumn : std::uint8_t {
    ChannelNo, RxFreq, RxStep, RxTone, RxSelCall, Combination, TailCut, TxFreq, TxStep, TxTone, TxSelCall,
    HighTxPower, PttId, BandWidth, GroupCall,
};
// clang-format on
inline constexpr std::size_t GridColumnCount = 15;

// What the editor shows of one channel. The ChannelNo cell stays empty: the grid fills it.
struct ChannelTexts {
  bool noCh = false; // "No CH" checked: the channel is not in use
  bool noTx = false; // "No Tx" checked: transmit is inhibited
  std::array<std::string, GridColumnCount> cells;

  std::string& operator[](GridColumn column) { return cells[static_cast<std::size_t>(column)]; }
  const std::string& operator[](GridColumn column) const { return cells[static_cast<std::size_t>(column)]; }
  bool operator==(const ChannelTexts&) const = default;
};

// "2.5" for code 0, "6.25" for code 1. Codes 2 and 3, which only a radio can contain, count as 0 kHz and read as
// "6.25".
[[nodiscard]] std::string StepText(int stepCode, const FieldTexts& texts);
// 0 or 1; nullopt for any other text.
[[nodiscard]] std::optional<int> StepCode(std::string_view text, const FieldTexts& texts);

// The step in tens of Hz: 250 or 625, or 0 for codes 2 and 3.
[[nodiscard]] int StepUnit(int stepCode);

// Sets all channels to the default record: only channel 1 in use, the lower limit of BandBlock with 6.25 kHz steps,
// transmit allowed.
void ResetChannels(RadioImage& image);

// `channel` is 0 to 15. Here and below, the image's SelcallMode decides how selective calls are read.
[[nodiscard]] ChannelTexts TextsOfChannel(const RadioImage& image, std::size_t channel, const FieldTexts& texts);

// Rebuilds the channel's record and its codes in SelCallCodeBlock, and adds a channel in use to ChannelsInUse. A text
// that a field cannot hold leaves that field unchanged.
void RecordFromTexts(RadioImage& image, std::size_t channel, const ChannelTexts& channelTexts, const FieldTexts& texts);

} // namespace mr4500x
