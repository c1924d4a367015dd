#include "verified_command.h"

#include "attempt_json.h"
#include "file_access.h"
#include "fleet_session.h"
#include "machine_files.h"
#include "processes.h"
#include "sql_journal.h"
#include "words.h"

namespace mr4500x {

void VerifiedCommand::Run(const Attempt& verified) {
  if (m_command.empty()) return;
  ++m_running;
  const std::lock_guard guard(m_mutex);
  m_runs.remove_if([](const auto& run) { return run.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
  m_runs.push_back(std::async(std::launch::async, [this, verified] { RunNow(verified); }));
}

void VerifiedCommand::RunNow(Attempt verified) {
  const CommandEnd end = RunCommand(m_command, AttemptJson(verified), CommandLimit);
  verified.text.clear();
  if (end.status != 0) {
    verified.outcome = AttemptOutcome::Note;
    verified.key = NewAttemptKey();
    verified.start = verified.end = UtcTimestamp();
    verified.text = CommandReason(end.status, end.error, CommandLimit);
    for (std::string Attempt::*const part : {&Attempt::backup, &Attempt::sha256, &Attempt::stamp})
      (verified.*part).clear();
    // A file that is missing is not created again, because a new journal would have no rows.
    const std::string file = FileOfJournal(m_journal);
    const bool isMissing = !file.empty() && IsMissing(MachineFiles(), file);
    const auto journal = OpenJournal(m_journal, isMissing ? JournalUse::List : JournalUse::Enter);
    static_cast<void>(m_pending.Enter(*journal, verified));
  }
  --m_running;
  m_onEnded(verified);
}

} // namespace mr4500x
