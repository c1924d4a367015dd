// The rules of the six programmable keys: the emergency pair, "Monitor" and its long press, and at most one key with
// "Talk Around" or "Reverse".
#pragma once

#include "choice_lists.h"

#include <array>
#include <cstddef>

namespace mr4500x {

// Positions in the key lists.
inline constexpr int KeyUnassigned = 0;
inline constexpr int KeySpecial = 1; // Short A "Emergency Alert", Long A "Cancel Emergency Alert", Short B, C "Monitor"
inline constexpr int KeyNoSelection = -1;

struct KeyProgram {
  std::array<int, KeyCount> selection{};      // cboKey(0) to cboKey(5)
  std::array<int, KeyCount> remembered{};     // the last selections that passed the rules
  std::array<std::uint8_t, KeyCount> codes{}; // the stored bytes, for keys without a selection
  bool fixedShortAShown = false;              // cboKey(10) replaces cboKey(0)
  bool fixedLongAShown = false;               // cboKey(11) replaces cboKey(1)

  bool operator==(const KeyProgram&) const = default;
};

// A long-press list is disabled while its short press is "Monitor".
[[nodiscard]] bool LongPressEnabled(const KeyProgram& keys, std::size_t longKey);

// Selects a position on key 0 to 5 and applies the rules. Returns the number of "Talk Around Or Reverse" messages to
// show. After a message the key has its remembered selection again.
[[nodiscard]] int SelectKey(KeyProgram& keys, std::size_t key, int position);

// Completes half of the emergency pair, because only the whole pair is stored. Returns true if a key changed.
bool CompleteEmergencyPair(KeyProgram& keys);

} // namespace mr4500x
