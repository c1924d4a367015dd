// Which row of the list the next radio at each port gets: the rows in the order of the list, the ports in the order of
// their numbers, unless the user has chosen a row. This is the intention of one bench; the journal gives the rows out.
#pragma once

#include "journal.h"

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// What a port has, and is to get. Rows count from 1; 0 is none.
struct RowSlot {
  bool isWaiting = true; // for a radio, or with one for a row
  std::size_t next = 0;
  std::size_t held = 0; // of the radio in progress
  std::string name{};   // of the port; known with the first of these
};

// Gives each waiting port a row of `free`, which is sorted. A port keeps its row as long as it can. The rows of
// `chosen` that are free go out first, in the order of the choice.
void AssignRows(std::vector<RowSlot>& ports, const std::vector<std::size_t>& free,
                const std::vector<std::size_t>& chosen);

// The row with a label, else the one for a radio, else the one that a radio holds. nullptr: none, or more than one.
[[nodiscard]] const JournalRow* FindRow(const std::vector<JournalRow>& rows, std::string_view labelOrRadio);
// Whether the user can give the row to the next radio that comes.
[[nodiscard]] bool CanBeChosen(const JournalRow& row);

// The slots of a bench. May be used by several threads.
class RowQueue {
public:
  struct Next {
    std::size_t row = 0;
    bool isChosen = false;
  };

  void SetPorts(std::size_t count) { m_ports.resize(count); } // before they start
  // What the journal has now. `port` has no radio in progress.
  void SetRows(std::size_t port, const std::vector<JournalRow>& rows);
  // The port's row. `isWaiting`: see RowSlot.
  [[nodiscard]] Next NextFor(std::size_t port, bool isWaiting);
  void Hold(std::size_t port, std::size_t row, std::string portName); // the port's radio has got it
  [[nodiscard]] std::string PortThatHolds(std::size_t row);           // its name; "": none of this bench
  void Choose(std::size_t row);                                       // for the first port that waits
  void ForgetChoices();

private:
  std::mutex m_mutex; // guards what follows
  std::vector<RowSlot> m_ports;
  std::vector<std::size_t> m_free, m_chosen;
};

} // namespace mr4500x
