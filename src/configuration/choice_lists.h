// The drop-down lists: their items, and the stored code that each item stands for. A list's position, counted from 0,
// is what the configuration holds; the texts are what the user sees.
#pragma once

#include "function_settings.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace mr4500x {

// The lists by the names of their controls. cboScan(2) and cboKey(6) to (9) do not exist.
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
  VoxSensivity,   // cboRadio(10)
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

// How a list's positions are stored: position 0 as `firstCode`, each further one `step` more. Without a setting the
// list has a rule of its own in decode.cpp and encode.cpp.
struct ListCoding {
  std::optional<Setting> setting;
  int firstCode = 0;
  int step = 1;
};

[[nodiscard]] const ListCoding& CodingOf(ChoiceList list);
// Times have a decimal point whatever the separator of the frequencies.
[[nodiscard]] std::span<const std::string_view> ItemsOf(ChoiceList list);

// Positions of lists that rules look at.
inline constexpr int TtsMode = 0;      // of SelectCall
inline constexpr int FiveToneMode = 1; // of SelectCall
inline constexpr int ListOff = 0;      // of BusyChLock, PriorityCh and PttId

// The PttId positions are two bits: whether the Connect ID and the Disconnect ID are sent.
constexpr bool SendsConnectId(int pttId) {
  return (pttId & 1) != 0;
}
constexpr bool SendsDisconnectId(int pttId) {
  return (pttId & 2) != 0;
}

// The programmable keys, in the order of KeyProgramBlock.
enum Key : std::size_t { ShortA, LongA, ShortB, LongB, ShortC, LongC };

// A function of a key, under the byte that KeyProgramBlock holds for it.
struct KeyItem {
  std::uint8_t code;
  std::string_view text;
};
[[nodiscard]] std::span<const KeyItem> KeyItems(std::size_t key);
// "" for no selection.
[[nodiscard]] std::string_view KeyItemText(std::size_t key, int position);

// The item at a position, "" for no selection.
[[nodiscard]] std::string_view ItemAt(std::span<const std::string_view> items, int position);

} // namespace mr4500x
