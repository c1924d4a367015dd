#include "sql_statements.h"

#include "journal.h"

namespace mr4500x {
namespace {

// Entries must outlive a power cut, and readers must not hold up a bench. Two processes that open a new file at once
// may fail to switch it; the next one does.
constexpr const char* SqliteOnConnect[] = {"PRAGMA journal_mode = WAL", "PRAGMA synchronous = FULL"};

constexpr const char* Version1[] = {
    "CREATE TABLE fleet_plan (plan TEXT PRIMARY KEY, name TEXT NOT NULL)",
    "CREATE TABLE fleet_bench (bench TEXT PRIMARY KEY, heard BIGINT NOT NULL)",
    "CREATE TABLE fleet_row (plan TEXT NOT NULL REFERENCES fleet_plan, number BIGINT NOT NULL,"
    " label TEXT NOT NULL DEFAULT '', radio TEXT NOT NULL DEFAULT '', state TEXT NOT NULL DEFAULT 'free',"
    " bench TEXT NOT NULL DEFAULT '', claim TEXT NOT NULL DEFAULT '', id_number TEXT NOT NULL DEFAULT '',"
    " PRIMARY KEY (plan, number))",
    "CREATE TABLE fleet_attempt (attempt_key TEXT PRIMARY KEY, plan TEXT NOT NULL, number BIGINT NOT NULL,"
    " label TEXT NOT NULL, id_number TEXT NOT NULL, firmware TEXT NOT NULL, band TEXT NOT NULL, port TEXT NOT NULL,"
    " bench TEXT NOT NULL, started TEXT NOT NULL, ended TEXT NOT NULL, outcome TEXT NOT NULL, said TEXT NOT NULL,"
    " backup TEXT NOT NULL, sha256 TEXT NOT NULL)",
};
constexpr std::span<const char* const> Versions[] = {Version1};

} // namespace

const Dialect Sqlite = {.driver = "QSQLITE",
                        .package = "libqt6sql6-sqlite",
                        .onConnect = SqliteOnConnect,
                        .begin = "BEGIN IMMEDIATE", // locks the file; a lock that comes later could meet another's
                        .lockSchema = "SELECT 1",
                        .now = "CAST(strftime('%s', 'now') AS BIGINT)",
                        .lock = "",
                        .skip = ""};

const Dialect PostgreSql = {.driver = "QPSQL",
                            .package = "libqt6sql6-psql",
                            .onConnect = {},
                            .begin = "BEGIN ISOLATION LEVEL READ COMMITTED", // each statement sees what others did
                            .lockSchema = "SELECT pg_advisory_xact_lock(4500)",
                            .now = "CAST(extract(epoch FROM clock_timestamp()) AS BIGINT)",
                            .lock = " FOR UPDATE",
                            .skip = " FOR UPDATE SKIP LOCKED"};

const std::span<const std::span<const char* const>> SchemaVersions = Versions;

QString StatementFor(const Dialect& dialect, const QString& statement) {
  const QString isSilent = QStringLiteral("NOT EXISTS (SELECT 1 FROM fleet_bench WHERE fleet_bench.bench = "
                                          "fleet_row.bench AND heard > {now} - %1)")
                               .arg(SilentSeconds);
  return QString(statement)
      .replace("{isFree}", "(state = 'free' OR state = 'taken' AND {isSilent})")
      .replace("{isSilent}", isSilent)
      .replace("{now}", dialect.now)
      .replace("{lock}", dialect.lock)
      .replace("{skip}", dialect.skip);
}

} // namespace mr4500x
