// The drop-down lists: their items and the stored code of each item. The configuration holds a list's position, from 0.
#pragma once

#include "function_settings.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace mr4500x {

// The lists with the names of their controls. There are no controls cboScan(2) and cboKey(6) to cboKey(9).
enum class ChoiceList : std::uint8_t {
  SelectCall,     // cboRadio(0)
  BeepTone,       // cboRadio(1)
  BatterySave,    // cboRadio(2)
  BusyChLock,     // cboRadio(3)
  TxTot,          // cboRadio(4)
  SquelchLevel,   // cboRadio(5)
  Compander,      // cboRadio(6)
  DigitTime,      // cboRadio(7)
  InterDigitTime, // cboRadio(8)
  PttId,          // cboRadio(9)
  VoxSensivity,   // cboRadio(10), in the product's spelling
  BeepEnable,     // cboRadio(11)
  ScanMode,       // cboScan(0)
  ToScanDelay,    // cboScan(1)
  PriorityCh,     // cboScan(3)
  LookBack,       // cboScan(4)
  RestoreTime,    // cboScan(5)
  RevertCh,       // cboScan(6)
  ManualTune,     // cboTuneSwitch
  Standards,      // cboFive
};
inline constexpr std::size_t ChoiceListCount = 20;

// Position 0 is stored as `firstCode`, and each further position as `step` more. A list without a setting has its own
// rule in decode.cpp and encode.cpp.
struct ListCoding {
  std::optional<Setting> setting;
  int firstCode = 0;
  int step = 1;
};

[[nodiscard]] const ListCoding& CodingOf(ChoiceList list);
// Times have a decimal point in every locale.
[[nodiscard]] std::span<const std::string_view> ItemsOf(ChoiceList list);

inline constexpr int TtsMode = 0;      // position of SelectCall
inline constexpr int FiveToneMode = 1; // position of SelectCall
inline constexpr int ListOff = 0;      // position of BusyChLock, PriorityCh and PttId

// The PttId positions are two bits.
constexpr bool SendsConnectId(int pttId) {
  return (pttId & 1) != 0;
}
constexpr bool SendsDisconnectId(int pttId) {
  return (pttId & 2) != 0;
}

// The programmable keys, in the order of KeyProgramBlock.
enum Key : std::size_t { ShortA, LongA, ShortB, LongB, ShortC, LongC };

// A function of a key and its byte in KeyProgramBlock.
struct KeyItem {
  std::uint8_t code;
  std::string_view text;
};
[[nodiscard]] std::span<const KeyItem> KeyItems(std::size_t key);
// "" for no selection.
[[nodiscard]] std::string_view KeyItemText(std::size_t key, int position);

} // namespace mr4500x
