#include "bench_context.h"

namespace mr4500x {

bool BenchState::IsOver() const {
  const std::lock_guard guard(m_slots);
  return m_isStopping || m_areRowsDone || (m_slotsLeft == 0 && m_slotsTaken == 0);
}

void BenchState::GoOn(std::size_t port) {
  const std::lock_guard guard(m_going);
  m_goingOn.insert(port);
}

bool BenchState::TakeGoOn(std::size_t port) {
  const std::lock_guard guard(m_going);
  return m_goingOn.erase(port) > 0;
}

BenchState::Slot::Slot(BenchState& state) : m_state(state) {
  const std::lock_guard guard(state.m_slots);
  m_isTaken = state.HasSlot();
  if (!m_isTaken) return;
  ++state.m_slotsTaken;
  if (state.m_hasLimit) --state.m_slotsLeft;
}

BenchState::Slot::~Slot() {
  if (!m_isTaken) return;
  const std::lock_guard guard(m_state.m_slots);
  --m_state.m_slotsTaken;
  if (!m_isUsed && m_state.m_hasLimit) ++m_state.m_slotsLeft;
}

} // namespace mr4500x
