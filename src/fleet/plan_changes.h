// Compares a changed list with the earlier lists.
#pragma once

#include "journal.h"

#include <cstddef>
#include <string>
#include <vector>

namespace mr4500x {

struct PlanChanges {
  std::vector<JournalRow> rows; // of the new list; those that carry over are done
  std::size_t carriedOver = 0;
  std::size_t unknown = 0; // new rows
  std::size_t changed = 0; // rows whose label (or radio) had other content before
  std::size_t open = 0;    // unchanged rows that no radio holds
  std::string busyBench;   // a bench that is programming one of the open rows for its own list
};

// A row is carried over if a permitted radio holds a row with the same label and content. Each radio counts once.
[[nodiscard]] PlanChanges CompareWithEarlier(std::vector<JournalRow> rows, const std::vector<JournalRow>& earlier);

} // namespace mr4500x
