#include "sql_journal.h"

#include "attempt_records.h"
#include "sql_connection.h"

#include <QCryptographicHash>
#include <QUuid>

#include <algorithm>

namespace mr4500x {
namespace {

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString WithoutTrailingBlanks(const std::string& text) {
  return Text(text.substr(0, text.find_last_not_of(' ') + 1));
}

// What is unknown counts as what gives no row out twice.
RowState StateIn(const QString& name) {
  return name == "free" ? RowState::Free : name == "done" ? RowState::Done : RowState::Taken;
}
AttemptOutcome OutcomeIn(const QString& name) {
  return OutcomeStoredAs(name.toStdString()).value_or(AttemptOutcome::Conflict);
}

QString ColumnList(const QString& before) {
  QString columns = before + "number, " + before + "outcome";
  for (const AttemptColumn& column : AttemptColumns)
    columns += ", " + before + column.name;
  return columns;
}

JournalRow RowIn(const QSqlQuery& query) {
  JournalRow row{.row = query.value(0).value<std::size_t>(),
                 .label = query.value(1).toString().toStdString(),
                 .radio = query.value(2).toString().toStdString(),
                 .state = StateIn(query.value(3).toString()),
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
  attempt.outcome = OutcomeIn(query.value(1).toString());
  int place = 2;
  for (const AttemptColumn& column : AttemptColumns)
    attempt.*column.text = query.value(place++).toString().toStdString();
  return attempt;
}

class SqlJournal final : public Journal {
public:
  SqlJournal(const std::string& address, JournalUse use) : m_database(address, use) {}

  bool Begin(const std::string& plan, const std::string& name, const std::vector<JournalRow>& rows) override;
  Claim ClaimRow(const std::string& plan, const std::string& bench, const std::string& idNumber, bool endless) override;
  Renewal Renew(const std::string& plan, std::size_t row, const std::string& bench) override;
  std::optional<AttemptOutcome> Enter(const Attempt& attempt) override;
  std::optional<std::vector<JournalRow>> Rows(const std::string& plan) override;
  std::optional<std::vector<Attempt>> Attempts(const std::string& plan) override;
  std::string Error() const override { return m_database.Error(); }

private:
  [[nodiscard]] std::optional<std::vector<JournalRow>> SelectRows(const QString& condition, const Values& values);

  [[nodiscard]] bool ClaimIn(Claim& claim, bool endless, const Values& values);
  [[nodiscard]] bool ClaimFirst(Claim& claim, const char* condition, Values values);
  [[nodiscard]] bool EnterOnce(const Attempt& attempt, AttemptOutcome& outcome);
  [[nodiscard]] bool FinishRow(AttemptOutcome& outcome, const Values& values);

  SqlConnection m_database;
};

std::optional<std::vector<JournalRow>> SqlJournal::SelectRows(const QString& condition, const Values& values) {
  auto query =
      m_database.Run("SELECT number, label, radio, CASE WHEN {isFree} THEN 'free' ELSE state END, bench, id_number"
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
  return m_database.Open() && m_database.InTransaction([&] {
    const auto added =
        m_database.Change("INSERT INTO fleet_plan (plan, name) VALUES (:plan, :name) ON CONFLICT DO NOTHING",
                          {{":plan", Text(plan)}, {":name", Text(name)}});
    if (!added || *added == 0) return added.has_value(); // its rows came with it
    return std::ranges::all_of(rows, [&](const JournalRow& row) {
      return m_database
          .Run("INSERT INTO fleet_row (plan, number, label, radio) VALUES (:plan, :number, :label, :radio)",
               {{":plan", Text(plan)},
                {":number", QVariant::fromValue(row.row)},
                {":label", Text(row.label)},
                {":radio", WithoutTrailingBlanks(row.radio)}})
          .has_value();
    });
  });
}

constexpr char Heard[] = "INSERT INTO fleet_bench (bench, heard) VALUES (:bench, {now})"
                         " ON CONFLICT (bench) DO UPDATE SET heard = excluded.heard";
constexpr char SetFree[] = "UPDATE fleet_row SET state = 'free', bench = '', claim = '', id_number = ''"
                           " WHERE plan = :plan AND state = 'taken' AND ";

Claim SqlJournal::ClaimRow(const std::string& plan, const std::string& bench, const std::string& idNumber,
                           bool endless) {
  Claim claim;
  const Values values = {{":id", WithoutTrailingBlanks(idNumber)},
                         {":plan", Text(plan)},
                         {":bench", Text(bench)},
                         {":claim", m_database.Name()}};
  if (!m_database.Open() || !m_database.InTransaction([&] { return ClaimIn(claim, endless, values); })) return {};
  return claim;
}

bool SqlJournal::ClaimIn(Claim& claim, bool endless, const Values& values) {
  claim = {Claim::Kind::NoRow, {}};
  // A claim that this journal still has comes from a call whose answer was lost.
  if (!m_database.Run(Heard, values) || !m_database.Run(QString(SetFree) + "claim = :claim", values)) return false;
  if (!values.front().second.toString().isEmpty()) {
    const auto done = SelectRows("AND state = 'done' AND id_number = :id ORDER BY number LIMIT 1", values);
    const auto named = done ? SelectRows("AND radio = :id", values) : std::nullopt;
    if (!named) return false;
    if (!done->empty()) claim = {Claim::Kind::DoneHere, done->front()};
    if (!done->empty()) return true;
    // The number is also at another port, or its bench has died and may have written it.
    const auto held = SelectRows("AND state = 'taken' AND NOT {isFree} AND id_number = :id", values);
    if (!held || !held->empty()) return held.has_value();
    if (!named->empty()) return ClaimFirst(claim, "AND radio = :id AND {isFree}{lock}", values);
  }
  constexpr char FirstFree[] = "AND radio = '' AND {isFree} ORDER BY number LIMIT 1{skip}";
  if (!ClaimFirst(claim, FirstFree, values)) return false;
  if (claim.kind == Claim::Kind::Taken || !endless) return true;
  // The plan's lock keeps two benches from making the same row.
  return m_database.Run("SELECT plan FROM fleet_plan WHERE plan = :plan{lock}", values) &&
         m_database.Run("INSERT INTO fleet_row (plan, number)"
                        " SELECT :plan, coalesce(max(number), 0) + 1 FROM fleet_row WHERE plan = :plan",
                        values) &&
         ClaimFirst(claim, FirstFree, values);
}

bool SqlJournal::ClaimFirst(Claim& claim, const char* condition, Values values) {
  values.emplace_back(":number", 0);
  for (;;) {
    const auto rows = SelectRows(condition, values);
    if (!rows || rows->empty()) return rows.has_value();
    values.back().second = QVariant::fromValue(rows->front().row);
    // What was selected may be older than its lock, so it is asked again. Another bench may have been faster.
    const auto taken =
        m_database.Change("UPDATE fleet_row SET state = 'taken', bench = :bench, claim = :claim, id_number = :id"
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
  const Values values = {{":plan", Text(plan)}, {":number", QVariant::fromValue(row)}, {":bench", Text(bench)}};
  bool isKept = false;
  const auto isHeld = [&] {
    auto query =
        m_database.Run("SELECT number FROM fleet_row WHERE plan = :plan AND number = :number AND state = 'taken'"
                       " AND bench = :bench{lock}",
                       values);
    isKept = query && query->next();
    return query.has_value();
  };
  if (!m_database.Open() || !m_database.InTransaction([&] { return m_database.Run(Heard, values) && isHeld(); }))
    return Renewal::Lost;
  return isKept ? Renewal::Kept : Renewal::TakenAway;
}

std::optional<AttemptOutcome> SqlJournal::Enter(const Attempt& attempt) {
  AttemptOutcome outcome = attempt.outcome;
  if (!m_database.Open() || !m_database.InTransaction([&] { return EnterOnce(attempt, outcome); })) return std::nullopt;
  return outcome;
}

bool SqlJournal::EnterOnce(const Attempt& attempt, AttemptOutcome& outcome) {
  Values values = {{":id", WithoutTrailingBlanks(attempt.idNumber)}, {":number", QVariant::fromValue(attempt.row)}};
  for (const AttemptColumn& column : AttemptColumns)
    values.emplace_back(QString(":") + column.name, Text(attempt.*column.text));
  auto earlier = m_database.Run("SELECT outcome FROM fleet_attempt WHERE attempt_key = :attempt_key", values);
  if (!earlier) return false;
  if (earlier->next()) {
    outcome = OutcomeIn(earlier->value(0).toString());
    return true;
  }
  if (!FinishRow(outcome, values)) return false;
  values.emplace_back(":outcome", Text(StoredName(outcome)));
  return m_database.Run("INSERT INTO fleet_attempt (" + ColumnList("") + ") VALUES (" + ColumnList(":") + ')', values)
      .has_value();
}

bool SqlJournal::FinishRow(AttemptOutcome& outcome, const Values& values) {
  if (outcome == AttemptOutcome::Verified) {
    // In the meantime the row may have got another radio, or the radio another row.
    auto other = m_database.Run("SELECT number FROM fleet_row WHERE plan = :plan AND number = :number{lock}", values);
    if (other)
      other =
          m_database.Run("SELECT number FROM fleet_row WHERE plan = :plan AND state = 'done'"
                         " AND (number = :number OR id_number = :id) AND NOT (number = :number AND id_number = :id)",
                         values);
    if (!other) return false;
    if (!other->next())
      return m_database
          .Run("UPDATE fleet_row SET state = 'done', bench = :bench, claim = '', id_number = :id"
               " WHERE plan = :plan AND number = :number",
               values)
          .has_value();
    outcome = AttemptOutcome::Conflict;
  }
  return m_database.Run(QString(SetFree) + "number = :number AND bench = :bench AND id_number = :id", values)
      .has_value();
}

std::optional<std::vector<JournalRow>> SqlJournal::Rows(const std::string& plan) {
  return m_database.Open() ? SelectRows("ORDER BY number", {{":plan", Text(plan)}}) : std::nullopt;
}

std::optional<std::vector<Attempt>> SqlJournal::Attempts(const std::string& plan) {
  auto query =
      m_database.Open()
          ? m_database.Run(
                "SELECT " + ColumnList("") +
                    " FROM fleet_attempt WHERE :plan = '' OR plan = :plan ORDER BY started, number, attempt_key",
                {{":plan", Text(plan)}})
          : std::nullopt;
  if (!query) return std::nullopt;
  std::vector<Attempt> attempts;
  while (query->next())
    attempts.push_back(AttemptIn(*query));
  return attempts;
}

} // namespace

std::unique_ptr<Journal> OpenJournal(const std::string& address, JournalUse use) {
  return std::make_unique<SqlJournal>(address, use);
}

std::string Sha256Of(std::string_view bytes) {
  const QByteArray content(bytes.data(), static_cast<qsizetype>(bytes.size()));
  return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex().toStdString();
}

std::string NewAttemptKey() {
  return QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
}

} // namespace mr4500x
