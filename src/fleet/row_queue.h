// Plans which row the next radio at each port gets: the rows in the order of the list, the ports in the order of their
// numbers, unless the user has chosen a row. This is only the plan of one bench. The journal gives the rows out.
#pragma once

#include "journal.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// The row that a port has, and the row that it will get. Rows count from 1; 0 is none.
struct RowSlot {
  bool isWaiting = true; // for a radio, or with a radio for a row
  std::size_t next = 0;
  std::size_t held = 0; // row of the radio in progress
  std::string name{};   // name of the port; known after its first row
};

// Gives each waiting port a row of `free`. A port keeps its row as long as it can. The rows of
// `chosen` that are free go out first, in the order of the choice.
void AssignRows(std::vector<RowSlot>& ports, const std::set<std::size_t>& free, const std::vector<std::size_t>& chosen);

// The row with a label, or else the row for a radio, or else the row that a radio holds. nullptr if there is none or
// more than one.
[[nodiscard]] const JournalRow* FindRow(const std::vector<JournalRow>& rows, std::string_view labelOrRadio);
// Whether the user can choose the row for the next radio.
[[nodiscard]] bool CanBeChosen(const JournalRow& row);

// How the rows of a plan are used.
struct RowCounts {
  std::size_t done = 0, taken = 0, free = 0, named = 0; // named: free, but only for other radios
  JournalRow firstTaken{};
};

// The slots of a bench. May be used by several threads.
class RowQueue {
public:
  struct Next {
    std::size_t row = 0;
    bool isChosen = false;
    std::int64_t begun = 0; // the time of the bench's first list
  };

  void SetPorts(std::size_t count) { m_ports.resize(count); } // before they start
  // `port` has no radio in progress and will list the rows that have changed since the returned time. nullopt while
  // another port makes the first list, which is long.
  [[nodiscard]] std::optional<std::int64_t> BeginList(std::size_t port);
  // Updates the rows, and returns how many are done. An empty list means that it failed.
  std::size_t EndList(const RowList& list);
  [[nodiscard]] RowCounts Counts();
  // The port's row. `isWaiting`: see RowSlot.
  [[nodiscard]] Next NextFor(std::size_t port, bool isWaiting);
  void Hold(std::size_t port, std::size_t row, std::string portName); // the port's radio has got it
  [[nodiscard]] std::string PortThatHolds(std::size_t row); // name of the port; "" if it is none of this bench
  void Choose(std::size_t row);                             // chooses the row for the first waiting port
  void ForgetChoices();

private:
  std::mutex m_mutex; // guards what follows
  std::vector<RowSlot> m_ports;
  std::vector<std::size_t> m_chosen;
  std::set<std::size_t> m_free, m_done, m_named;
  std::map<std::size_t, JournalRow> m_taken;
  std::int64_t m_listedAt = 0, m_begun = 0;
  bool m_isListing = false;
};

} // namespace mr4500x
