#include "kept_copies.h"

#include "conventions.h"
#include "file_access.h"
#include "text.h"

#include <algorithm>
#include <array>
#include <span>
#include <sstream>
#include <string_view>
#include <utility>

namespace mr4500x {
namespace {

constexpr std::uint32_t OwnerOnly = 0600;
constexpr std::size_t MostPutAside = 10;
constexpr std::size_t LargestCopy = 65536; // room for a line about every setting
constexpr std::string_view SessionPrefix = "session-", LockSuffix = ".lock", CopySuffix = ".K4X";
constexpr std::string_view TimeTitle = "Kept: ", SourceTitle = "From: ", InfoTitle = "Info: ";
constexpr std::string_view TimePattern = "0000-00-00 00:00:00"; // 0 stands for any digit

bool IsTime(std::string_view text) {
  return std::equal(text.begin(), text.end(), TimePattern.begin(), TimePattern.end(),
                    [](char c, char pattern) { return pattern == '0' ? IsDigit(c) : c == pattern; });
}

// "2026-11-25 04:10:33" as the beginning of a file name.
std::string NameOf(std::string time) {
  std::replace(time.begin(), time.end(), ' ', '_');
  std::replace(time.begin(), time.end(), ':', '-');
  return time;
}

bool IsPutAside(std::string_view name) {
  return name.size() > TimePattern.size() && name.ends_with(CopySuffix) && name[TimePattern.size()] == '_' &&
         IsDigit(name[0]);
}

// Returns the rest of the line after its title, and advances `text` to the next line.
std::optional<std::string> TakeLine(std::string_view& text, std::string_view title) {
  if (!text.starts_with(title)) return std::nullopt;
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string line(text.substr(title.size(), end - title.size()));
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

std::vector<std::uint8_t> BytesOf(const KeptCopy& copy) {
  std::string source = copy.source;
  std::ranges::replace(source, '\n', ' '); // a path may have one
  std::string text = "\n" + std::string(TimeTitle) + copy.at + '\n' + std::string(SourceTitle) + source + '\n';
  if (copy.info) {
    text += InfoTitle;
    for (const std::uint8_t byte : std::span(copy.info->bytes).first(copy.info->length))
      text += {HexDigit(byte >> 4), HexDigit(byte)};
    text += '\n';
  }
  text += copy.differences;
  std::vector<std::uint8_t> bytes = copy.data;
  text.resize(std::min(text.size(), LargestCopy - bytes.size()));
  bytes.insert(bytes.end(), text.begin(), text.end());
  return bytes;
}

std::optional<EmbeddedInfo> InfoOf(std::string_view digits) {
  EmbeddedInfo info;
  info.length = digits.size() / 2;
  if (digits.size() % 2 != 0 || info.length > info.bytes.size()) return std::nullopt;
  for (std::size_t i = 0; i < info.length; ++i) {
    const auto byte = HexDigitsAfter<2>(digits.substr(2 * i, 2), "");
    if (!byte) return std::nullopt;
    info.bytes[i] = static_cast<std::uint8_t>((*byte)[0] << 4 | (*byte)[1]);
  }
  return info;
}

std::optional<KeptCopy> ParseCopy(std::vector<std::uint8_t> bytes) {
  RadioImage image;
  if (bytes.size() <= DataFileBytes || bytes.size() > LargestCopy ||
      ParseDataFile(bytes, image).outcome != LoadOutcome::Loaded)
    return std::nullopt;
  const std::string lines(bytes.begin() + DataFileBytes + 1, bytes.end());
  std::string_view text = lines;
  KeptCopy copy;
  const auto at = TakeLine(text, TimeTitle), source = TakeLine(text, SourceTitle);
  if (!at || !IsTime(*at) || !source) return std::nullopt;
  const auto digits = TakeLine(text, InfoTitle);
  const auto info = digits ? InfoOf(*digits) : std::nullopt;
  if (digits && !info) return std::nullopt;
  bytes.resize(DataFileBytes);
  return KeptCopy{std::move(bytes), *at, *source, std::string(text), info};
}

// The first line of a system file.
std::string SystemText(FileSystem& files, const std::string& path) {
  std::array<std::uint8_t, 1024> text{};
  const OpenFile file(files, files.OpenToRead(path));
  const std::size_t count = file ? files.ReadAt(*file, 0, text).value_or(0) : 0;
  return {text.begin(), std::find(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(count), '\n')};
}

std::string MachineSuffix(FileSystem& files) {
  return '-' + SystemText(files, "/etc/machine-id") + '-';
}

// "PROCESS-START-MACHINE-" of a process that runs on this machine, by its number or "self". Empty if there is none.
std::string ProcessPrefix(FileSystem& files, const std::string& process) {
  constexpr int StartField = 20; // after the name, which is in parentheses and may hold any character
  const std::string status = SystemText(files, "/proc/" + process + "/stat");
  std::istringstream fields(status.substr(status.rfind(')') + 1));
  std::string start;
  for (int field = 0; field < StartField; ++field)
    fields >> start;
  return fields ? status.substr(0, status.find(' ')) + '-' + start + MachineSuffix(files) : "";
}

std::string PrefixOf(const std::string& number) {
  return number.substr(0, number.rfind('-') + 1);
}

// A process on another machine may still run.
bool HasEnded(FileSystem& files, const std::string& prefix) {
  return prefix.ends_with(MachineSuffix(files)) && ProcessPrefix(files, prefix.substr(0, prefix.find('-'))) != prefix;
}

} // namespace

std::optional<KeptCopy> ReadKeptCopy(FileSystem& files, const std::string& path) {
  std::vector<std::uint8_t> bytes;
  if (ReadFile(files, path, DataFileReadLimit, bytes) != ReadOutcome::Read) return std::nullopt;
  return ParseCopy(std::move(bytes));
}

std::vector<KeptFile> CopiesPutAside(FileSystem& files, const std::string& folder) {
  std::vector<std::string> names = files.List(folder).value_or(std::vector<std::string>{});
  std::erase_if(names, [](const std::string& name) { return !IsPutAside(name); });
  std::ranges::sort(names, std::greater<>());
  std::vector<KeptFile> copies;
  for (const std::string& name : names) {
    std::string at = name.substr(0, TimePattern.size());
    for (std::size_t i = 0; i < at.size(); ++i)
      if (!IsDigit(TimePattern[i])) at[i] = TimePattern[i];
    copies.push_back({folder + Separator + name, at, ReadKeptCopy(files, folder + Separator + name)});
  }
  return copies;
}

std::string KeptCopies::LockPath(const std::string& number) const {
  return m_folder + Separator + std::string(SessionPrefix) + number + std::string(LockSuffix);
}
std::string KeptCopies::CopyPath(const std::string& number) const {
  return m_folder + Separator + std::string(SessionPrefix) + number + std::string(CopySuffix);
}

KeptCopies::~KeptCopies() {
  if (m_own && m_own->at.empty()) End(*std::move(m_own));
}

// Creates and holds the lock file. Until it is locked, another window's NextLeft may mistake it for a leftover and
// remove it; then the next name is tried. If files can't be locked, the name begins with the process.
bool KeptCopies::Begin() {
  if (m_own) return true;
  if (!MakeFolderOf(m_files, LockPath(""))) return false;
  std::string prefix;
  for (int attempt = 0; attempt < 3; ++attempt) {
    const std::string number = prefix + HexText(m_files.UnpredictableNumber());
    SetOwnNumber(number);
    Session session{number, {m_files, m_files.Create(LockPath(number), OwnerOnly)}, ""};
    if (!session.lock) return false;
    const LockOutcome outcome = m_files.Lock(*session.lock);
    const auto status = m_files.Status(LockPath(number));
    if ((outcome == LockOutcome::Taken || !prefix.empty()) && status && status->kind == FileKind::Regular) {
      m_own = std::move(session);
      NameOpenFile();
      return true;
    }
    if (outcome != LockOutcome::NotPossible) continue;
    End(std::move(session));
    prefix = ProcessPrefix(m_files, "self");
  }
  return false;
}

void KeptCopies::SetOpenFile(const std::string& path) {
  m_openFile = path;
  if (m_own)
    NameOpenFile();
  else if (!path.empty())
    static_cast<void>(Begin()); // without the folder no other window is warned
}

void KeptCopies::NameOpenFile() {
  std::vector<std::uint8_t> bytes(m_openFile.begin(), m_openFile.end());
  bytes.push_back(0);
  static_cast<void>(m_files.Write(*m_own->lock, bytes));
}

bool KeptCopies::IsOpenElsewhere(const std::string& path) {
  for (const std::string& number : Numbers()) {
    std::vector<std::uint8_t> bytes;
    if (ReadFile(m_files, LockPath(number), LargestCopy, bytes) != ReadOutcome::Read || bytes.size() < 2) continue;
    const auto begin = std::find(bytes.rbegin() + 1, bytes.rend(), 0).base();
    if (IsSameFile(m_files, {begin, bytes.end() - 1}, path) && !HoldEnded(number)) return true;
  }
  return false;
}

bool KeptCopies::Keep(const KeptCopy& copy) {
  const auto lock = m_own ? m_files.Status(LockPath(m_own->number)) : std::nullopt;
  std::optional<Session> lost; // without its lock file, no later start would offer its copy
  if (lock && lock->kind == FileKind::Missing) lost = std::exchange(m_own, std::nullopt);
  if (!Begin() || !ReplaceFile(m_files, CopyPath(m_own->number), BytesOf(copy), Surplus::Drop, OwnerOnly)) return false;
  m_own->at = copy.at;
  if (lost) static_cast<void>(m_files.Remove(CopyPath(lost->number)));
  return true;
}

void KeptCopies::Drop() {
  if (!m_own || m_own->at.empty()) return;
  if (m_files.Remove(CopyPath(m_own->number))) m_own->at.clear();
}

void KeptCopies::PutAside() {
  if (m_own && !m_own->at.empty() && PutAside(*m_own)) m_own->at.clear();
}

std::vector<std::string> KeptCopies::Numbers() {
  std::vector<std::string> numbers;
  for (const std::string& name : m_files.List(m_folder).value_or(std::vector<std::string>{})) {
    if (!name.starts_with(SessionPrefix) || !name.ends_with(LockSuffix)) continue;
    numbers.push_back(name.substr(SessionPrefix.size(), name.size() - SessionPrefix.size() - LockSuffix.size()));
  }
  const std::lock_guard guard(m_mutex);
  std::erase(numbers, m_ownNumber);
  return numbers;
}

void KeptCopies::SetOwnNumber(const std::string& number) {
  const std::lock_guard guard(m_mutex);
  m_ownNumber = number;
}

// The lock file of a session that has ended, held from now on. Some network file systems lock only files that are open
// for writing, but a read-only file system may also support locks.
OpenFile KeptCopies::HoldEnded(const std::string& number) {
  OpenFile lock(m_files, m_files.OpenToWrite(LockPath(number), OwnerOnly));
  if (!lock) lock = {m_files, m_files.OpenToRead(LockPath(number))};
  if (!lock) return lock;
  const bool isLocked = m_files.Lock(*lock) == LockOutcome::Taken;
  const std::string prefix = PrefixOf(number);
  return (prefix.empty() ? isLocked : HasEnded(m_files, prefix)) ? std::move(lock) : OpenFile();
}

// A session that has ended, with its copy. Its lock is held from now on. Without a copy, the lock file is removed.
std::optional<KeptCopies::Session> KeptCopies::EndedSession(const std::string& number, KeptCopy& copy) {
  if (m_seen.contains(number)) return std::nullopt;
  Session session{number, HoldEnded(number), ""};
  if (!session.lock) return std::nullopt;
  std::vector<std::uint8_t> bytes;
  const ReadOutcome outcome = ReadFile(m_files, CopyPath(number), DataFileReadLimit, bytes);
  if (outcome == ReadOutcome::Failed) return std::nullopt;
  if (outcome == ReadOutcome::Read) {
    if (auto parsed = ParseCopy(std::move(bytes))) {
      copy = std::move(*parsed);
      session.at = copy.at;
      return session;
    }
    m_seen.insert(number);
    session.at = TimestampText(m_files.Status(CopyPath(number)).value_or(FileStatus{}).changed);
    const auto path = PutAside(session);
    m_unreadable.push_back(path.value_or(CopyPath(number)));
    if (!path) return std::nullopt;
  }
  End(std::move(session));
  return std::nullopt;
}

std::optional<KeptCopy> KeptCopies::NextLeft() {
  KeptCopy newest;
  for (const std::string& number : Numbers()) {
    KeptCopy copy;
    auto session = EndedSession(number, copy);
    if (!session || (m_left && session->at <= m_left->at)) continue;
    m_left = std::move(session);
    newest = std::move(copy);
  }
  if (!m_left) return std::nullopt;
  m_seen.insert(m_left->number);
  return newest;
}

std::vector<std::string> KeptCopies::TakeUnreadable() {
  return std::exchange(m_unreadable, {});
}

void KeptCopies::TakeLeft() {
  Session left = *std::exchange(m_left, std::nullopt);
  if (!Begin() || !m_files.Rename(CopyPath(left.number), CopyPath(m_own->number))) return;
  m_own->at = left.at;
  End(std::move(left));
}

void KeptCopies::PutLeftAside() {
  Session left = *std::exchange(m_left, std::nullopt);
  if (PutAside(left)) End(std::move(left));
}

std::optional<std::string> KeptCopies::PutAside(const Session& session) {
  const std::string name = NameOf(session.at) + '_' + HexText(m_files.UnpredictableNumber()) + std::string(CopySuffix);
  if (!m_files.Rename(CopyPath(session.number), m_folder + Separator + name)) return std::nullopt;
  Prune(name);
  return m_folder + Separator + name;
}

// The lock file is removed before another process can hold it.
void KeptCopies::End(Session session) {
  static_cast<void>(m_files.Remove(LockPath(session.number)));
}

// The copy that was just put aside stays, even if its time is unknown or comes from a wrong clock.
void KeptCopies::Prune(const std::string& newest) {
  std::vector<std::string> names = m_files.List(m_folder).value_or(std::vector<std::string>{});
  std::erase_if(names, [&](const std::string& name) { return !IsPutAside(name) || name == newest; });
  std::sort(names.begin(), names.end(), std::greater<>());
  for (std::size_t i = MostPutAside - 1; i < names.size(); ++i)
    static_cast<void>(m_files.Remove(m_folder + Separator + names[i]));
}

} // namespace mr4500x
