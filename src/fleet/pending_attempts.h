// Attempts that could not be entered because the database did not answer. They are kept in a file until they are.
// Several processes may have the same path: each takes a number of its own, "PATH-1.csv", and holds its lock.
#pragma once

#include "journal.h"
#include "open_file.h"

#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// May be used by several threads, each with a journal of its own.
class PendingAttempts {
public:
  // Takes over what earlier processes left. Their files are removed, damaged ones stay.
  PendingAttempts(FileSystem& files, std::string path);
  // What is still pending stays in the file.
  ~PendingAttempts() = default;
  PendingAttempts(const PendingAttempts&) = delete;
  PendingAttempts& operator=(const PendingAttempts&) = delete;

  // Enters what is pending, then the attempt, and returns it as it was entered. What can't be entered stays pending.
  Attempt Enter(Journal& journal, const Attempt& attempt);
  // Enters what is pending. False if something still is; no new rows are taken then.
  [[nodiscard]] bool HandIn(Journal& journal);
  [[nodiscard]] std::size_t Count();
  // False if the file can't be written: what is pending would be lost with the process.
  [[nodiscard]] bool IsKept();
  // Those handed in since the last call whose row another radio got in the meantime.
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
  std::mutex m_handingIn; // one thread does, and the others don't wait for it
  std::mutex m_mutex;     // guards what follows
  std::vector<Attempt> m_attempts, m_conflicts;
  bool m_isKept = true;
};

} // namespace mr4500x
