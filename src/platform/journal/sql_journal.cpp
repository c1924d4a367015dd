#include "sql_journal.h"

#include "sql_statements.h"

#include <QCryptographicHash>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
#include <QUrlQuery>
#include <QUuid>
#include <QVariant>

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace mr4500x {
namespace {

// So that a server that is away, or another bench that hangs in the middle of a transaction, holds nobody up for long.
constexpr char ServerOptions[] = "connect_timeout=3;tcp_user_timeout=5000;"
                                 "options='-c lock_timeout=5000 -c idle_in_transaction_session_timeout=5000"
                                 " -c client_min_messages=error'";
constexpr char FileOptions[] = "QSQLITE_BUSY_TIMEOUT=5000";

constexpr const char* StateNames[] = {"free", "done", "taken"}; // the last one is what others count as
constexpr RowState States[] = {RowState::Free, RowState::Done, RowState::Taken};
constexpr const char* OutcomeNames[] = {"verified", "failed", "set aside", "conflict"};

struct TextColumn {
  const char* name;
  std::string Attempt::*text;
};
constexpr TextColumn AttemptTexts[] = {
    {"attempt_key", &Attempt::key},    {"plan", &Attempt::plan},         {"label", &Attempt::label},
    {"id_number", &Attempt::idNumber}, {"firmware", &Attempt::firmware}, {"band", &Attempt::band},
    {"port", &Attempt::port},          {"bench", &Attempt::bench},       {"started", &Attempt::start},
    {"ended", &Attempt::end},          {"said", &Attempt::text},         {"backup", &Attempt::backup},
    {"sha256", &Attempt::sha256},
};

using Values = std::vector<std::pair<QString, QVariant>>;

QString TextOf(const std::string& text) {
  return QString::fromStdString(text);
}

QString WithoutTrailingBlanks(const std::string& text) {
  return TextOf(text.substr(0, text.find_last_not_of(' ') + 1));
}

// The enumerator of a name that is stored; the last one for a name of none.
template<typename Enum, std::size_t Count>
Enum NamedIn(const char* const (&names)[Count], const QString& name) {
  const auto place = std::find(names, names + Count - 1, name);
  return static_cast<Enum>(place - names);
}

QString AttemptColumns(const QString& before) {
  QString columns = before + "number, " + before + "outcome";
  for (const TextColumn& column : AttemptTexts)
    columns += ", " + before + column.name;
  return columns;
}

JournalRow RowIn(const QSqlQuery& query) {
  JournalRow row{.row = query.value(0).value<std::size_t>(),
                 .label = query.value(1).toString().toStdString(),
                 .radio = query.value(2).toString().toStdString(),
                 .state = States[NamedIn<std::size_t>(StateNames, query.value(3).toString())],
                 .bench = {},
                 .idNumber = {}};
  if (row.state == RowState::Free) return row; // a silent bench has it no longer
  row.bench = query.value(4).toString().toStdString();
  row.idNumber = query.value(5).toString().toStdString();
  return row;
}

Attempt AttemptIn(const QSqlQuery& query) {
  Attempt attempt;
  attempt.row = query.value(0).value<std::size_t>();
  attempt.outcome = NamedIn<AttemptOutcome>(OutcomeNames, query.value(1).toString());
  int place = 2;
  for (const TextColumn& column : AttemptTexts)
    attempt.*column.text = query.value(place++).toString().toStdString();
  return attempt;
}

class SqlJournal final : public Journal {
public:
  explicit SqlJournal(const std::string& address);
  ~SqlJournal() override;
  SqlJournal(const SqlJournal&) = delete;
  SqlJournal& operator=(const SqlJournal&) = delete;

  bool Begin(const std::string& plan, const std::string& name, const std::vector<JournalRow>& rows) override;
  Claim Take(const std::string& plan, const std::string& bench, const std::string& idNumber, bool endless) override;
  Renewal Renew(const std::string& plan, std::size_t row, const std::string& bench) override;
  std::optional<AttemptOutcome> Enter(const Attempt& attempt) override;
  std::optional<std::vector<JournalRow>> Rows(const std::string& plan) override;
  std::optional<std::vector<Attempt>> Attempts(const std::string& plan) override;
  std::string Error() const override { return m_error; }

private:
  [[nodiscard]] QSqlDatabase Database() const { return QSqlDatabase::database(m_name, false); }
  [[nodiscard]] bool Open();
  [[nodiscard]] bool UpgradeSchema();
  bool Fail(const QString& error);

  // False or nullopt is a failure of the database. It gives up the connection, and with it the transaction; the next
  // call connects again.
  [[nodiscard]] bool InTransaction(const std::function<bool()>& steps);
  [[nodiscard]] std::optional<QSqlQuery> Run(const QString& statement, const Values& values = {});
  [[nodiscard]] std::optional<int> Change(const QString& statement, const Values& values); // how many rows
  [[nodiscard]] std::optional<std::vector<JournalRow>> SelectRows(const QString& condition, const Values& values);

  [[nodiscard]] bool TakeRow(Claim& claim, bool endless, const Values& values);
  [[nodiscard]] bool TakeFirst(Claim& claim, const char* condition, Values values);
  [[nodiscard]] bool EnterOnce(const Attempt& attempt, AttemptOutcome& outcome);
  [[nodiscard]] bool FinishRow(AttemptOutcome& outcome, const Values& values);

  const QString m_name = QUuid::createUuid().toString(QUuid::WithoutBraces); // of the connection and its claims
  const Dialect& m_dialect;
  std::string m_error;
};

bool IsServer(const std::string& address) {
  return address.starts_with("postgresql://") || address.starts_with("postgres://");
}

SqlJournal::SqlJournal(const std::string& address) : m_dialect(IsServer(address) ? PostgreSql : Sqlite) {
  if (!QSqlDatabase::isDriverAvailable(m_dialect.driver)) return; // told when it is needed
  QSqlDatabase database = QSqlDatabase::addDatabase(m_dialect.driver, m_name);
  if (!IsServer(address)) {
    constexpr std::string_view OfFile = "sqlite:";
    database.setDatabaseName(TextOf(address.starts_with(OfFile) ? address.substr(OfFile.size()) : address));
    database.setConnectOptions(FileOptions);
    return;
  }
  const QUrl url(TextOf(address));
  database.setHostName(url.host());
  if (url.port() > 0) database.setPort(url.port());
  database.setUserName(url.userName());
  database.setPassword(url.password());
  database.setDatabaseName(url.path().mid(1));
  QString options = ServerOptions;
  for (const auto& [name, value] : QUrlQuery(url).queryItems(QUrl::FullyDecoded)) // the last of a name counts
    options += ';' + name + "='" + QString(value).replace('\\', "\\\\").replace('\'', "\\'") + '\'';
  database.setConnectOptions(options);
}

SqlJournal::~SqlJournal() {
  QSqlDatabase::removeDatabase(m_name);
}

bool SqlJournal::Open() {
  QSqlDatabase database = Database();
  if (database.isOpen()) return true;
  if (!database.isValid())
    return Fail(QStringLiteral("Qt's driver %1 is missing (Debian: %2).").arg(m_dialect.driver, m_dialect.package));
  if (!database.open()) return Fail(database.lastError().text());
  for (const char* const statement : m_dialect.onConnect)
    static_cast<void>(Run(statement));
  if (database.isOpen() || database.open()) return UpgradeSchema();
  return Fail(database.lastError().text());
}

// Several processes may come upon a new database at once.
bool SqlJournal::UpgradeSchema() {
  const auto known = static_cast<int>(SchemaVersions.size());
  int version = 0;
  const auto readVersion = [&] {
    if (!Database().tables().contains("fleet_schema")) return true;
    auto query = Run("SELECT version FROM fleet_schema");
    if (query && query->next()) version = query->value(0).toInt();
    return query.has_value();
  };
  const auto upgrade = [&] {
    if (!Run(m_dialect.lockSchema) || !readVersion()) return false;
    if (version >= known) return true;
    if (version == 0 && !Run("CREATE TABLE fleet_schema (version BIGINT NOT NULL)")) return false;
    for (const auto& statements : SchemaVersions.subspan(static_cast<std::size_t>(version)))
      for (const char* const statement : statements)
        if (!Run(statement)) return false;
    return Run("DELETE FROM fleet_schema") && Run("INSERT INTO fleet_schema VALUES (:version)", {{":version", known}});
  };
  if (!readVersion() || (version < known && !InTransaction(upgrade))) return false;
  return version <= known || Fail("The journal is one of a later version of this program.");
}

bool SqlJournal::Fail(const QString& error) {
  m_error = error.isEmpty() ? "The database does not answer." : error.simplified().toStdString();
  Database().close();
  return false;
}

bool SqlJournal::InTransaction(const std::function<bool()>& steps) {
  return Run(m_dialect.begin) && steps() && Run("COMMIT");
}

std::optional<QSqlQuery> SqlJournal::Run(const QString& statement, const Values& values) {
  if (!Database().isOpen()) { // the driver has seen that the server is gone
    Fail({});
    return std::nullopt;
  }
  std::optional<QSqlQuery> query(std::in_place, Database());
  query->setForwardOnly(true);
  const QString sql = StatementFor(m_dialect, statement);
  bool isDone = values.empty() ? query->exec(sql) : query->prepare(sql);
  if (isDone && !values.empty()) {
    for (const auto& [name, value] : values)
      if (sql.contains(name)) query->bindValue(name, value);
    isDone = query->exec();
  }
  if (isDone) return query;
  const QString error = query->lastError().text();
  query.reset();
  Fail(error);
  return std::nullopt;
}

std::optional<int> SqlJournal::Change(const QString& statement, const Values& values) {
  const auto query = Run(statement, values);
  return query ? std::optional(query->numRowsAffected()) : std::nullopt;
}

std::optional<std::vector<JournalRow>> SqlJournal::SelectRows(const QString& condition, const Values& values) {
  auto query = Run("SELECT number, label, radio, CASE WHEN {isFree} THEN 'free' ELSE state END, bench, id_number"
                   " FROM fleet_row WHERE plan = :plan " +
                       condition,
                   values);
  if (!query) return std::nullopt;
  std::vector<JournalRow> rows;
  while (query->next())
    rows.push_back(RowIn(*query));
  return rows;
}

bool SqlJournal::Begin(const std::string& plan, const std::string& name, const std::vector<JournalRow>& rows) {
  return Open() && InTransaction([&] {
           const auto added = Change("INSERT INTO fleet_plan (plan, name) VALUES (:plan, :name) ON CONFLICT DO NOTHING",
                                     {{":plan", TextOf(plan)}, {":name", TextOf(name)}});
           if (!added || *added == 0) return added.has_value(); // its rows came with it
           return std::ranges::all_of(rows, [&](const JournalRow& row) {
             return Run("INSERT INTO fleet_row (plan, number, label, radio) VALUES (:plan, :number, :label, :radio)",
                        {{":plan", TextOf(plan)},
                         {":number", QVariant::fromValue(row.row)},
                         {":label", TextOf(row.label)},
                         {":radio", WithoutTrailingBlanks(row.radio)}})
                 .has_value();
           });
         });
}

constexpr char Heard[] = "INSERT INTO fleet_bench (bench, heard) VALUES (:bench, {now})"
                         " ON CONFLICT (bench) DO UPDATE SET heard = excluded.heard";
constexpr char SetFree[] = "UPDATE fleet_row SET state = 'free', bench = '', claim = '', id_number = ''"
                           " WHERE plan = :plan AND state = 'taken' AND ";

Claim SqlJournal::Take(const std::string& plan, const std::string& bench, const std::string& idNumber, bool endless) {
  Claim claim;
  const Values values = {
      {":id", WithoutTrailingBlanks(idNumber)}, {":plan", TextOf(plan)}, {":bench", TextOf(bench)}, {":claim", m_name}};
  if (!Open() || !InTransaction([&] { return TakeRow(claim, endless, values); })) return {};
  return claim;
}

bool SqlJournal::TakeRow(Claim& claim, bool endless, const Values& values) {
  claim = {Claim::Kind::NoRow, {}};
  // A claim that this journal still has comes from a call whose answer was lost.
  if (!Run(Heard, values) || !Run(QString(SetFree) + "claim = :claim", values)) return false;
  if (!values.front().second.toString().isEmpty()) {
    const auto done = SelectRows("AND state = 'done' AND id_number = :id ORDER BY number LIMIT 1", values);
    const auto named = done ? SelectRows("AND radio = :id", values) : std::nullopt;
    if (!named) return false;
    if (!done->empty()) claim = {Claim::Kind::DoneHere, done->front()};
    if (!done->empty()) return true;
    // The number is at another port, too, or its bench has died and may have written it.
    const auto held = SelectRows("AND state = 'taken' AND NOT {isFree} AND id_number = :id", values);
    if (!held || !held->empty()) return held.has_value();
    if (!named->empty()) return TakeFirst(claim, "AND radio = :id AND {isFree}{lock}", values);
  }
  constexpr char FirstFree[] = "AND radio = '' AND {isFree} ORDER BY number LIMIT 1{skip}";
  if (!TakeFirst(claim, FirstFree, values)) return false;
  if (claim.kind == Claim::Kind::Taken || !endless) return true;
  // The plan's lock keeps two benches from making the same row.
  return Run("SELECT plan FROM fleet_plan WHERE plan = :plan{lock}", values) &&
         Run("INSERT INTO fleet_row (plan, number)"
             " SELECT :plan, coalesce(max(number), 0) + 1 FROM fleet_row WHERE plan = :plan",
             values) &&
         TakeFirst(claim, FirstFree, values);
}

bool SqlJournal::TakeFirst(Claim& claim, const char* condition, Values values) {
  values.emplace_back(":number", 0);
  for (;;) {
    const auto rows = SelectRows(condition, values);
    if (!rows || rows->empty()) return rows.has_value();
    values.back().second = QVariant::fromValue(rows->front().row);
    // What was selected may be older than its lock, so it is asked again. Another bench may have been faster.
    const auto taken = Change("UPDATE fleet_row SET state = 'taken', bench = :bench, claim = :claim, id_number = :id"
                              " WHERE plan = :plan AND number = :number AND {isFree}",
                              values);
    if (!taken) return false;
    if (*taken == 0) continue;
    claim = {Claim::Kind::Taken, rows->front()};
    claim.row.state = RowState::Taken;
    return true;
  }
}

Renewal SqlJournal::Renew(const std::string& plan, std::size_t row, const std::string& bench) {
  const Values values = {{":plan", TextOf(plan)}, {":number", QVariant::fromValue(row)}, {":bench", TextOf(bench)}};
  bool isKept = false;
  const auto look = [&] {
    auto query = Run("SELECT number FROM fleet_row WHERE plan = :plan AND number = :number AND state = 'taken'"
                     " AND bench = :bench{lock}",
                     values);
    isKept = query && query->next();
    return query.has_value();
  };
  if (!Open() || !InTransaction([&] { return Run(Heard, values) && look(); })) return Renewal::Lost;
  return isKept ? Renewal::Kept : Renewal::TakenAway;
}

std::optional<AttemptOutcome> SqlJournal::Enter(const Attempt& attempt) {
  AttemptOutcome outcome = attempt.outcome;
  if (!Open() || !InTransaction([&] { return EnterOnce(attempt, outcome); })) return std::nullopt;
  return outcome;
}

bool SqlJournal::EnterOnce(const Attempt& attempt, AttemptOutcome& outcome) {
  Values values = {{":id", WithoutTrailingBlanks(attempt.idNumber)}, {":number", QVariant::fromValue(attempt.row)}};
  for (const TextColumn& column : AttemptTexts)
    values.emplace_back(QString(":") + column.name, TextOf(attempt.*column.text));
  auto earlier = Run("SELECT outcome FROM fleet_attempt WHERE attempt_key = :attempt_key", values);
  if (!earlier) return false;
  if (earlier->next()) {
    outcome = NamedIn<AttemptOutcome>(OutcomeNames, earlier->value(0).toString());
    return true;
  }
  if (!FinishRow(outcome, values)) return false;
  values.emplace_back(":outcome", QString(OutcomeNames[static_cast<std::size_t>(outcome)]));
  return Run("INSERT INTO fleet_attempt (" + AttemptColumns("") + ") VALUES (" + AttemptColumns(":") + ')', values)
      .has_value();
}

bool SqlJournal::FinishRow(AttemptOutcome& outcome, const Values& values) {
  if (outcome == AttemptOutcome::Verified) {
    // Meanwhile the row may have got another radio, or the radio another row.
    auto other = Run("SELECT number FROM fleet_row WHERE plan = :plan AND number = :number{lock}", values);
    if (other)
      other = Run("SELECT number FROM fleet_row WHERE plan = :plan AND state = 'done'"
                  " AND (number = :number OR id_number = :id) AND NOT (number = :number AND id_number = :id)",
                  values);
    if (!other) return false;
    if (!other->next())
      return Run("UPDATE fleet_row SET state = 'done', bench = :bench, claim = '', id_number = :id"
                 " WHERE plan = :plan AND number = :number",
                 values)
          .has_value();
    outcome = AttemptOutcome::Conflict;
  }
  return Run(QString(SetFree) + "number = :number AND bench = :bench AND id_number = :id", values).has_value();
}

std::optional<std::vector<JournalRow>> SqlJournal::Rows(const std::string& plan) {
  return Open() ? SelectRows("ORDER BY number", {{":plan", TextOf(plan)}}) : std::nullopt;
}

std::optional<std::vector<Attempt>> SqlJournal::Attempts(const std::string& plan) {
  auto query = Open() ? Run("SELECT " + AttemptColumns("") +
                                " FROM fleet_attempt WHERE :plan = '' OR plan = :plan ORDER BY started, attempt_key",
                            {{":plan", TextOf(plan)}})
                      : std::nullopt;
  if (!query) return std::nullopt;
  std::vector<Attempt> attempts;
  while (query->next())
    attempts.push_back(AttemptIn(*query));
  return attempts;
}

} // namespace

std::unique_ptr<Journal> OpenJournal(const std::string& address) {
  return std::make_unique<SqlJournal>(address);
}

std::string Sha256Of(std::string_view bytes) {
  const QByteArray content(bytes.data(), static_cast<qsizetype>(bytes.size()));
  return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex().toStdString();
}

std::string NewAttemptKey() {
  return QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
}

} // namespace mr4500x
