#include "sql_journal.h"

#include "attempt_records.h"
#include "sql_connection.h"
#include "timed_journal.h"

#include <QCryptographicHash>
#include <QUuid>

#include <algorithm>
#include <chrono>
#include <optional>
#include <span>

namespace mr4500x {
namespace {

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString WithoutTrailingBlanks(const std::string& text) {
  return Text(text.substr(0, text.find_last_not_of(' ') + 1));
}

// An unknown value is read as the one with which no row is given out twice.
RowState StateIn(const QString& name) {
  return name == "free" ? RowState::Free : name == "done" ? RowState::Done : RowState::Taken;
}
AttemptOutcome OutcomeIn(const QString& name) {
  return OutcomeStoredAs(name.toStdString()).value_or(AttemptOutcome::Conflict);
}

QString ColumnList(const QString& before = {}) {
  QString columns = before + "number, " + before + "outcome";
  for (const AttemptColumn& column : AttemptColumns)
    columns += ", " + before + column.name;
  return columns;
}

Values ValuesOf(const Attempt& attempt) {
  Values values = {{":id", WithoutTrailingBlanks(attempt.idNumber)},
                   {":number", QVariant::fromValue(attempt.row)},
                   {":outcome", Text(StoredName(attempt.outcome))}};
  for (const AttemptColumn& column : AttemptColumns)
    values.emplace_back(QString(":") + column.name, Text(attempt.*column.text));
  return values;
}

JournalRow RowIn(const QSqlQuery& query) {
  JournalRow row{.row = query.value(0).value<std::size_t>(),
                 .label = query.value(1).toString().toStdString(),
                 .radio = query.value(2).toString().toStdString(),
                 .state = StateIn(query.value(3).toString()),
                 .bench = {},
                 .idNumber = {}};
  if (row.state == RowState::Free) return row; // a silent bench has lost it
  row.bench = query.value(4).toString().toStdString();
  row.idNumber = query.value(5).toString().toStdString();
  row.stamp = query.value(6).toString().toStdString();
  if (!query.isNull(7)) row.silentFor = query.value(7).toInt();
  return row;
}

Attempt AttemptIn(const QSqlQuery& query) {
  Attempt attempt;
  attempt.row = query.value(0).value<std::size_t>();
  attempt.outcome = OutcomeIn(query.value(1).toString());
  int place = 2;
  for (const AttemptColumn& column : AttemptColumns)
    attempt.*column.text = query.value(place++).toString().toStdString();
  return attempt;
}

constexpr char RowColumns[] = "number, label, radio, CASE WHEN {isFree} THEN 'free' ELSE state END, bench, id_number,"
                              " stamp, CASE WHEN state = 'taken' THEN (SELECT {now} - heard FROM fleet_bench"
                              " WHERE fleet_bench.bench = fleet_row.bench) END";
// Whether what the row says was the last that its radio got, as far as the journal knows.
constexpr char IsLatest[] =
    "state = 'done' AND stamp = (SELECT CASE last.outcome WHEN 'verified' THEN last.stamp ELSE '-' END FROM "
    "fleet_attempt last"
    " WHERE last.id_number = fleet_row.id_number AND (last.sha256 <> '' OR last.outcome IN ('begun', 'reissued'))"
    " ORDER BY last.started DESC, CASE last.outcome WHEN 'reissued' THEN 1 ELSE 0 END, last.attempt_key DESC"
    " LIMIT 1)";
constexpr char Heard[] = "INSERT INTO fleet_bench (bench, heard) VALUES (:bench, {now})"
                         " ON CONFLICT (bench) DO UPDATE SET heard = excluded.heard";
constexpr char SetFree[] = "UPDATE fleet_row SET state = 'free', bench = '', claim = '', id_number = '', stamp = '',"
                           " changed = {now} WHERE plan = :plan AND state = 'taken' AND ";

// Benches with several lists of a template take their rows one after the other, because they share labels.
constexpr char LockLists[] =
    "SELECT plan FROM fleet_plan WHERE template = (SELECT template FROM fleet_plan WHERE plan = :plan) AND EXISTS"
    " (SELECT 1 FROM fleet_plan other WHERE other.template = fleet_plan.template AND other.plan <> fleet_plan.plan)"
    " AND template <> '' ORDER BY plan{lock}";
constexpr char AnswerLost[] =
    "UPDATE fleet_attempt SET outcome = 'failed', said = 'the journal''s answer was lost; nothing has been written'"
    " WHERE outcome = 'begun' AND bench = :bench AND port = :port";
// If this journal still has a claim, or its port has begun an attempt, they come from a call whose answer was lost, and
// nothing was written. A silent bench's claim for the radio is released.
QStringList BeforeClaim() {
  return {LockLists,
          Heard, // locks the bench's entry, so an abandoned call is over before the next one
          AnswerLost, QString(SetFree) + "claim = :claim", QString(SetFree) + "id_number = :id AND {isSilent}"};
}
constexpr char TakeDone[] = "UPDATE fleet_row SET state = 'taken', bench = :bench, claim = :claim, stamp = '',"
                            " changed = {now} WHERE plan = :plan AND state = 'done' AND id_number = :id";
// What a plan that has begun before takes over from another one.
constexpr char CarryOver[] =
    " ON CONFLICT (plan, number) DO UPDATE SET state = 'done', bench = excluded.bench, claim = '',"
    " id_number = excluded.id_number, stamp = excluded.stamp, changed = {now}"
    " WHERE fleet_row.state = 'free' AND excluded.state = 'done'";
// The plan's lock prevents two benches from making the same row.
constexpr const char* MakeRow[] = {
    "SELECT plan FROM fleet_plan WHERE plan = :plan{lock}",
    "INSERT INTO fleet_row (plan, number) SELECT :plan, coalesce(max(number), 0) + 1 FROM fleet_row WHERE plan = :plan"
    " HAVING NOT EXISTS (SELECT 1 FROM fleet_row WHERE plan = :plan AND"
    " (radio IN ('', :id) AND {isFree} OR id_number = :id AND state <> 'free'))"};
// What other lists of the template have given out since the bench began. Rows without labels may be alike.
constexpr char IsElsewhere[] =
    "EXISTS (SELECT 1 FROM fleet_row other WHERE other.changed > 0 AND other.changed > :begun AND :begun > 0"
    " AND other.plan IN (SELECT plan FROM fleet_plan WHERE plan <> :plan AND template ="
    " (SELECT template FROM fleet_plan WHERE plan = :plan)) AND other.state <> 'free' AND other.content <> ''"
    " AND other.label <> '' AND other.label = fleet_row.label AND other.content = fleet_row.content)";
// The radio's number may also be at another port, or its bench has died and may have written it. The row is queried
// again, because the selected state may be older than its lock. A second of these statements finds that the radio has a
// row.
QString TakeFree(const char* condition) {
  return QString("UPDATE fleet_row SET state = 'taken', bench = :bench, claim = :claim, id_number = :id, stamp = '',"
                 " changed = {now} WHERE plan = :plan AND {isFree} AND number ="
                 " (SELECT number FROM fleet_row WHERE plan = :plan AND {isFree} AND radio = CASE WHEN EXISTS"
                 " (SELECT 1 FROM fleet_row named WHERE named.plan = :plan AND named.radio = :id) THEN :id ELSE '' END"
                 " AND NOT EXISTS (SELECT 1 FROM fleet_row held WHERE held.plan = :plan AND held.id_number = :id"
                 " AND held.state <> 'free') AND NOT ") +
         IsElsewhere + condition + " ORDER BY number LIMIT 1{skip})";
}
QString EnterBegun() {
  return "INSERT INTO fleet_attempt (" + ColumnList() +
         ") SELECT number, 'begun', :started, '', label, :id_number, :firmware, :band, :port, :bench,"
         " '', '', '', plan, :attempt_key, '', :operator_name FROM fleet_row"
         " WHERE plan = :plan AND state = 'taken' AND claim = :claim"
         " ON CONFLICT (attempt_key) DO UPDATE SET number = excluded.number,"
         " label = excluded.label, outcome = 'begun'";
}
// The last column: the row that was the radio's until a person gave it out again, or 0.
QString SelectClaim() {
  return QString("SELECT ") + RowColumns +
         ", claim = :claim, (SELECT CASE last.outcome WHEN 'reissued' THEN last.number ELSE 0 END"
         " FROM fleet_attempt last WHERE last.id_number = :id AND outcome IN"
         " ('verified', 'reissued') ORDER BY last.started DESC, CASE last.outcome"
         " WHEN 'reissued' THEN 1 ELSE 0 END, last.attempt_key DESC LIMIT 1) FROM fleet_row WHERE "
         "plan = :plan AND id_number = :id"
         " AND state <> 'free'";
}

class SqlJournal final : public Journal {
public:
  SqlJournal(const std::string& address, JournalUse use, const std::string& claimName,
             std::function<bool()> mayContinue)
      : m_database(address, use, std::move(mayContinue)), m_claimName(Text(claimName)) {}

  bool Begin(const PlanHead& plan, const std::vector<JournalRow>& rows) override;
  std::optional<PlanHistory> History(const PlanHead& plan) override;
  Claim ClaimRow(const Attempt& attempt, const ClaimRequest& request) override;
  Renewal Renew(const std::string& plan, std::size_t row, const std::string& bench) override;
  std::optional<Attempt> Enter(const Attempt& attempt) override;
  bool ReportAlive(const std::string& bench) override;
  std::optional<RowList> ChangedRows(const std::string& plan, std::int64_t since) override;
  std::optional<std::vector<Attempt>> Attempts(const std::string& plan) override;
  JournalFailure Failure() const override { return m_database.Failure(); }

private:
  [[nodiscard]] bool InsertRows(const std::string& plan, const std::vector<JournalRow>& rows);
  [[nodiscard]] bool EnterOnce(Attempt& attempt);
  [[nodiscard]] bool FinishRow(Attempt& attempt, const Values& values);

  SqlConnection m_database;
  const QString m_claimName;                                       // unlike any other journal's
  std::optional<std::chrono::steady_clock::time_point> m_reported; // the bench as alive, for the last time
};

bool SqlJournal::Begin(const PlanHead& plan, const std::vector<JournalRow>& rows) {
  return m_database.Open() && m_database.InTransaction([&] {
    const auto added =
        m_database.Run("INSERT INTO fleet_plan (plan, name, template, begun) VALUES (:plan, :name, :template, :begun)"
                       " ON CONFLICT DO NOTHING",
                       {{":plan", Text(plan.key)},
                        {":name", Text(plan.name)},
                        {":template", Text(plan.templateKey)},
                        {":begun", Text(plan.begun)}});
    return added && (rows.empty() || InsertRows(plan.key, rows));
  });
}

std::optional<PlanHistory> SqlJournal::History(const PlanHead& plan) {
  if (!m_database.Open()) return std::nullopt;
  PlanHistory history;
  if (m_database.IsEmpty()) return history;
  auto plans =
      m_database.Run("SELECT plan, name, template, begun, EXISTS (SELECT 1 FROM fleet_row WHERE state <> 'free'"
                     " AND fleet_row.plan = fleet_plan.plan) FROM fleet_plan ORDER BY begun DESC, plan");
  if (!plans) return std::nullopt;
  const auto text = [](const QSqlQuery& query, int column) { return query.value(column).toString().toStdString(); };
  while (plans->next())
    history.plans.push_back(
        {text(*plans, 0), text(*plans, 1), text(*plans, 2), text(*plans, 3), plans->value(4).toBool()});
  auto rows = m_database.Run(QString("SELECT ") + RowColumns + ", content, " + IsLatest + " FROM fleet_row" +
                                 " WHERE content <> '' AND plan IN (SELECT plan FROM fleet_plan" +
                                 " WHERE plan <> :plan AND template IN (:template, '')) ORDER BY plan, number",
                             {{":plan", Text(plan.key)}, {":template", Text(plan.templateKey)}});
  if (!rows) return std::nullopt;
  constexpr int Content = 8, Latest = 9; // the columns after the row's
  while (rows->next()) {
    JournalRow& row = history.rows.emplace_back(RowIn(*rows));
    row.content = text(*rows, Content);
    if (row.state == RowState::Done && !rows->value(Latest).toBool()) row.state = RowState::Free;
  }
  return history;
}

// One round trip for 5,000 rows. The texts are quoted here, because there are too many for named values.
bool SqlJournal::InsertRows(const std::string& plan, const std::vector<JournalRow>& rows) {
  constexpr std::size_t RowsInAStatement = 500;
  constexpr qsizetype StatementsAtOnce = 10;
  const Values values = {{":plan", Text(plan)}};
  const auto quoted = [](QString text) { // without words in braces, which StatementFor replaces
    return QLatin1Char('\'') + text.replace('\'', "\'\'").replace('{', "'||'{'||'") + QLatin1Char('\'');
  };
  QStringList statements;
  for (std::size_t first = 0; first < rows.size(); first += RowsInAStatement) {
    QStringList lines;
    for (const JournalRow& row : std::span(rows).subspan(first, std::min(RowsInAStatement, rows.size() - first)))
      lines.append("(:plan, " + QString::number(row.row) + ", " + quoted(Text(row.label)) + ", " +
                   quoted(WithoutTrailingBlanks(row.radio)) + ", " +
                   (row.state == RowState::Done ? QLatin1String("'done'") : QLatin1String("'free'")) + ", " +
                   quoted(Text(row.bench)) + ", " + quoted(WithoutTrailingBlanks(row.idNumber)) + ", " +
                   quoted(Text(row.stamp)) + ", " + quoted(Text(row.content)) + ')');
    statements.append(
        "INSERT INTO fleet_row (plan, number, label, radio, state, bench, id_number, stamp, content) VALUES " +
        lines.join(QLatin1Char(',')) + CarryOver);
    if (statements.size() < StatementsAtOnce) continue;
    if (!m_database.RunAll(statements, values)) return false;
    statements.clear();
  }
  return statements.empty() || m_database.RunAll(statements, values);
}

Claim SqlJournal::ClaimRow(const Attempt& attempt, const ClaimRequest& request) {
  // A database judges a row that has just been locked by what it knew about the bench before. So that no other bench
  // takes the claim for that of a silent one, the report that this one is alive must be complete before the claim.
  const bool isAlive =
      m_reported && std::chrono::steady_clock::now() - *m_reported < std::chrono::seconds(SilentSeconds) / 2;
  if (!isAlive && !ReportAlive(attempt.bench)) return {};
  Values values = ValuesOf(attempt);
  values.emplace_back(":claim", m_claimName);
  values.emplace_back(":request", QVariant::fromValue(request.row));
  values.emplace_back(":begun", QVariant::fromValue(request.begun));
  QStringList statements = BeforeClaim();
  if (request.takesDone) statements += TakeDone;
  if (request.isEndless) statements += QStringList(std::begin(MakeRow), std::end(MakeRow));
  if (request.row > 0) statements += TakeFree(" AND (radio <> '' OR number = :request)");
  if (request.row == 0 || !request.isChosen) statements += TakeFree("");
  statements << EnterBegun() << SelectClaim();
  Claim claim;
  const auto take = [&] {
    auto query = m_database.RunAll(statements, values);
    if (!query) return false;
    claim.kind = Claim::Kind::NoRow;
    if (!query->next()) return true;
    constexpr int IsMine = 8, Reissued = 9; // the columns after the row's
    claim.reissued = query->value(Reissued).value<std::size_t>();
    claim.row = RowIn(*query);
    if (claim.row.state == RowState::Done) claim.kind = Claim::Kind::DoneHere;
    if (claim.row.state == RowState::Taken && query->value(IsMine).toBool()) claim.kind = Claim::Kind::Taken;
    return true;
  };
  // Two ports may have claimed rows for one number at the same time. At the second try, this one sees the other's row.
  for (int tries = 0; tries < 2; ++tries) {
    if (m_database.Open() && m_database.InTransaction(take)) return claim;
    if (!m_database.IsDouble()) break;
  }
  return {};
}

bool SqlJournal::ReportAlive(const std::string& bench) {
  if (!m_database.Open() || !m_database.Run(Heard, {{":bench", Text(bench)}})) return false;
  m_reported = std::chrono::steady_clock::now();
  return true;
}

Renewal SqlJournal::Renew(const std::string& plan, std::size_t row, const std::string& bench) {
  const Values values = {{":plan", Text(plan)}, {":number", QVariant::fromValue(row)}, {":bench", Text(bench)}};
  bool isKept = false;
  const auto isHeld = [&] {
    auto query = m_database.RunAll(
        {Heard, "SELECT number FROM fleet_row WHERE plan = :plan AND number = :number AND state = 'taken'"
                " AND bench = :bench{lock}"},
        values);
    isKept = query && query->next();
    return query.has_value();
  };
  if (!m_database.Open() || !m_database.InTransaction(isHeld)) return Renewal::Lost;
  return isKept ? Renewal::Kept : Renewal::TakenAway;
}

std::optional<Attempt> SqlJournal::Enter(const Attempt& attempt) {
  Attempt entered = attempt;
  if (!m_database.Open() || !m_database.InTransaction([&] { return EnterOnce(entered); })) return std::nullopt;
  return entered;
}

bool SqlJournal::EnterOnce(Attempt& attempt) {
  auto earlier = m_database.Run("SELECT " + ColumnList() + " FROM fleet_attempt WHERE attempt_key = :attempt_key",
                                ValuesOf(attempt));
  if (!earlier) return false;
  const bool isKnown = earlier->next();
  if (isKnown && OutcomeIn(earlier->value(1).toString()) != AttemptOutcome::Begun) {
    attempt = AttemptIn(*earlier);
    return true;
  }
  const bool isDecision = attempt.outcome == AttemptOutcome::Freed || attempt.outcome == AttemptOutcome::Reissued;
  if (!FinishRow(attempt, ValuesOf(attempt))) return false;
  if (isDecision && attempt.outcome == AttemptOutcome::Conflict) return true; // not entered
  constexpr char Finish[] = "UPDATE fleet_attempt SET outcome = :outcome, ended = :ended, said = :said,"
                            " backup = :backup, sha256 = :sha256, stamp = :stamp WHERE attempt_key = :attempt_key";
  const QString insert = "INSERT INTO fleet_attempt (" + ColumnList() + ") VALUES (" + ColumnList(":") + ')';
  return m_database.Run(isKnown ? Finish : insert, ValuesOf(attempt)).has_value();
}

bool SqlJournal::FinishRow(Attempt& attempt, const Values& values) {
  const QString free = QString(SetFree) + "number = :number",
                release = free + " AND bench = :bench AND id_number = :id";
  switch (attempt.outcome) {
  case AttemptOutcome::Note:
  case AttemptOutcome::Dismissed:
    return true;
  case AttemptOutcome::Freed:
  case AttemptOutcome::Reissued: {
    const bool isFreed = attempt.outcome == AttemptOutcome::Freed;
    const auto changed = m_database.Run(
        QString(free).replace("'taken'", isFreed ? "'taken'" : "'done'") + " AND id_number = :id", values);
    if (changed && changed->numRowsAffected() == 0) attempt.outcome = AttemptOutcome::Conflict;
    return changed.has_value();
  }
  default:
    break;
  }
  if (attempt.outcome != AttemptOutcome::Verified) return m_database.Run(release, values).has_value();
  // In the meantime another radio may have got the row, or the radio another row.
  auto other =
      m_database.RunAll({"SELECT number FROM fleet_row WHERE plan = :plan AND number = :number{lock}",
                         "SELECT number, id_number FROM fleet_row WHERE plan = :plan AND state = 'done'"
                         " AND (number = :number OR id_number = :id) AND NOT (number = :number AND id_number = :id)"
                         " ORDER BY CASE WHEN number = :number THEN 0 ELSE 1 END"},
                        values);
  if (!other) return false;
  if (other->next()) {
    const std::string number = other->value(0).toString().toStdString();
    attempt.outcome = AttemptOutcome::Conflict;
    attempt.text = other->value(1).toString() == values.front().second.toString()
                       ? "this radio's number is done with row " + number
                       : "radio " + other->value(1).toString().toStdString() + " holds the row";
    return m_database.Run(release, values).has_value();
  }
  return m_database
      .RunAll({QString(SetFree) + "id_number = :id AND number <> :number", // the radio's row since then
               "UPDATE fleet_row SET state = 'done', bench = :bench, claim = '', id_number = :id, stamp = :stamp,"
               " changed = {now} WHERE plan = :plan AND number = :number"},
              values)
      .has_value();
}

std::optional<RowList> SqlJournal::ChangedRows(const std::string& plan, std::int64_t since) {
  if (!m_database.Open()) return std::nullopt;
  RowList list;
  if (m_database.IsEmpty()) return list;
  const Values values = {{":plan", Text(plan)}, {":since", QVariant::fromValue(since)}};
  auto now = m_database.Run("SELECT {now}, CASE WHEN :since > 0 THEN 0 ELSE"
                            " (SELECT count(*) FROM fleet_row WHERE plan = :plan) END",
                            values);
  if (!now || !now->next()) return std::nullopt;
  const std::int64_t time = now->value(0).toLongLong();
  list.rows.reserve(now->value(1).value<std::size_t>()); // a long list would grow to twice its size
  // A transaction ends at most some seconds after the time of its change. A server's clock may have been set back. The
  // state of a taken row also depends on its bench.
  constexpr char Changed[] = " AND number IN (SELECT number FROM fleet_row WHERE plan = :plan AND state = 'taken' UNION"
                             " SELECT number FROM fleet_row WHERE plan = :plan AND changed > 0"
                             " AND changed BETWEEN :since - 30 AND {now})";
  auto query = m_database.Run(QString("SELECT ") + RowColumns + " FROM fleet_row WHERE plan = :plan" +
                                  (since > 0 && since <= time ? Changed : "") + " ORDER BY number",
                              values);
  if (!query) return std::nullopt;
  while (query->next())
    list.rows.push_back(RowIn(*query));
  if (since > 0 || !list.rows.empty()) list.time = time;
  return list;
}

std::optional<std::vector<Attempt>> SqlJournal::Attempts(const std::string& plan) {
  if (!m_database.Open()) return std::nullopt;
  std::vector<Attempt> attempts;
  if (m_database.IsEmpty()) return attempts;
  const QString columns = ColumnList().replace("outcome", "CASE WHEN {isLost} THEN 'aborted' ELSE outcome END");
  auto query = m_database.Run("SELECT " + columns +
                                  " FROM fleet_attempt WHERE :plan = '' OR plan = :plan"
                                  " ORDER BY started, number, attempt_key",
                              {{":plan", Text(plan)}});
  if (!query) return std::nullopt;
  while (query->next())
    attempts.push_back(AttemptIn(*query));
  return attempts;
}

} // namespace

std::unique_ptr<Journal> OpenJournal(const std::string& address, JournalUse use) {
  const std::string claimName = NewAttemptKey();
  const auto open = [=](std::function<bool()> mayContinue) {
    return std::make_unique<SqlJournal>(address, use, claimName, std::move(mayContinue));
  };
  if (FileOfJournal(address).empty()) return std::make_unique<TimedJournal>(open);
  return open([] { return true; });
}

JournalFailure WhyServerNotEntered(const std::string& address) {
  SqlConnection server(address, JournalUse::List, [] { return true; });
  auto query = server.Open() ? server.Run("SELECT CASE WHEN to_regclass('fleet_plan') IS NULL"
                                          " THEN has_schema_privilege(current_schema(), 'CREATE')"
                                          " ELSE has_table_privilege('fleet_plan', 'INSERT') END")
                             : std::nullopt;
  if (!query || !query->next()) return server.Failure();
  return query->value(0).toBool() ? JournalFailure() : JournalFailure{"The server does not give this user the rights."};
}

std::string Sha256Of(std::string_view bytes) {
  const QByteArray content(bytes.data(), static_cast<qsizetype>(bytes.size()));
  return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex().toStdString();
}

std::string NewAttemptKey() {
  return QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
}

} // namespace mr4500x
