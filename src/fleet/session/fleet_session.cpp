#include "fleet_session.h"

#include "conventions.h"
#include "file_access.h"
#include "input.h"
#include "journal_queries.h"
#include "machine.h"
#include "messages.h"
#include "output.h"
#include "paths.h"
#include "port_devices.h"
#include "settings.h"
#include "sql_journal.h"
#include "tone_codes.h"
#include "traced_port.h"

#include <QDateTime>
#include <QString>
#include <QSysInfo>
#include <QUrl>
#include <QUrlQuery>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>

namespace mr4500x {
namespace {

// The same path for all spellings, because the pending attempts of a journal are found by it.
std::filesystem::path OwnPath(const std::string& path) {
  constexpr int MostLinks = 40;
  std::error_code failed, unknown;
  std::filesystem::path own = std::filesystem::absolute(PathOf(path), failed);
  for (int links = 0; links < MostLinks && std::filesystem::is_symlink(own, unknown); ++links) // to a missing file
    own = own.parent_path() / std::filesystem::read_symlink(own, unknown);
  own = std::filesystem::weakly_canonical(own, failed);
  return failed ? PathOf(path) : own;
}

bool IsSame(const std::string& a, const std::string& b) {
  std::error_code unknown; // set for a missing file
  return OwnPath(a) == OwnPath(b) || std::filesystem::equivalent(PathOf(a), PathOf(b), unknown);
}

// Whether the path is the folder, or above it.
bool HoldsFolder(const std::string& path, const std::string& folder) {
  const std::filesystem::path own = OwnPath(path), below = OwnPath(folder);
  return std::mismatch(own.begin(), own.end(), below.begin(), below.end()).first == own.end();
}

std::filesystem::path Beside(const FleetChoice& choice) {
  return OwnPath(choice.templateFile == Stream || OpenFileNamed(choice.templateFile) ? "fleet" : choice.templateFile);
}

std::string NewBenchName(FileSystem& files) {
  std::ostringstream name; // with a random number, because machines may have the same name
  name << QSysInfo::machineHostName().toStdString() << '-' << getpid() << '-' << std::hex
       << files.UnpredictableNumber() % 0x10000;
  return name.str();
}

// A port that owns what its trace needs.
struct TraceParts {
  std::unique_ptr<SerialPort> port;
  SteadyClock clock;
};
class OwningTracedPort final : TraceParts, public TracedPort {
public:
  OwningTracedPort(std::unique_ptr<SerialPort> traced, std::ostream& trace)
      : TraceParts{std::move(traced), {}}, TracedPort(*port, clock, LocalNow, trace) {}
};

// Each port has its own file, such as "dev-ttyUSB3.txt".
std::vector<std::string> TraceFilesOf(const FleetChoice& choice) {
  std::vector<std::string> files;
  for (const PortAddress& port : choice.ports) {
    if (choice.traceFolder.empty()) break;
    std::string name = DisplayName(port);
    for (const char separator : Separators)
      std::ranges::replace(name, separator, '-');
    name.erase(0, name.find_first_not_of(".-")); // not a hidden file
    std::string file = choice.traceFolder + Separator + name + ".txt";
    for (int number = 2; std::ranges::find(files, file) != files.end(); ++number) // x-y after x/y
      file = choice.traceFolder + Separator + name + '_' + std::to_string(number) + ".txt";
    files.push_back(std::move(file));
  }
  return files;
}

// Each trace is added to what its file has.
std::deque<std::ofstream> OpenTraces(const FleetChoice& choice) {
  std::deque<std::ofstream> traces;
  if (choice.traceFolder.empty()) return traces;
  std::error_code failed; // shows when they are opened
  std::filesystem::create_directories(PathOf(choice.traceFolder), failed);
  for (const std::string& file : TraceFilesOf(choice))
    traces.emplace_back(PathOf(file), std::ios::app);
  return traces;
}

std::vector<BenchPort> BenchPortsOf(const std::vector<PortAddress>& ports, FileSystem& files,
                                    const std::string& settingsFile, std::deque<std::ofstream>& traces) {
  std::vector<BenchPort> made;
  made.reserve(ports.size());
  const auto pins = PortDevices(files, settingsFile);
  for (const PortAddress& port : ports) {
    std::ofstream* const trace = traces.empty() ? nullptr : &traces[made.size()];
    const auto makePort = [port, pins, trace]() -> std::unique_ptr<SerialPort> {
      auto serial = MakePort(port, pins);
      if (trace == nullptr) return serial;
      return std::make_unique<OwningTracedPort>(std::move(serial), *trace);
    };
    made.push_back(
        {DisplayName(port), makePort, [] { return std::make_unique<SteadyClock>(); }, std::max(1, port.number)});
  }
  return made;
}

} // namespace

std::string JournalOf(const FleetChoice& choice) {
  if (choice.journal.empty()) return TextOf(Beside(choice).replace_extension(".journal"));
  const std::string file = FileOfJournal(choice.journal);
  return file.empty() ? choice.journal : TextOf(OwnPath(file));
}

std::string WithoutPassword(const std::string& address) {
  if (!FileOfJournal(address).empty()) return address;
  QUrl url(QString::fromStdString(address));
  if (!url.isValid()) return "the address"; // in which the password can't be found
  QUrlQuery query(url);
  if (url.password().isEmpty() && !query.hasQueryItem(QStringLiteral("password"))) return address;
  url.setPassword(QString());
  query.removeAllQueryItems(QStringLiteral("password"));
  url.setQuery(query.isEmpty() ? QString() : query.query());
  return url.toString(QUrl::FullyEncoded).toStdString();
}

bool IsNeeded(const FleetChoice& choice, const std::string& path) {
  const std::string journal = FileOfJournal(JournalOf(choice));
  const std::string needed[] = {choice.templateFile, choice.rowsFile, journal, journal + "-wal", journal + "-shm"};
  return std::ranges::any_of(needed, [&](const std::string& file) { return IsSame(file, path); });
}

std::string FileUsedTwice(const FleetChoice& choice, const std::string& logFile) {
  for (const std::string& trace : TraceFilesOf(choice))
    if (IsNeeded(choice, trace) || IsSame(trace, logFile) || !StandardStreamAt(trace).empty()) return trace;
  for (const std::string& input : {choice.templateFile, choice.rowsFile})
    if (!StandardStreamAt(input == Stream ? "/dev/stdin" : input).empty()) return input;
  const std::string journal = FileOfJournal(JournalOf(choice));
  for (const std::string& file : {logFile, journal, journal + "-wal", journal + "-shm"}) {
    std::error_code unknown;
    const bool isFile = !file.empty() && (file == logFile || !journal.empty()) &&
                        !std::filesystem::is_directory(PathOf(file), unknown); // refused in any case
    const bool isFolder = HoldsFolder(file, BackupFolderOf(choice)) ||
                          (!choice.traceFolder.empty() && HoldsFolder(file, choice.traceFolder));
    if (isFile && (isFolder || !StandardStreamAt(file).empty())) return file;
  }
  return "";
}

FileResult MayStoreTraces(FileSystem& files, const FleetChoice& choice, std::string& path) {
  path = choice.traceFolder;
  FileResult mayStore = path.empty() ? FileResult() : MayStoreIn(files, path);
  for (const std::string& file : TraceFilesOf(choice))
    if (mayStore && IsThere(files, file)) mayStore = MayReplace(files, path = file);
  return mayStore;
}

std::string BackupFolderOf(const FleetChoice& choice) {
  return TextOf(choice.backupFolder.empty() ? Beside(choice).parent_path() / "backups" : OwnPath(choice.backupFolder));
}

PlanCheck LoadPlan(FileSystem& files, const FleetChoice& choice, const FieldTexts& texts, std::istream* input) {
  const auto nameOf = [&](const std::string& path) { return input != nullptr ? NameOfSource(path) : path; };
  std::vector<std::string> problems;
  RadioImage image;
  const LoadResult loaded = LoadInput(files, choice.templateFile, input, image);
  if (loaded.outcome != LoadOutcome::Loaded)
    for (const std::string& line : LinesFor(loaded))
      problems.push_back(nameOf(choice.templateFile) + ": " + line);

  std::optional<std::string> rows;
  if (!choice.rowsFile.empty()) {
    TextInput list = ReadTextInput(files, choice.rowsFile, input);
    if (const std::string failure = LineFor(list); !failure.empty())
      problems.push_back(nameOf(choice.rowsFile) + ": " + failure);
    rows = std::move(list.text);
  }
  if (!problems.empty()) return {{}, problems};
  PlanCheck check = MakePlan(image, nameOf(choice.templateFile), rows, texts, Sha256Of);
  for (std::string& problem : check.problems) // a window shows the list's name
    if (input != nullptr && problem.starts_with("line ")) problem = nameOf(choice.rowsFile) + ' ' + problem;
  return check;
}

std::string ContentOf(FileSystem& files, const FleetChoice& choice) {
  std::string content;
  for (const std::string& file : {choice.templateFile, choice.rowsFile}) {
    const TextInput input = file.empty() ? TextInput() : ReadTextInput(files, file, nullptr);
    content += Sha256Of(input.text) + LineFor(input);
  }
  return content;
}

std::string DeviceOf(FileSystem& files, const std::string& settingsFile, const PortAddress& port) {
  std::string path = port.device;
  if (port.number > 0) path = DeviceOfPort(port.number, PortDevices(files, settingsFile), MachineSerialDevices()).path;
  return path.empty() ? "" : TextOf(OwnPath(path));
}

std::vector<PortAddress> PortsWithDevice(FileSystem& files, const std::string& settingsFile) {
  std::vector<PortAddress> ports;
  std::set<std::string> found;
  for (int number = 1; number <= PortCount; ++number) {
    const std::string device = DeviceOf(files, settingsFile, {number, {}});
    if (!device.empty() && found.insert(device).second) ports.push_back({number, {}});
  }
  return ports;
}

std::string UtcTimestamp() {
  return QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss'Z'")).toStdString();
}

std::string LocalTimestamp(const std::string& utc) {
  const QDateTime time = QDateTime::fromString(QString::fromStdString(utc), Qt::ISODate).toLocalTime();
  if (!utc.ends_with('Z') || !time.isValid()) return utc;
  const int minutes = time.offsetFromUtc() / 60, size = std::abs(minutes);
  const QString offset = QStringLiteral(" %1%2:%3").arg(QLatin1String(minutes < 0 ? "-" : "+"));
  return (time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) +
          offset.arg(size / 60, 2, 10, QLatin1Char('0')).arg(size % 60, 2, 10, QLatin1Char('0')))
      .toStdString();
}

JournalContent ReadJournal(const std::string& address, const std::string& plan) {
  const std::unique_ptr<Journal> journal = OpenJournal(address, JournalUse::List);
  const auto rows = journal->Rows(plan);
  const auto attempts = rows ? journal->Attempts("") : std::nullopt;
  if (!attempts) return {{}, {}, {}, journal->Failure()};
  return {*rows, *attempts, OutdatedRowsOf(*journal, plan), {}};
}

FleetSession::FleetSession(FileSystem& files, const std::string& settingsFile, std::shared_ptr<const Plan> plan,
                           const FleetChoice& choice, BenchEvents events, std::function<void(const Attempt&)> onCommand)
    : m_texts(BuildFieldTexts('.')),
      m_plan(std::move(plan)), m_settings{.plan = *m_plan,
                                          .texts = m_texts,
                                          .files = files,
                                          .bench = NewBenchName(files),
                                          .backupFolder = BackupFolderOf(choice),
                                          .speed = choice.isQuick ? Speed::Quick : Speed::Prescribed,
                                          .acceptsOtherBand = choice.acceptsOtherBand,
                                          .comparesDone = choice.comparesDone,
                                          .rewritesDone = choice.rewritesDone,
                                          .acceptsReissued = choice.acceptsReissued,
                                          .operatorName = choice.operatorName,
                                          .now = LocalNow,
                                          .timestamp = UtcTimestamp,
                                          .sha256 = Sha256Of,
                                          .newKey = NewAttemptKey},
      m_events{.onStatus = std::move(events.onStatus),
               .onConflict = std::move(events.onConflict),
               .onEntered =
                   [this, onEntered = std::move(events.onEntered)](const Attempt& attempt) {
                     if (attempt.outcome == AttemptOutcome::Verified) m_command.Run(attempt);
                     onEntered(attempt);
                   }},
      m_state(choice.count),
      m_pending(files, UserStateFolder() + "/fleet/" + Sha256Of(JournalOf(choice)).substr(0, 16)),
      m_command(choice.onVerified, JournalOf(choice), m_pending, std::move(onCommand)), m_traces(OpenTraces(choice)),
      m_bench({m_settings, m_state, m_pending, m_events}, BenchPortsOf(choice.ports, files, settingsFile, m_traces),
              [address = JournalOf(choice)] { return OpenJournal(address, JournalUse::Enter); }) {}

bool FleetSession::EndTraces() {
  m_state.StopAfterTheseRadios();
  m_bench.Wait();
  return std::ranges::all_of(m_traces, [](std::ofstream& trace) { return static_cast<bool>(trace.flush()); });
}

bool FleetTally::Record(const PortStatus& status) {
  std::optional<PortStatus>& last = m_last[status.port];
  const bool isNews = !last || last->state != status.state || last->row != status.row ||
                      last->idNumber != status.idNumber || last->nextRow != status.nextRow;
  last = status;
  if (!isNews) return false;
  if (status.state == PortState::Done) ++m_done;
  return true;
}

bool FleetTally::HasEnded() const {
  return std::ranges::all_of(m_last,
                             [](const auto& last) { return last && IsEnd(last->state) && !IsByClick(last->remedy); });
}

bool FleetTally::HasStopped() const {
  return std::ranges::all_of(m_last, [](const auto& last) { return last && IsEnd(last->state); });
}

} // namespace mr4500x
