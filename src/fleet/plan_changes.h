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
  std::size_t unknown = 0;          // new rows
  std::size_t changed = 0;          // rows whose label (or radio) had other content before
  std::size_t open = 0;             // unchanged rows that no radio holds
  std::string busyBench;            // a bench that is programming one of the open rows for its own list
  std::vector<JournalRow> outdated; // see OutdatedRows
};

// A row that is free is carried over if a permitted radio holds a row with the same label and content. Each radio
// counts once.
[[nodiscard]] PlanChanges CompareWithEarlier(std::vector<JournalRow> rows, const std::vector<JournalRow>& earlier);

// The earlier rows that radios still hold instead of the row with the same label (or radio).
[[nodiscard]] std::vector<JournalRow> OutdatedRows(const std::vector<JournalRow>& rows,
                                                   std::vector<JournalRow> earlier);

} // namespace mr4500x
