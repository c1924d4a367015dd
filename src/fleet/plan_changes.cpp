#include "plan_changes.h"

#include <map>
#include <set>
#include <string>
#include <utility>

namespace mr4500x {
namespace {

using Sameness = std::pair<std::string, std::string>; // label and content

// The name of a row, independent of its content; "" for a row without a name.
std::string NameOf(const JournalRow& row) {
  return row.label.empty() ? row.radio.empty() ? "" : "radio " + row.radio : "label " + row.label;
}

} // namespace

PlanChanges CompareWithEarlier(std::vector<JournalRow> rows, const std::vector<JournalRow>& earlier) {
  std::multimap<Sameness, const JournalRow*> held;
  std::map<Sameness, std::string> known;       // with the bench that is programming it
  std::set<std::string> names, named, carried; // the latter two are radios
  for (const JournalRow& row : earlier) {
    std::string& bench = known[{row.label, row.content}];
    if (row.state == RowState::Taken) bench = row.bench;
    names.insert(NameOf(row));
    if (row.state == RowState::Done) held.insert({{row.label, row.content}, &row});
  }
  for (const JournalRow& row : rows) {
    if (!row.radio.empty()) named.insert(row.radio);
    if (row.state != RowState::Free) carried.insert(row.idNumber);
  }

  PlanChanges changes;
  for (JournalRow& row : rows) {
    if (row.state != RowState::Free) continue;
    const Sameness same{row.label, row.content};
    const JournalRow* holder = nullptr;
    for (auto [at, end] = held.equal_range(same); at != end && holder == nullptr; ++at) {
      const std::string& radio = at->second->idNumber;
      const bool mayHaveIt = row.radio.empty() ? !named.contains(radio) : row.radio == radio;
      if (mayHaveIt && carried.insert(radio).second) holder = at->second;
    }
    if (holder != nullptr) {
      row.state = RowState::Done;
      row.bench = holder->bench;
      row.idNumber = holder->idNumber;
      row.stamp = holder->stamp;
      ++changes.carriedOver;
    } else if (const auto found = known.find(same); found != known.end()) {
      ++changes.open;
      if (!found->second.empty()) changes.busyBench = found->second;
    } else {
      const std::string name = NameOf(row);
      ++(!name.empty() && names.contains(name) ? changes.changed : changes.unknown);
    }
  }
  changes.rows = std::move(rows);
  changes.outdated = OutdatedRows(changes.rows, earlier);
  return changes;
}

std::vector<JournalRow> OutdatedRows(const std::vector<JournalRow>& rows, std::vector<JournalRow> earlier) {
  std::set<std::string> names, upToDate; // the latter are radios
  for (const JournalRow& row : rows) {
    names.insert(NameOf(row));
    if (row.state == RowState::Done) upToDate.insert(row.idNumber);
  }
  names.erase("");
  std::erase_if(earlier, [&](const JournalRow& row) {
    return row.state != RowState::Done || !names.contains(NameOf(row)) || upToDate.contains(row.idNumber);
  });
  return earlier;
}

} // namespace mr4500x
