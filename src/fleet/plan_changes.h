// What a changed list has in common with the lists before it.
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
  std::size_t changed = 0; // rows whose label, or else radio, had another content before
  std::size_t open = 0;    // rows that are the same, and that no radio holds
  std::string busyBench;   // that is programming one of the open rows for its own list
};

// A row carries over if a radio that it may have holds a row of the same label and content. Each radio counts once.
[[nodiscard]] PlanChanges CompareWithEarlier(std::vector<JournalRow> rows, const std::vector<JournalRow>& earlier);

} // namespace mr4500x
