// The context of a bench's ports: the user's choices, the shared state, and the receivers of their reports.
#pragma once

#include "clock.h"
#include "pending_attempts.h"
#include "plan.h"
#include "port_status.h"
#include "row_queue.h"
#include "session.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <set>
#include <string>

namespace mr4500x {

// Constant while the bench runs. The functions are called in the ports' threads, several at a time.
struct BenchSettings {
  const Plan& plan;
  const FieldTexts& texts;
  FileSystem& files;   // has no state, so threads share it
  std::string bench{}; // unique among all running benches
  std::string backupFolder{};
  Speed speed = Speed::Prescribed;
  bool acceptsOtherBand = false;
  bool comparesDone = false;    // the whole content of a done radio, even if its write stamp is the one entered
  bool rewritesDone = false;    // if its content differs; otherwise it is set aside
  bool acceptsReissued = false; // radios whose row a person has given out again; otherwise they are set aside
  std::string operatorName{};
  std::function<LocalTime()> now{};         // for backups and write stamps
  std::function<std::string()> timestamp{}; // for attempts, in UTC
  Sha256 sha256 = nullptr;
  std::function<std::string()> newKey{}; // the key of a new attempt
};

// The progress of the bench, and the conditions for its end. May be used by several threads.
class BenchState {
public:
  // `count`: the radios to verify; negative means no limit.
  explicit BenchState(int count = -1) : m_hasLimit(count >= 0), m_slotsLeft(count) {}

  // No further radio is started.
  void StopAfterTheseRadios() { m_isStopping = true; }
  // No further radio or write is started. Transfers in progress are finished.
  void StopBeforeWrites() {
    m_mayWrite = false;
    m_isStopping = true;
  }
  [[nodiscard]] bool MayWrite() const { return m_mayWrite; }

  // Lets a stopped port continue, or program the radio that it has set aside.
  void GoOn(std::size_t port);
  [[nodiscard]] bool TakeGoOn(std::size_t port); // once
  [[nodiscard]] RowQueue& Rows() { return m_rows; }
  void SetRowsDone() { m_areRowsDone = true; } // all of them

  // Whether a radio may be started now.
  [[nodiscard]] bool HasSlot() const { return !m_isStopping && m_slotsLeft != 0; }
  // Whether no radio will be started any more.
  [[nodiscard]] bool IsOver() const;
  // Whether all requested radios are verified: the count, or all rows.
  [[nodiscard]] bool IsComplete() const { return m_hasLimit ? m_slotsLeft == 0 : m_areRowsDone.load(); }

  // The right to program one radio of the count. It is returned at the end unless the radio was verified.
  class Slot {
  public:
    explicit Slot(BenchState& state);
    ~Slot();
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;

    [[nodiscard]] bool IsTaken() const { return m_isTaken; }
    void Use() { m_isUsed = true; }

  private:
    BenchState& m_state;
    bool m_isTaken, m_isUsed = false;
  };

private:
  std::atomic<bool> m_isStopping = false, m_mayWrite = true, m_areRowsDone = false;
  const bool m_hasLimit;
  mutable std::mutex m_slots; // guards both
  std::atomic<int> m_slotsLeft;
  int m_slotsTaken = 0; // may be returned
  std::mutex m_going;
  std::set<std::size_t> m_goingOn; // the ports that may continue
  RowQueue m_rows;
};

// Called in the ports' threads, several at a time.
struct BenchEvents {
  std::function<void(const PortStatus&)> onStatus{};                      // at each change
  std::function<void(const Attempt&)> onConflict = [](const Attempt&) {}; // for a late entry: two radios hold its row
  std::function<void(const Attempt&)> onEntered = [](const Attempt&) {};  // once for each at its end; must not block
};

struct BenchContext {
  const BenchSettings& settings;
  BenchState& state;
  PendingAttempts& pending;
  const BenchEvents& events;
};

} // namespace mr4500x
