#include "pending_attempts.h"

#include "attempt_records.h"
#include "csv.h"
#include "file_access.h"

#include <utility>

namespace mr4500x {
namespace {

constexpr std::uint32_t OwnerOnly = 0600;
constexpr int MostProcesses = 16;
constexpr std::size_t LargestFile = std::size_t{1} << 24;
constexpr std::string_view DataEnding = ".csv", LockEnding = ".lock";

} // namespace

PendingAttempts::PendingAttempts(FileSystem& files, std::string path) : m_files(files), m_path(std::move(path)) {
  const bool hasFolder = MakeFolderOf(m_files, m_path);
  for (int number = 1; hasFolder && number <= MostProcesses; ++number) {
    const bool isLeft = !IsMissing(m_files, PathOf(number, DataEnding));
    if (m_number != 0 && !isLeft) continue;
    OpenFile lock = Lock(number);
    if (!lock || (isLeft && !Adopt(number))) continue; // a damaged file is left for the user to examine
    if (m_number == 0) {
      m_number = number;
      m_lock = std::move(lock);
      continue;
    }
    Store();
    if (m_isKept) static_cast<void>(m_files.Remove(PathOf(number, DataEnding)));
  }
}

Attempt PendingAttempts::Enter(Journal& journal, const Attempt& attempt) {
  if (EnterPending(journal))
    if (const auto entered = journal.Enter(attempt)) return *entered;
  const std::lock_guard guard(m_mutex);
  m_attempts.push_back(attempt);
  Store();
  return attempt;
}

bool PendingAttempts::EnterPending(Journal& journal) {
  if (Count() == 0) return true;
  const std::unique_lock handingIn(m_handingIn, std::try_to_lock);
  if (!handingIn) return false;
  bool hasEntered = false;
  while (const std::optional<Attempt> next = First()) {
    const auto entered = journal.Enter(*next);
    if (!entered) break;
    const std::lock_guard guard(m_mutex);
    if (entered->outcome == AttemptOutcome::Conflict) m_conflicts.push_back(*entered);
    m_attempts.erase(m_attempts.begin()); // others have only added to its end
    hasEntered = true;
  }
  const std::lock_guard guard(m_mutex);
  if (hasEntered) Store();
  return m_attempts.empty();
}

std::optional<Attempt> PendingAttempts::First() {
  const std::lock_guard guard(m_mutex);
  return m_attempts.empty() ? std::nullopt : std::optional(m_attempts.front());
}

std::size_t PendingAttempts::Count() {
  const std::lock_guard guard(m_mutex);
  return m_attempts.size();
}

bool PendingAttempts::IsKept() {
  const std::lock_guard guard(m_mutex);
  return m_isKept;
}

std::vector<Attempt> PendingAttempts::TakeConflicts() {
  const std::lock_guard guard(m_mutex);
  return std::exchange(m_conflicts, {});
}

std::string PendingAttempts::PathOf(int number, std::string_view ending) const {
  return m_path + '-' + std::to_string(number) + std::string(ending);
}

// An empty file if another process holds the lock.
OpenFile PendingAttempts::Lock(int number) {
  OpenFile file(m_files, m_files.OpenToWrite(PathOf(number, LockEnding), OwnerOnly));
  const bool isHeld = file && m_files.Lock(*file) == LockOutcome::HeldByOther;
  return isHeld ? OpenFile() : std::move(file);
}

// Returns false, and takes nothing, if the file can't be read completely.
bool PendingAttempts::Adopt(int number) {
  std::vector<std::uint8_t> bytes;
  if (ReadFile(m_files, PathOf(number, DataEnding), LargestFile, bytes) != ReadOutcome::Read) return false;
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  const std::vector<Attempt> attempts = ParseAttempts(text);
  if (ReadCsv(text).rows.size() != attempts.size() + 1) return false; // one more for the heading
  m_attempts.insert(m_attempts.end(), attempts.begin(), attempts.end());
  return true;
}

void PendingAttempts::Store() {
  const std::string path = PathOf(m_number, DataEnding), text = AttemptsCsv(m_attempts, CsvUse::ForParsing);
  const auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  if (m_attempts.empty())
    m_isKept = IsMissing(m_files, path) || m_files.Remove(path);
  else
    m_isKept = m_number != 0 && ReplaceFile(m_files, path, bytes, Surplus::Drop, OwnerOnly);
}

} // namespace mr4500x
