// Which stored value each list position stands for. One table, walked by Decode and Encode.
#pragma once

#include "choice_lists.h"
#include "function_settings.h"
#include "key_rules.h"

#include <array>

namespace mr4500x {

struct SettingList {
  ChoiceList list;
  Setting setting;
  int firstCode; // what position 0 stores
  int step;      // between the codes of neighbours; a code between two rounds to the nearer
};

// The lists that map to one field each, in the order in which they are filled. SelectCall, BusyChLock, PriorityCh,
// ManualTune and Standards have rules of their own.
// clang-format off
inline constexpr std::array<SettingList, 10> GlobalSettingLists = {{
    {ChoiceList::BeepTone,       Setting::BeepTone,       0, 1},
    {ChoiceList::BatterySave,    Setting::BatterySave,    0, 1},
    {ChoiceList::TxTot,          Setting::TxTot,          0, 1},
    {ChoiceList::SquelchLevel,   Setting::SquelchLevel,   1, 1},
    {ChoiceList::Compander,      Setting::Compander,      0, 1},
    {ChoiceList::DigitTime,      Setting::DigitTime,      5, 1},
    {ChoiceList::InterDigitTime, Setting::InterDigitTime, 5, 1},
    {ChoiceList::PttId,          Setting::PttId,          0, 1},
    {ChoiceList::VoxSensivity,   Setting::VoxSensivity,   0, 1},
    {ChoiceList::BeepEnable,     Setting::BeepEnable,     0, 1},
}};
inline constexpr std::array<SettingList, 5> ScanLists = {{
    {ChoiceList::ScanMode,       Setting::ScanMode,       0, 1},
    {ChoiceList::ToScanDelay,    Setting::ToScanDelay,    5, 5},
    {ChoiceList::LookBack,       Setting::LookBack,       3, 1},
    {ChoiceList::RestoreTime,    Setting::RestoreTime,    5, 5},
    {ChoiceList::RevertCh,       Setting::RevertCh,       0, 1},
}};
inline constexpr SettingList ManualTuneList =
    {ChoiceList::ManualTune,     Setting::ManualTune,     0, 1};
// clang-format on

// The code bits of key list position 2 on (position 1 on for Long B and Long C): position + this.
constexpr int KeyCodeOffset(std::size_t key) {
  return key == LongB || key == LongC ? 2 : 1;
}

} // namespace mr4500x
