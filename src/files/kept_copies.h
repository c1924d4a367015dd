// Copies of unsaved work in the user's state folder, so that no exit, crash or replacement loses it. Each is a data
// file, followed by lines with its time, its source, the differences and the embedded information.
//
// A window has at most one copy, "session-NUMBER.K4X", beside a lock file of the same number, which it holds. A copy
// whose lock is free was left by a window that has ended. If files can't be locked, NUMBER begins with the process, its
// start and the machine, and the system is asked whether the process still runs. The lock file lists the data files
// that the window has opened; the last one is open now. Copies that were put aside are named after their time and a
// random number, "2026-11-25_04-10-33_NUMBER.K4X". The ten newest of them are kept.
#pragma once

#include "data_file.h"
#include "open_file.h"

#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace mr4500x {

struct KeptCopy {
  std::vector<std::uint8_t> data;     // the content of a data file
  std::string at;                     // "2026-11-25 04:10:33"
  std::string source;                 // the file or radio it came from, as shown to the user
  std::string differences;            // one line for each
  std::optional<EmbeddedInfo> info{}; // entered, but not yet written to a radio
};
// nullopt for a file that is not a copy.
[[nodiscard]] std::optional<KeptCopy> ReadKeptCopy(FileSystem& files, const std::string& path);

// A copy that was put aside; without `copy` if it is damaged or of a newer version.
struct KeptFile {
  std::string path;
  std::string at; // "2026-11-25 04:10:33", from its name
  std::optional<KeptCopy> copy;
};
[[nodiscard]] std::vector<KeptFile> CopiesPutAside(FileSystem& files, const std::string& folder); // newest first

class KeptCopies {
public:
  // The folder is created when it is first needed.
  KeptCopies(FileSystem& files, std::string folder) : m_files(files), m_folder(std::move(folder)) {}
  // The last copy that Keep wrote remains for a later start.
  ~KeptCopies();
  KeptCopies(const KeptCopies&) = delete;
  KeptCopies& operator=(const KeptCopies&) = delete;

  // Writes or replaces the copy of this window in one step. If it returns false, the previous copy remains.
  [[nodiscard]] bool Keep(const KeptCopy& copy);
  void Drop();     // nothing is unsaved any more
  void PutAside(); // other data has replaced the work

  void SetOpenFile(const std::string& path); // the file that this window shows, or ""
  // This alone may be called while another thread does the rest, which may wait for a slow disk.
  [[nodiscard]] bool IsOpenElsewhere(const std::string& path);

  // The newest copy that an ended window has left, or nullopt. It must be taken or put aside before the next call. No
  // copy is returned twice, even if it can't be moved. Unreadable copies are put aside.
  [[nodiscard]] std::optional<KeptCopy> NextLeft();
  [[nodiscard]] std::vector<std::string> TakeUnreadable(); // their present paths; each is returned once
  void TakeLeft();                                         // it becomes the copy of this window
  void PutLeftAside();                                     // it is not asked about again

private:
  struct Session {
    std::string number;
    OpenFile lock;
    std::string at; // time of its copy; empty if there is none
  };

  [[nodiscard]] std::string LockPath(const std::string& number) const;
  [[nodiscard]] std::string CopyPath(const std::string& number) const;
  [[nodiscard]] bool Begin();
  void NameOpenFile();
  [[nodiscard]] std::vector<std::string> Numbers(); // the numbers of all other sessions
  [[nodiscard]] OpenFile HoldEnded(const std::string& number);
  [[nodiscard]] std::optional<Session> EndedSession(const std::string& number, KeptCopy& copy);
  [[nodiscard]] std::optional<std::string> PutAside(const Session& session); // returns the new path
  void End(Session session);
  void Prune(const std::string& newest);
  void SetOwnNumber(const std::string& number);

  FileSystem& m_files;
  std::string m_folder;
  std::optional<Session> m_own, m_left;
  std::string m_openFile;
  std::set<std::string> m_seen; // numbers of the copies that were offered or can't be read
  std::vector<std::string> m_unreadable;
  std::mutex m_mutex;      // guards what follows
  std::string m_ownNumber; // also of a session that is about to begin
};

} // namespace mr4500x
