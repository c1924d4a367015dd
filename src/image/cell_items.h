// The texts that a channel cell can have, in the order of its list or of its clicks. FieldTexts has the texts with a
// decimal separator.
#pragma once

#include "channel_record.h"

#include <array>
#include <span>
#include <string_view>

namespace mr4500x {

inline constexpr std::array<std::string_view, 2> CombinationItems = {"AND", "OR"}, SwitchItems = {"OFF", "ON"},
                                                 PowerItems = {"Permit", "Prohibit"};
inline constexpr std::array<std::string_view, 9> TtsCallItems = {"OFF",   "TTS 1", "TTS 2", "TTS 3", "TTS 4",
                                                                 "TTS 5", "TTS 6", "TTS 7", "TTS 8"};
inline constexpr std::array<std::string_view, 3> TtsGroupItems = {"OFF", "Tone A", "Tone B"};
inline constexpr std::array<std::string_view, 5> FiveToneGroupItems = {"OFF", "5T 1", "5T 2", "5T 3", "5T 4"};

// Empty for a cell without such texts. In 5-tone mode a selective call is "OFF" or any five digits.
constexpr std::span<const std::string_view> CellItems(GridColumn column, bool ttsMode) {
  switch (column) {
  case GridColumn::Combination:
    return CombinationItems;
  case GridColumn::TailCut:
  case GridColumn::PttId:
    return SwitchItems;
  case GridColumn::HighTxPower:
    return PowerItems;
  case GridColumn::RxSelCall:
  case GridColumn::TxSelCall:
    return std::span(TtsCallItems).first(ttsMode ? TtsCallItems.size() : 1);
  case GridColumn::GroupCall:
    return ttsMode ? std::span<const std::string_view>(TtsGroupItems) : FiveToneGroupItems;
  default:
    return {};
  }
}

} // namespace mr4500x
