#include "kept_copies.h"

#include "file_access.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace mr4500x {
namespace {

constexpr std::uint32_t OwnerOnly = 0600;
constexpr std::size_t MostPutAside = 10;
constexpr std::size_t LargestCopy = 65536; // room for a line about every setting
constexpr std::string_view SessionPrefix = "session-", LockSuffix = ".lock", CopySuffix = ".K4X";
constexpr std::string_view TimeTitle = "Kept: ", SourceTitle = "From: ";
constexpr std::string_view TimePattern = "0000-00-00 00:00:00"; // 0 stands for any digit

bool IsTime(std::string_view text) {
  return std::equal(text.begin(), text.end(), TimePattern.begin(), TimePattern.end(),
                    [](char c, char pattern) { return pattern == '0' ? c >= '0' && c <= '9' : c == pattern; });
}

// "2026-11-25 04:10:33" as the beginning of a file name.
std::string NameOf(std::string time) {
  std::replace(time.begin(), time.end(), ' ', '_');
  std::replace(time.begin(), time.end(), ':', '-');
  return time;
}

bool IsPutAside(std::string_view name) {
  return name.size() > TimePattern.size() && name.ends_with(CopySuffix) && name[TimePattern.size()] == '_' &&
         name[0] >= '0' && name[0] <= '9';
}

// The rest of the line that begins with the title at `text`, which moves on to the next.
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
  std::string text =
      "\n" + std::string(TimeTitle) + copy.at + '\n' + std::string(SourceTitle) + source + '\n' + copy.differences;
  std::vector<std::uint8_t> bytes = copy.data;
  text.resize(std::min(text.size(), LargestCopy - bytes.size()));
  bytes.insert(bytes.end(), text.begin(), text.end());
  return bytes;
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
  bytes.resize(DataFileBytes);
  return KeptCopy{std::move(bytes), *at, *source, std::string(text)};
}

std::string RandomDigits(FileSystem& files) {
  std::array<char, 16> digits{};
  std::uint64_t number = files.UnpredictableNumber();
  for (char& digit : digits) {
    digit = "0123456789abcdef"[number & 0xF];
    number >>= 4U;
  }
  return {digits.begin(), digits.end()};
}

} // namespace

std::string KeptCopies::LockPath(const std::string& number) const {
  return m_folder + '/' + std::string(SessionPrefix) + number + std::string(LockSuffix);
}
std::string KeptCopies::CopyPath(const std::string& number) const {
  return m_folder + '/' + std::string(SessionPrefix) + number + std::string(CopySuffix);
}

KeptCopies::~KeptCopies() {
  for (const auto& session : {m_own, m_left})
    if (session && session->at.empty())
      End(*session);
    else if (session)
      m_files.Close(session->lock);
}

// Makes and holds the lock file. Another window's NextLeft may take it for a left one, and remove it, as long as it is
// not locked: then the next name is tried.
bool KeptCopies::Begin() {
  if (m_own) return true;
  if (!MakeFolderOf(m_files, LockPath(""))) return false;
  for (int attempt = 0; attempt < 3; ++attempt) {
    const std::string number = RandomDigits(m_files);
    const auto lock = m_files.Create(LockPath(number), OwnerOnly);
    if (!lock) return false;
    const bool isLocked = m_files.Lock(*lock) == LockOutcome::Taken;
    const auto status = m_files.Status(LockPath(number));
    if (isLocked && status && status->kind == FileKind::Regular) {
      m_own = Session{number, *lock, ""};
      return true;
    }
    m_files.Close(*lock);
  }
  return false;
}

bool KeptCopies::Keep(const KeptCopy& copy) {
  const auto write = [&] {
    return Begin() && ReplaceFile(m_files, CopyPath(m_own->number), BytesOf(copy), Surplus::Drop, OwnerOnly);
  };
  const bool isWritten = write() || (LosesFolder() && write());
  if (isWritten) m_own->at = copy.at;
  return isWritten;
}

// Somebody has removed the folder: the session's files are gone.
bool KeptCopies::LosesFolder() {
  const auto status = m_files.Status(m_folder);
  if (!m_own || !status || status->kind != FileKind::Missing) return false;
  m_files.Close(m_own->lock);
  m_own.reset();
  return true;
}

void KeptCopies::Drop() {
  if (!m_own || m_own->at.empty()) return;
  if (m_files.Remove(CopyPath(m_own->number))) m_own->at.clear();
}

void KeptCopies::PutAside() {
  if (m_own && !m_own->at.empty() && PutAside(*m_own)) m_own->at.clear();
}

// The session of a lock file that nobody holds, which is then held, with its copy. Without a copy the lock file goes.
std::optional<KeptCopies::Session> KeptCopies::EndedSession(const std::string& name, KeptCopy& copy) {
  if (!name.starts_with(SessionPrefix) || !name.ends_with(LockSuffix)) return std::nullopt;
  const std::string number = name.substr(SessionPrefix.size(), name.size() - SessionPrefix.size() - LockSuffix.size());
  const auto lock = m_files.OpenToRead(m_folder + '/' + name);
  if (!lock) return std::nullopt;
  if (m_files.Lock(*lock) != LockOutcome::Taken) {
    m_files.Close(*lock);
    return std::nullopt;
  }
  Session session{number, *lock, ""};
  std::vector<std::uint8_t> bytes;
  const ReadOutcome outcome = ReadFile(m_files, CopyPath(number), DataFileReadLimit, bytes);
  if (outcome == ReadOutcome::Failed) {
    m_files.Close(*lock);
    return std::nullopt;
  }
  if (outcome == ReadOutcome::Read) {
    if (auto parsed = ParseCopy(std::move(bytes))) {
      copy = std::move(*parsed);
      session.at = copy.at;
      return session;
    }
    session.at = "0000-00-00 00:00:00"; // its time is unknown
    if (!PutAside(session)) {
      m_files.Close(*lock);
      return std::nullopt;
    }
  }
  End(session);
  return std::nullopt;
}

std::optional<KeptCopy> KeptCopies::NextLeft() {
  KeptCopy newest;
  for (const std::string& name : m_files.List(m_folder).value_or(std::vector<std::string>{})) {
    KeptCopy copy;
    auto session = EndedSession(name, copy);
    if (!session) continue;
    if (!m_left || session->at > m_left->at) {
      std::swap(m_left, session);
      std::swap(newest, copy);
    }
    if (session) m_files.Close(session->lock);
  }
  return m_left ? std::optional(std::move(newest)) : std::nullopt;
}

void KeptCopies::TakeLeft() {
  const Session left = *std::exchange(m_left, std::nullopt);
  if (Begin() && m_files.Rename(CopyPath(left.number), CopyPath(m_own->number))) {
    m_own->at = left.at;
    End(left);
  } else {
    m_files.Close(left.lock);
  }
}

void KeptCopies::PutLeftAside() {
  const Session left = *std::exchange(m_left, std::nullopt);
  if (PutAside(left))
    End(left);
  else
    m_files.Close(left.lock);
}

bool KeptCopies::PutAside(const Session& session) {
  const std::string name = NameOf(session.at) + '_' + RandomDigits(m_files) + std::string(CopySuffix);
  if (!m_files.Rename(CopyPath(session.number), m_folder + '/' + name)) return false;
  Prune(name);
  return true;
}

void KeptCopies::End(const Session& session) {
  static_cast<void>(m_files.Remove(LockPath(session.number)));
  m_files.Close(session.lock);
}

// The one just put aside stays, even if its time comes from a clock that is wrong, or isn't known.
void KeptCopies::Prune(const std::string& newest) {
  std::vector<std::string> names = m_files.List(m_folder).value_or(std::vector<std::string>{});
  std::erase_if(names, [&](const std::string& name) { return !IsPutAside(name) || name == newest; });
  std::sort(names.begin(), names.end(), std::greater<>());
  for (std::size_t i = MostPutAside - 1; i < names.size(); ++i)
    static_cast<void>(m_files.Remove(m_folder + '/' + names[i]));
}

} // namespace mr4500x
