#include "sql_statements.h"

#include "conventions.h"
#include "journal.h"

#include <chrono>

namespace mr4500x {
namespace {

// Entries must survive a power cut, and readers must not block a bench. Two processes that open a new file at the same
// time may fail to switch its mode. The next one does it.
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
// The database itself ensures "exactly once": a row of a plan is unique by its primary key, and a radio has at most one
// row. If version 1 has a radio twice, the first row keeps it. The attempts have both.
constexpr const char* Version2[] = {
    "ALTER TABLE fleet_row ADD COLUMN stamp TEXT NOT NULL DEFAULT ''",
    "ALTER TABLE fleet_attempt ADD COLUMN stamp TEXT NOT NULL DEFAULT ''",
    "ALTER TABLE fleet_attempt ADD COLUMN operator_name TEXT NOT NULL DEFAULT ''",
    "UPDATE fleet_row SET state = 'free', bench = '', claim = '', id_number = '' WHERE state = 'taken' AND EXISTS"
    " (SELECT 1 FROM fleet_row other WHERE other.plan = fleet_row.plan AND other.id_number = fleet_row.id_number"
    " AND (other.state = 'done' OR other.state = 'taken' AND other.number < fleet_row.number))",
    "UPDATE fleet_row SET id_number = id_number || ' (row ' || number || ')' WHERE state = 'done' AND EXISTS"
    " (SELECT 1 FROM fleet_row other WHERE other.plan = fleet_row.plan AND other.id_number = fleet_row.id_number"
    " AND other.state = 'done' AND other.number < fleet_row.number)",
    "CREATE UNIQUE INDEX fleet_row_radio ON fleet_row (plan, id_number)"
    " WHERE state IN ('taken', 'done') AND id_number <> ''",
    "CREATE INDEX fleet_attempt_begun ON fleet_attempt (bench, port) WHERE outcome = 'begun'",
    "CREATE VIEW attempts AS SELECT number AS \"row\", outcome, started, ended, label, id_number, firmware, band, port,"
    " bench, operator_name, said AS text, backup, sha256, stamp, plan, attempt_key FROM fleet_attempt",
    "CREATE VIEW radios AS SELECT id_number, firmware, band, outcome, said AS text, number AS \"row\", label, ended,"
    " stamp, sha256, backup, plan FROM fleet_attempt last WHERE id_number <> ''"
    " AND outcome NOT IN ('no row', 'done before') AND NOT EXISTS (SELECT 1 FROM fleet_attempt later"
    " WHERE later.id_number = last.id_number AND later.outcome NOT IN ('no row', 'done before')"
    " AND (later.started > last.started OR later.started = last.started AND later.attempt_key > last.attempt_key))",
    "CREATE VIEW progress AS SELECT plan, name,"
    " (SELECT count(*) FROM fleet_row WHERE fleet_row.plan = fleet_plan.plan) AS row_count,"
    " (SELECT count(*) FROM fleet_row WHERE fleet_row.plan = fleet_plan.plan AND state = 'done') AS done,"
    " (SELECT count(*) FROM fleet_row WHERE fleet_row.plan = fleet_plan.plan AND state = 'taken') AS taken,"
    " (SELECT count(*) FROM fleet_attempt WHERE fleet_attempt.plan = fleet_plan.plan AND outcome = 'failed') AS "
    "failures"
    " FROM fleet_plan",
};
// So that a list that has changed is compared with the one before. What earlier versions have done is known by its
// checksum; a text that it came with is not, and such a row counts as changed. Notes and decisions are no attempts.
constexpr const char* Version3[] = {
    "ALTER TABLE fleet_plan ADD COLUMN template TEXT NOT NULL DEFAULT ''",
    "ALTER TABLE fleet_plan ADD COLUMN begun TEXT NOT NULL DEFAULT ''",
    "ALTER TABLE fleet_row ADD COLUMN content TEXT NOT NULL DEFAULT ''",
    "CREATE INDEX fleet_attempt_radio ON fleet_attempt (id_number, started)",
    "UPDATE fleet_row SET content = coalesce((SELECT max(sha256) FROM fleet_attempt WHERE outcome = 'verified'"
    " AND fleet_attempt.plan = fleet_row.plan AND fleet_attempt.number = fleet_row.number"
    " AND fleet_attempt.id_number = fleet_row.id_number AND fleet_attempt.stamp = fleet_row.stamp), '')"
    " WHERE state = 'done'",
    "DROP VIEW radios",
    "CREATE VIEW radios AS SELECT id_number, firmware, band, outcome, said AS text, number AS \"row\", label, ended,"
    " stamp, sha256, backup, plan FROM fleet_attempt last WHERE id_number <> '' AND outcome NOT IN"
    " ('no row', 'done before', 'freed', 'reissued', 'note') AND NOT EXISTS (SELECT 1 FROM fleet_attempt later"
    " WHERE later.id_number = last.id_number AND later.outcome NOT IN"
    " ('no row', 'done before', 'freed', 'reissued', 'note') AND (later.started > last.started"
    " OR later.started = last.started AND later.attempt_key > last.attempt_key))",
};
// So that a long list is not read as a whole again and again. The time of a row's last change is 0 for none.
constexpr const char* Version4[] = {
    "ALTER TABLE fleet_row ADD COLUMN changed BIGINT NOT NULL DEFAULT 0",
    "CREATE INDEX fleet_row_changed ON fleet_row (plan, changed) WHERE changed > 0",
    "CREATE INDEX fleet_row_taken ON fleet_row (plan) WHERE state = 'taken'",
};
// A dismissal is not an attempt either.
constexpr const char* Version5[] = {
    "DROP VIEW radios",
    "CREATE VIEW radios AS SELECT id_number, firmware, band, outcome, said AS text, number AS \"row\", label, ended,"
    " stamp, sha256, backup, plan FROM fleet_attempt last WHERE id_number <> '' AND outcome NOT IN"
    " ('no row', 'done before', 'freed', 'reissued', 'note', 'dismissed') AND NOT EXISTS (SELECT 1 FROM fleet_attempt"
    " later WHERE later.id_number = last.id_number AND later.outcome NOT IN"
    " ('no row', 'done before', 'freed', 'reissued', 'note', 'dismissed') AND (later.started > last.started"
    " OR later.started = last.started AND later.attempt_key > last.attempt_key))",
};
constexpr std::span<const char* const> Versions[] = {Version1, Version2, Version3, Version4, Version5};

// The monotonic clock is the same for all processes and can't be set. It restarts with the machine.
qint64 SteadySeconds() {
  return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace

const Dialect Sqlite = {.driver = "QSQLITE",
                        .package = SqliteDriver,
                        .onConnect = SqliteOnConnect,
                        .begin = "BEGIN IMMEDIATE", // locks the file; a later lock could collide with another one
                        .lockSchema = "SELECT 1",
                        .tables = "SELECT name FROM sqlite_master WHERE type = 'table'",
                        .now = nullptr,
                        .lock = "",
                        .skip = "",
                        .takesSeveral = false};

const Dialect PostgreSql = {.driver = "QPSQL",
                            .package = PostgreSqlDriver,
                            .onConnect = {},
                            .begin =
                                "BEGIN ISOLATION LEVEL READ COMMITTED", // each statement sees the changes of others
                            .lockSchema = "SELECT pg_advisory_xact_lock(4500)",
                            .tables = "SELECT tablename FROM pg_tables WHERE schemaname = ANY (current_schemas(false))",
                            .now = "CAST(extract(epoch FROM clock_timestamp()) AS BIGINT)",
                            .lock = " FOR UPDATE",
                            .skip = " FOR UPDATE SKIP LOCKED",
                            .takesSeveral = true};

const std::span<const std::span<const char* const>> SchemaVersions = Versions;

QString StatementFor(const Dialect& dialect, const QString& statement) {
  // For this machine's clock, a time later than now is from before its last start.
  const QString upTo = dialect.now == nullptr ? QStringLiteral(" AND heard <= {now}") : QString();
  const QString now = dialect.now == nullptr ? QString::number(SteadySeconds()) : QString::fromLatin1(dialect.now);
  const QString isSilent = QStringLiteral("NOT EXISTS (SELECT 1 FROM fleet_bench WHERE fleet_bench.bench = %1.bench"
                                          " AND heard > {now} - %2%3)")
                               .arg(QStringLiteral("%1"), QString::number(SilentSeconds), upTo);
  return QString(statement)
      .replace("{isFree}", "(state = 'free' OR state = 'taken' AND {isSilent})")
      .replace("{isSilent}", isSilent.arg(QLatin1String("fleet_row")))
      .replace("{isLost}", "(outcome = 'begun' AND " + isSilent.arg(QLatin1String("fleet_attempt")) + ')')
      .replace("{now}", now)
      .replace("{lock}", dialect.lock)
      .replace("{skip}", dialect.skip);
}

} // namespace mr4500x
