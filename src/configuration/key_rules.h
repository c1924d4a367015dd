// The rules of the six programmable keys: the emergency pair, "Monitor" with its long press, and at most one key with
// "Talk Around" or "Reverse". Pure: a window shows what this record says and the message when told to.
#pragma once

#include "choice_lists.h"

#include <array>
#include <cstddef>

namespace mr4500x {

// Positions of the key lists with a meaning to the rules.
inline constexpr int KeyUnassigned = 0;
inline constexpr int KeySpecial = 1; // Short A "Emergency Alert", Long A "Cancel Emergency Alert", Short B, C "Monitor"
inline constexpr int KeyNoSelection = -1;

struct KeyProgram {
  std::array<int, KeyCount> selection{};  // cboKey(0) to cboKey(5)
  std::array<int, KeyCount> remembered{}; // the last selections that passed the rules
  bool fixedShortAShown = false;          // cboKey(10) stands in the place of cboKey(0)
  bool fixedLongAShown = false;           // cboKey(11) stands in the place of cboKey(1)

  bool operator==(const KeyProgram&) const = default;
};

// A long-press list is disabled while its short press is "Monitor".
[[nodiscard]] bool LongPressEnabled(const KeyProgram& keys, std::size_t longKey);

// The user (or a fill) selects a position on key 0 to 5: runs the key rules. True when the "Talk Around Or Reverse"
// message is due; the key has then returned to its remembered selection.
[[nodiscard]] bool SelectKey(KeyProgram& keys, std::size_t key, int position);

} // namespace mr4500x
