// The choice lists of the function settings and signaling editors. A list's position, counted from 0, is what the
// editor's values hold; the texts are what the user sees.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
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

// Times have a decimal point whatever the separator of the frequencies.
[[nodiscard]] std::span<const std::string_view> ItemsOf(ChoiceList list);

// The items of key 0 Short A, 1 Long A, 2 Short B, 3 Long B, 4 Short C, 5 Long C.
[[nodiscard]] std::span<const std::string_view> KeyItems(std::size_t key);

// The single items of cboKey(10) over Short A and cboKey(11) over Long A.
inline constexpr char EmergencyAlertItem[] = "Emergency Alert";
inline constexpr char CancelEmergencyAlertItem[] = "Cancel Emergency Alert";

// The item at a position, "" for no selection.
[[nodiscard]] std::string_view ItemAt(std::span<const std::string_view> items, int position);

} // namespace mr4500x
