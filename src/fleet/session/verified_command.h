// The user's command for each verified radio, for labels and other systems. A command that fails or hangs is entered in
// the journal, and has no other effect.
#pragma once

#include "pending_attempts.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <list>
#include <mutex>
#include <string>

namespace mr4500x {

// A command that takes longer is ended.
inline constexpr std::chrono::seconds CommandLimit{30};

// May be used by several threads.
class VerifiedCommand {
public:
  // Calls `onEnded` in a separate thread with the radio's entry. Its text is the reason why the command failed, or
  // empty if it succeeded.
  VerifiedCommand(std::string command, std::string journalAddress, PendingAttempts& pending,
                  std::function<void(const Attempt&)> onEnded)
      : m_command(std::move(command)), m_journal(std::move(journalAddress)), m_pending(pending),
        m_onEnded(std::move(onEnded)) {}

  // Starts the command, if there is one, without waiting for it. The destructor waits.
  void Run(const Attempt& verified);
  [[nodiscard]] bool IsRunning() const { return m_running > 0; } // until onEnded has been called

private:
  void RunNow(Attempt verified);

  const std::string m_command, m_journal;
  PendingAttempts& m_pending;
  const std::function<void(const Attempt&)> m_onEnded;
  std::atomic<int> m_running = 0;
  std::mutex m_mutex; // guards what follows
  std::list<std::future<void>> m_runs;
};

} // namespace mr4500x
