// Copies of unsaved work in the user's state folder, so that no exit, crash or replacement loses it. Each is a data
// file, followed by lines that say when and where it came from and what differed.
//
// A window has at most one copy, "session-NUMBER.K4X", beside a lock file of the same number, which it holds. A copy
// whose lock nobody holds was left by a window that has ended. Copies that were put aside are named after their time
// and a random number, "2026-11-25_04-10-33_NUMBER.K4X"; the ten newest of them stay.
#pragma once

#include "data_file.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mr4500x {

struct KeptCopy {
  std::vector<std::uint8_t> data; // of a data file
  std::string at;                 // "2026-11-25 04:10:33"
  std::string source;             // the file or radio it came from, as shown to the user
  std::string differences;        // one line for each
};

class KeptCopies {
public:
  // The folder is made when it is first needed.
  KeptCopies(FileSystem& files, std::string folder) : m_files(files), m_folder(std::move(folder)) {}
  // What Keep last wrote stays for a later start.
  ~KeptCopies();
  KeptCopies(const KeptCopies&) = delete;
  KeptCopies& operator=(const KeptCopies&) = delete;

  // Writes or replaces the copy of this window in one step. False leaves the one before.
  [[nodiscard]] bool Keep(const KeptCopy& copy);
  void Drop();     // nothing is unsaved any more
  void PutAside(); // other data takes the place of the work

  // The newest copy that a window left at its end, none if there is no more. It must be taken or put aside before the
  // next. Damaged ones are put aside.
  [[nodiscard]] std::optional<KeptCopy> NextLeft();
  void TakeLeft();     // it becomes the copy of this window
  void PutLeftAside(); // it is not asked about again

private:
  struct Session {
    std::string number;
    FileSystem::Handle lock;
    std::string at; // of its copy; empty for none
  };

  [[nodiscard]] std::string LockPath(const std::string& number) const;
  [[nodiscard]] std::string CopyPath(const std::string& number) const;
  [[nodiscard]] bool Begin();
  [[nodiscard]] std::optional<Session> EndedSession(const std::string& name, KeptCopy& copy);
  [[nodiscard]] bool PutAside(const Session& session);
  void End(const Session& session);
  void Prune(const std::string& newest);
  [[nodiscard]] bool LosesFolder();

  FileSystem& m_files;
  std::string m_folder;
  std::optional<Session> m_own, m_left;
};

} // namespace mr4500x
