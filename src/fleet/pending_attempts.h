// Attempts that could not be entered yet because the database did not answer. They are kept in a file. Several
// processes may use the same path: each takes its own number, "PATH-1.csv", and holds its lock.
#pragma once

#include "journal.h"
#include "open_file.h"

#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// May be used by several threads, each with its own journal.
class PendingAttempts {
public:
  // Takes over the attempts of earlier processes. Their files are removed, except damaged ones.
  PendingAttempts(FileSystem& files, std::string path);
  // What is still pending stays in the file.
  ~PendingAttempts() = default;
  PendingAttempts(const PendingAttempts&) = delete;
  PendingAttempts& operator=(const PendingAttempts&) = delete;

  // Enters the pending attempts, then `attempt`, and returns it as it was entered. Attempts that can't be entered stay
  // pending.
  Attempt Enter(Journal& journal, const Attempt& attempt);
  // Enters the pending attempts. Returns false if any remain; then no new rows may be taken.
  [[nodiscard]] bool EnterPending(Journal& journal);
  [[nodiscard]] std::size_t Count();
  // False if the file can't be written, so that pending attempts would be lost when the process ends.
  [[nodiscard]] bool IsKept();
  // The attempts entered since the last call whose row went to another radio in the meantime.
  [[nodiscard]] std::vector<Attempt> TakeConflicts();

private:
  [[nodiscard]] std::string PathOf(int number, std::string_view ending) const;
  [[nodiscard]] OpenFile Lock(int number);
  [[nodiscard]] bool Adopt(int number);
  [[nodiscard]] std::optional<Attempt> First();
  void Store();

  FileSystem& m_files;
  std::string m_path;
  int m_number = 0; // 0: none was free, and nothing can be kept
  OpenFile m_lock;
  std::mutex m_handingIn; // held by the thread that enters them; the others don't wait for it
  std::mutex m_mutex;     // guards what follows
  std::vector<Attempt> m_attempts, m_conflicts;
  bool m_isKept = true;
};

} // namespace mr4500x
