#include "row_queue.h"

#include "text.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace mr4500x {
namespace {

bool Contains(const std::vector<std::size_t>& rows, std::size_t row) {
  return std::ranges::find(rows, row) != rows.end();
}

} // namespace

void AssignRows(std::vector<RowSlot>& ports, const std::set<std::size_t>& free,
                const std::vector<std::size_t>& chosen) {
  std::set<std::size_t> given; // planned, or in progress
  for (const RowSlot& port : ports)
    given.insert(port.held);
  const auto isFree = [&](std::size_t row) { return free.contains(row) && !given.contains(row); };
  for (RowSlot& port : ports)
    if (!port.isWaiting || !isFree(port.next)) port.next = 0;
  for (const std::size_t row : chosen) {
    if (!isFree(row) || std::ranges::find(ports, row, &RowSlot::next) != ports.end()) continue;
    const auto port = std::ranges::find_if(
        ports, [&](const RowSlot& each) { return each.isWaiting && !Contains(chosen, each.next); });
    if (port != ports.end()) port->next = row;
  }
  for (const RowSlot& port : ports)
    given.insert(port.next);
  auto next = free.begin();
  for (RowSlot& port : ports) {
    if (!port.isWaiting || port.next != 0) continue;
    next = std::find_if(next, free.end(), [&](std::size_t row) { return !given.contains(row); });
    if (next == free.end()) return;
    port.next = *next++;
  }
}

const JournalRow* FindRow(const std::vector<JournalRow>& rows, std::string_view labelOrRadio) {
  const std::string text(Trimmed(labelOrRadio)), lower = Lower(text);
  const std::function<bool(const JournalRow&)> ways[] = {
      [&](const JournalRow& row) { return row.label == text; },
      [&](const JournalRow& row) { return Lower(row.label) == lower; },
      [&](const JournalRow& row) { return row.radio == text; },
      [&](const JournalRow& row) { return row.idNumber == text; },
  };
  for (const auto& isMeant : ways) {
    const auto found = std::ranges::find_if(rows, isMeant);
    if (found == rows.end()) continue;
    const bool isOnly = std::find_if(found + 1, rows.end(), isMeant) == rows.end();
    return isOnly && !text.empty() ? &*found : nullptr;
  }
  return nullptr;
}

bool CanBeChosen(const JournalRow& row) {
  return row.state == RowState::Free && row.radio.empty();
}

std::optional<std::int64_t> RowQueue::BeginList(std::size_t port) {
  const std::lock_guard guard(m_mutex);
  m_ports.at(port).held = 0;
  if (m_listedAt == 0 && std::exchange(m_isListing, true)) return std::nullopt;
  return m_listedAt;
}

std::size_t RowQueue::EndList(const RowList& list) {
  const std::lock_guard guard(m_mutex);
  m_listedAt = list.time;
  if (m_begun == 0) m_begun = list.time;
  m_isListing = false;
  for (const JournalRow& row : list.rows) {
    m_free.erase(row.row);
    m_done.erase(row.row);
    m_named.erase(row.row);
    m_taken.erase(row.row);
    if (CanBeChosen(row))
      m_free.insert(m_free.end(), row.row);
    else if (row.state == RowState::Free)
      m_named.insert(m_named.end(), row.row);
    if (row.state == RowState::Done) m_done.insert(m_done.end(), row.row);
    if (row.state == RowState::Taken) m_taken[row.row] = row;
  }
  std::erase_if(m_chosen, [&](std::size_t row) {
    return !m_free.contains(row) && std::ranges::find(m_ports, row, &RowSlot::held) == m_ports.end();
  });
  return m_done.size();
}

RowCounts RowQueue::Counts() {
  const std::lock_guard guard(m_mutex);
  return {m_done.size(), m_taken.size(), m_free.size(), m_named.size(),
          m_taken.empty() ? JournalRow() : m_taken.begin()->second};
}

RowQueue::Next RowQueue::NextFor(std::size_t port, bool isWaiting) {
  const std::lock_guard guard(m_mutex);
  m_ports.at(port).isWaiting = isWaiting;
  AssignRows(m_ports, m_free, m_chosen);
  const std::size_t row = m_ports[port].next;
  return {row, Contains(m_chosen, row), m_begun};
}

void RowQueue::Hold(std::size_t port, std::size_t row, std::string portName) {
  const std::lock_guard guard(m_mutex);
  m_ports.at(port).held = row;
  m_ports[port].name = std::move(portName);
}

std::string RowQueue::PortThatHolds(std::size_t row) {
  const std::lock_guard guard(m_mutex);
  const auto port = std::ranges::find(m_ports, row, &RowSlot::held);
  return port == m_ports.end() ? "" : port->name;
}

void RowQueue::Choose(std::size_t row) {
  const std::lock_guard guard(m_mutex);
  if (!Contains(m_chosen, row)) m_chosen.push_back(row);
}

void RowQueue::ForgetChoices() {
  const std::lock_guard guard(m_mutex);
  m_chosen.clear();
}

} // namespace mr4500x
