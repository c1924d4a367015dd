#include "sql_connection.h"

#include "machine_files.h"
#include "paths.h"

#include <QFile>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QUrl>
#include <QUrlQuery>

#include <filesystem>

#include <algorithm>

namespace mr4500x {
namespace {

// Limits how long an unreachable server, or a bench stuck in a transaction, can block the others.
constexpr char ServerOptions[] = "connect_timeout=3;tcp_user_timeout=5000;"
                                 "options='-c lock_timeout=3000 -c idle_in_transaction_session_timeout=5000"
                                 " -c client_min_messages=error'";
constexpr char FileOptions[] = "QSQLITE_BUSY_TIMEOUT=5000";
constexpr char FileOptionsToList[] = "QSQLITE_BUSY_TIMEOUT=5000;QSQLITE_OPEN_URI";
constexpr char FrozenFileOptions[] = "QSQLITE_OPEN_READONLY;QSQLITE_OPEN_URI";

constexpr std::uint64_t SmallestDatabase = 512; // bytes; SQLite treats a file of one byte as empty

int KnownVersion() {
  return static_cast<int>(SchemaVersions.size());
}

bool IsServer(const std::string& address) {
  return address.find("://") != std::string::npos;
}

QString UriOf(const std::string& file, const char* query) {
  return "file:" + QUrl::toPercentEncoding(QString::fromStdString(file), "/") + QLatin1String(query);
}

// Not in Qt's global list of connections, which is destroyed while an abandoned call may still be using its connection.
struct OwnDatabase : QSqlDatabase {
  explicit OwnDatabase(const QString& driver) : QSqlDatabase(driver) {}
};

// The statement with the values instead of their names. Names within quotes are not replaced.
QString WithValues(const QSqlDatabase& database, const QString& statement, const Values& values) {
  QString filled;
  bool isQuoted = false;
  for (qsizetype at = 0; at < statement.size(); ++at) {
    if (statement[at] == '\'') isQuoted = !isQuoted;
    qsizetype end = at + 1;
    while (end < statement.size() && (statement[end].isLetterOrNumber() || statement[end] == '_'))
      ++end;
    const auto named = isQuoted || statement[at] != ':'
                           ? values.end()
                           : std::ranges::find(values, statement.mid(at, end - at), &Values::value_type::first);
    if (named == values.end()) {
      filled += statement[at];
      continue;
    }
    QSqlField field({}, named->second.metaType());
    field.setValue(named->second);
    filled += database.driver()->formatValue(field);
    at = end - 1;
  }
  return filled;
}

} // namespace

std::string FileOfJournal(const std::string& address) {
  constexpr std::string_view OfFile = "sqlite:";
  if (IsServer(address)) return "";
  const std::string file = address.starts_with(OfFile) ? address.substr(OfFile.size()) : address;
  return file.empty() ? "." : file; // for SQLite an empty path means a temporary file
}

SqlConnection::SqlConnection(const std::string& address, JournalUse use, std::function<bool()> mayContinue)
    : m_address(address), m_file(FileOfJournal(address)), m_use(use),
      m_dialect(IsServer(address) ? PostgreSql : Sqlite), m_mayContinue(std::move(mayContinue)) {
  if (!QSqlDatabase::isDriverAvailable(m_dialect.driver)) return; // reported when it is needed
  m_database = OwnDatabase(m_dialect.driver);
  if (IsServer(address)) {
    UseServer();
  } else {
    // Opened for writing if possible, even to list it. Otherwise the files beside it would remain.
    const bool isListed = use == JournalUse::List;
    m_database.setDatabaseName(isListed ? UriOf(m_file, "?mode=rw") : QString::fromStdString(m_file));
    m_database.setConnectOptions(isListed ? FileOptionsToList : FileOptions);
  }
}

void SqlConnection::UseServer() {
  const QUrl url(QString::fromStdString(m_address));
  m_database.setHostName(url.host());
  if (url.port() > 0) m_database.setPort(url.port());
  m_database.setUserName(url.userName());
  m_database.setPassword(url.password());
  m_database.setDatabaseName(url.path().mid(1));
  QString options = ServerOptions;
  for (const auto& [name, value] :
       QUrlQuery(url).queryItems(QUrl::FullyDecoded)) // if a name occurs twice, the last one counts
    options += ';' + name + "='" + QString(value).replace('\\', "\\\\").replace('\'', "\\'") + '\'';
  m_database.setConnectOptions(options);
}

bool SqlConnection::Open() {
  if (!CheckFile()) return false;
  if (m_database.isOpen()) return true;
  if (!OpenDatabase() || !UpgradeSchema()) return false;
  if (m_use == JournalUse::List && !m_file.empty() && !Run("PRAGMA query_only = 1")) return false;
  return CheckFile(); // what it is now
}

bool SqlConnection::OpenDatabase() {
  const QUrl url(QString::fromStdString(m_address)); // of an invalid one, the default server would be used
  const bool isUrl = url.isValid() && url.port() != 0 && !url.hasFragment() && m_address.starts_with("postgres");
  if (IsServer(m_address) && !isUrl)
    return Fail(QStringLiteral("A journal is a file or postgresql://user@host:port/database."));
  if (!m_database.isValid())
    return Fail(QStringLiteral("Qt's driver %1 is missing (%2).").arg(m_dialect.driver, m_dialect.package));
  // To open it would leave files beside it that block its owner.
  const bool isProtected = QFile::exists(QString::fromStdString(m_file)) && !MachineFiles().CanWrite(m_file);
  if (m_use == JournalUse::Enter && isProtected) return Fail(QStringLiteral("The journal is write-protected."));
  if (!m_database.open()) return Fail(m_database.lastError());
  if (m_use == JournalUse::Enter)
    for (const char* const statement : m_dialect.onConnect)
      static_cast<void>(Run(statement));
  else if (!m_file.empty()) {
    // As long as no bench has it open, it is read without files beside it.
    const auto isOpen = [&] { return QFile::exists(QString::fromStdString(m_file + "-wal")); };
    if ((isOpen() || !isProtected) && Run("SELECT 1 FROM sqlite_master")) return true;
    if (isOpen()) return false;
    m_database.close();
    m_database.setDatabaseName(UriOf(m_file, "?immutable=1"));
    m_database.setConnectOptions(FrozenFileOptions);
  }
  return m_database.isOpen() || m_database.open() || Fail(m_database.lastError());
}

// Entries in a file that was moved or deleted would be lost, and another file in its place would not have the rows.
bool SqlConnection::CheckFile() {
  if (m_file.empty()) return true;
  std::error_code unknown;
  const std::string file = TextOf(std::filesystem::weakly_canonical(PathOf(m_file), unknown));
  const FileStatus found = MachineFiles().Status(file).value_or(FileStatus{});
  const bool isThere = found.kind != FileKind::Missing;
  const FileId id = {found.device, found.number};
  if (m_fileId) return (isThere && id == *m_fileId) || Fail("The journal was moved, deleted or replaced.");
  if (!isThere) return m_use == JournalUse::Enter || Fail("The journal does not exist.");
  // Checks only the size, because closing a file releases the process's locks on it. SQLite itself refuses larger
  // files.
  const bool mayBeJournal = found.kind == FileKind::Regular && (found.size == 0 || found.size >= SmallestDatabase);
  if (!mayBeJournal) return Fail("The file is not a journal.");
  if (m_database.isOpen()) m_fileId = id;
  return true;
}

bool SqlConnection::UpgradeSchema() {
  std::optional<int> version = SchemaVersion();
  m_isEmpty = version == 0 && m_use == JournalUse::List;
  if (m_isEmpty) return true;
  if (version && *version < KnownVersion())
    version = InTransaction([&] { return UpgradeOnce(); }) ? SchemaVersion() : std::nullopt;
  return version && (*version <= KnownVersion() || Fail("The journal was made by a later version of this program."));
}

// 0 for a new database, which is a new journal; nullopt if it is not a journal, or does not answer.
std::optional<int> SqlConnection::SchemaVersion() {
  auto names = Run(m_dialect.tables); // QSqlDatabase would list none if they can't be read
  if (!names) return std::nullopt;
  QStringList tables;
  while (names->next())
    tables.append(names->value(0).toString());
  if (!tables.contains("fleet_schema")) {
    const bool mayBegin = tables.isEmpty() || (m_use == JournalUse::Enter && m_file.empty());
    if (!mayBegin) Fail("The file is not a journal.");
    return mayBegin ? std::optional(0) : std::nullopt;
  }
  auto query = Run("SELECT version FROM fleet_schema");
  if (!query) return std::nullopt;
  return query->next() ? query->value(0).toInt() : 0;
}

// Several processes may find a new database at the same time. The first one upgrades it, and the others find it
// upgraded.
bool SqlConnection::UpgradeOnce() {
  if (!Run(m_dialect.lockSchema)) return false;
  const std::optional<int> version = SchemaVersion();
  if (!version || *version >= KnownVersion()) return version.has_value();
  QStringList statements;
  if (*version == 0) statements.append("CREATE TABLE fleet_schema (version BIGINT NOT NULL)");
  for (const auto& upgrade : SchemaVersions.subspan(static_cast<std::size_t>(*version)))
    statements += QStringList(upgrade.begin(), upgrade.end());
  statements << "DELETE FROM fleet_schema"
             << "INSERT INTO fleet_schema VALUES (:version)";
  return RunAll(statements, {{":version", KnownVersion()}}).has_value();
}

bool SqlConnection::Fail(const QString& error) {
  m_error = error.toStdString();
  m_details.clear();
  m_failure = SqlFailure::Other;
  m_database.close();
  return false;
}

bool SqlConnection::Fail(const QSqlError& error) {
  const auto [failure, words] = WordsFor(error, m_file.empty());
  Fail(QString::fromLatin1(words));
  m_failure = failure;
  const QString details = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
  m_details = details.simplified().toStdString();
  return false;
}

bool SqlConnection::InTransaction(const std::function<bool()>& steps) {
  return Run(m_dialect.begin) && steps() && Run("COMMIT") && CheckFile();
}

std::optional<QSqlQuery> SqlConnection::Run(const QString& statement, const Values& values) {
  return RunAll({statement}, values);
}

std::optional<QSqlQuery> SqlConnection::RunAll(const QStringList& statements, const Values& values) {
  QStringList filled;
  for (const QString& statement : statements)
    filled.append(WithValues(m_database, StatementFor(m_dialect, statement), values));
  if (m_dialect.takesSeveral) return Execute(filled.join(QLatin1Char(';')), static_cast<int>(filled.size()));
  std::optional<QSqlQuery> query;
  for (const QString& sql : filled) {
    query = Execute(sql, 1);
    if (!query) break;
  }
  return query;
}

std::optional<QSqlQuery> SqlConnection::Execute(const QString& sql, int results) {
  // The driver may have noticed that the server is gone.
  if (!m_database.isOpen() || !m_mayContinue()) {
    Fail(QSqlError());
    return std::nullopt;
  }
  std::optional<QSqlQuery> query(std::in_place, m_database);
  query->setForwardOnly(true);
  bool isDone = query->exec(sql);
  for (int i = 1; isDone && i < results; ++i)
    isDone = query->nextResult();
  if (isDone) return query;
  const QSqlError error = query->lastError();
  query.reset();
  Fail(error);
  return std::nullopt;
}

} // namespace mr4500x
