#include "choice_lists.h"

#include "signaling.h"

#include <algorithm>

namespace mr4500x {
namespace {

using Text = std::string_view;

// clang-format off
constexpr std::array<Text, 2> SelectCallItems = {"TTS", "5 Tone"};
constexpr std::array<Text, 2> OffOnItems = {"OFF", "ON"};
constexpr std::array<Text, 8> BatterySaveItems = {"OFF", "5s", "10s", "15s", "20s", "25s", "30s", "35s"};
constexpr std::array<Text, 3> BusyChLockItems = {"OFF", "Signal", "Carrier"};
constexpr std::array<Text, 11> TxTotItems = {
    "OFF", "30s", "60s", "90s", "120s", "150s", "180s", "210s", "240s", "270s", "300s"};
constexpr std::array<Text, 3> SquelchLevelItems = {"1", "2", "3"};
constexpr std::array<Text, 4> VoxSensivityItems = {"OFF", "1", "2", "3"};
constexpr std::array<Text, 16> DigitTimeItems = {
    "50ms",  "60ms",  "70ms",  "80ms",  "90ms",  "100ms", "110ms", "120ms",
    "130ms", "140ms", "150ms", "160ms", "170ms", "180ms", "190ms", "200ms"};
constexpr std::array<Text, 4> PttIdItems = {"OFF", "Connect ID", "Disconnect ID", "Both"};
constexpr std::array<Text, 2> ScanModeItems = {"CO", "TO"};
constexpr std::array<Text, 17> PriorityChItems = {
    "OFF", "CH1", "CH2", "CH3", "CH4", "CH5", "CH6", "CH7", "CH8",
    "CH9", "CH10", "CH11", "CH12", "CH13", "CH14", "CH15", "CH16"};
constexpr std::array<Text, 20> HalfSecondItems = {
    "0.5s", "1.0s", "1.5s", "2.0s", "2.5s", "3.0s", "3.5s", "4.0s", "4.5s", "5.0s",
    "5.5s", "6.0s", "6.5s", "7.0s", "7.5s", "8.0s", "8.5s", "9.0s", "9.5s", "10s"};
constexpr std::array<Text, 48> LookBackItems = {
                            "0.3s", "0.4s", "0.5s", "0.6s", "0.7s", "0.8s", "0.9s",
    "1.0s", "1.1s", "1.2s", "1.3s", "1.4s", "1.5s", "1.6s", "1.7s", "1.8s", "1.9s",
    "2.0s", "2.1s", "2.2s", "2.3s", "2.4s", "2.5s", "2.6s", "2.7s", "2.8s", "2.9s",
    "3.0s", "3.1s", "3.2s", "3.3s", "3.4s", "3.5s", "3.6s", "3.7s", "3.8s", "3.9s",
    "4.0s", "4.1s", "4.2s", "4.3s", "4.4s", "4.5s", "4.6s", "4.7s", "4.8s", "4.9s", "5.0s"};
constexpr std::array<Text, 3> RevertChItems = {"Current CH", "Last Stop CH", "Priority CH"};
constexpr std::array<Text, 2> ManualTuneItems = {"Enable", "Disable"};
constexpr auto StandardItems = [] {
  std::array<Text, FiveToneStandardTable.size()> names;
  std::ranges::transform(FiveToneStandardTable, names.begin(), &FiveToneRow::name);
  return names;
}();

struct List {
  std::span<const Text> items;
  ListCoding coding;
};

// In the order of ChoiceList.
constexpr std::array<List, ChoiceListCount> Lists = {{
    {SelectCallItems,   {}},                             // SelcallMode, 1 for TTS
    {OffOnItems,        {Setting::BeepTone}},
    {BatterySaveItems,  {Setting::BatterySave}},
    {BusyChLockItems,   {}},                             // two fields: on, and its kind
    {TxTotItems,        {Setting::TxTot}},
    {SquelchLevelItems, {Setting::SquelchLevel, 1}},
    {OffOnItems,        {Setting::Compander}},
    {DigitTimeItems,    {Setting::DigitTime, 5}},
    {DigitTimeItems,    {Setting::InterDigitTime, 5}},
    {PttIdItems,        {Setting::PttId}},
    {VoxSensivityItems, {Setting::VoxSensivity}},
    {OffOnItems,        {Setting::BeepEnable}},
    {ScanModeItems,     {Setting::ScanMode}},
    {HalfSecondItems,   {Setting::ToScanDelay, 5, 5}},
    {PriorityChItems,   {}},                             // two fields: on, and the channel
    {LookBackItems,     {Setting::LookBack, 3}},
    {HalfSecondItems,   {Setting::RestoreTime, 5, 5}},
    {RevertChItems,     {Setting::RevertCh}},
    {ManualTuneItems,   {Setting::ManualTune}},
    {StandardItems,     {}},                             // in ResetTimeBlock
}};

constexpr std::array<KeyItem, 10> ShortAItems = {{
    {0x00, "Unassigned"}, {0xC1, "Emergency Alert"}, {0x83, "Scan"}, {0x84, "Nuisance Delete"}, {0x85, "Power Select"},
    {0x86, "Talk Around"}, {0x87, "Reverse"}, {0x88, "Call"}, {0x89, "Selcall"}, {0x8A, "GroupCall"}}};
constexpr std::array<KeyItem, 10> LongAItems = {{
    {0x00, "Unassigned"}, {0xC2, "Cancel Emergency Alert"}, {0x83, "Scan"}, {0x84, "Nuisance Delete"},
    {0x85, "Power Select"}, {0x86, "Talk Around"}, {0x87, "Reverse "}, // the product's text ends in a blank
    {0x88, "Call"}, {0x89, "Selcall"}, {0x8A, "GroupCall"}}};
constexpr std::array<KeyItem, 10> ShortBAndCItems = {{
    {0x00, "Unassigned"}, {0xC0, "Monitor"}, {0x83, "Scan"}, {0x84, "Nuisance Delete"}, {0x85, "Power Select"},
    {0x86, "Talk Around"}, {0x87, "Reverse"}, {0x88, "Call"}, {0x89, "Selcall"}, {0x8A, "GroupCall"}}};
constexpr std::array<KeyItem, 9> LongBAndCItems = {{
    {0x00, "Unassigned"}, {0x83, "Scan"}, {0x84, "Nuisance Delete"}, {0x85, "Power Select"}, {0x86, "Talk Around"},
    {0x87, "Reverse"}, {0x88, "Call"}, {0x89, "Selcall"}, {0x8A, "GroupCall"}}};

constexpr std::array<std::span<const KeyItem>, KeyCount> KeyLists = {
    ShortAItems, LongAItems, ShortBAndCItems, LongBAndCItems, ShortBAndCItems, LongBAndCItems};
// clang-format on

} // namespace

const ListCoding& CodingOf(ChoiceList list) {
  return Lists[static_cast<std::size_t>(list)].coding;
}

std::span<const std::string_view> ItemsOf(ChoiceList list) {
  return Lists[static_cast<std::size_t>(list)].items;
}

std::span<const KeyItem> KeyItems(std::size_t key) {
  return KeyLists[key];
}

std::string_view KeyItemText(std::size_t key, int position) {
  return position < 0 ? std::string_view() : KeyItems(key)[static_cast<std::size_t>(position)].text;
}

} // namespace mr4500x
