// The rules of the journal, and benches that share one, on a file and on a server.
#include "sql_journal.h"

#include "postgres_server.h"
#include "rows.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <future>
#include <map>
#include <sstream>
#include <thread>

namespace mr4500x {
namespace {

using namespace std::literals;

JournalRow NewRow(std::size_t row, const std::string& label = "", const std::string& radio = "") {
  return {row, label, radio, RowState::Free, "", ""};
}

struct SqlJournals : testing::TestWithParam<const char*> {
  void SetUp() override {
    if (IsServer() && !PostgresServer::IsInstalled()) GTEST_SKIP() << "PostgreSQL is not installed";
    if (IsServer()) {
      m_server.emplace();
      ASSERT_TRUE(m_server->Start());
    }
    address = IsServer() ? m_server->Address() : "sqlite:" + m_folder.filePath("fleet.journal").toStdString();
  }
  void TearDown() override { QSqlDatabase::removeDatabase(QSqlDatabase::defaultConnection); }
  [[nodiscard]] bool IsServer() const { return std::string(GetParam()) == "PostgreSQL"; }

  // For what no journal does.
  [[nodiscard]] QSqlDatabase Connect() const {
    if (QSqlDatabase::contains()) return QSqlDatabase::database();
    QSqlDatabase database = QSqlDatabase::addDatabase(IsServer() ? "QPSQL" : "QSQLITE");
    database.setDatabaseName(IsServer() ? "postgres" : m_folder.filePath("fleet.journal"));
    if (IsServer()) database.setHostName(m_server->Folder());
    if (IsServer()) database.setPort(5433); // not the usual one
    database.setUserName("bench");
    EXPECT_TRUE(database.open());
    return database;
  }
  void Execute(const QString& statement) const {
    QSqlQuery query(Connect());
    EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
  }
  void Silence(const std::string& bench, int seconds) {
    Execute(QString("UPDATE fleet_bench SET heard = heard - %1 WHERE bench = '%2'").arg(seconds).arg(bench.c_str()));
  }

  void TakeWhatAnotherTakesMeanwhile();
  void MoveTheFile(Journal& journal, const Attempt& attempt);

  int argumentCount = 0;
  QCoreApplication application{argumentCount, nullptr};
  std::string address;
  QTemporaryDir m_folder;
  std::optional<PostgresServer> m_server;
};

INSTANTIATE_TEST_SUITE_P(On, SqlJournals, testing::Values("SQLite", "PostgreSQL"),
                         [](const auto& test) { return std::string(test.param); });

std::string TextOfRow(const JournalRow& row) {
  const std::string number = std::to_string(row.row);
  if (row.state == RowState::Free) return number + " free" + row.bench + row.idNumber;
  return number + (row.state == RowState::Done ? " done " : " taken ") + row.bench + ' ' + row.idNumber;
}

// The look for a free row sees the others as they were before it had to wait; the row is not free for all that.
void SqlJournals::TakeWhatAnotherTakesMeanwhile() {
  const std::string plan = "race";
  ASSERT_TRUE(OpenJournal(address, JournalUse::Enter)->Begin(plan, "", {NewRow(1, "", "R1")}));
  QSqlQuery other(Connect());
  const char* const taking[] = {IsServer() ? "BEGIN" : "BEGIN IMMEDIATE",
                                "INSERT INTO fleet_bench VALUES ('Z', 99999999999)",
                                "UPDATE fleet_row SET state = 'taken', bench = 'Z', claim = 'z' WHERE plan = 'race'"};
  for (const char* const statement : taking)
    ASSERT_TRUE(other.exec(statement));
  auto kind = std::async(std::launch::async, [&] {
    return OpenJournal(address, JournalUse::Enter)->ClaimRow(plan, "A", "R1", false).kind;
  });
  const auto waits = [&] {
    return !IsServer() || (other.exec("SELECT 1 FROM pg_locks WHERE NOT granted") && other.next());
  };
  while (!waits() && kind.wait_for(0s) != std::future_status::ready) {
  }
  ASSERT_TRUE(other.exec("COMMIT"));
  EXPECT_EQ(kind.get(), Claim::Kind::NoRow);
}

TEST_P(SqlJournals, FollowTheRules) {
  const char* const outcomes[] = {"verified", "failed", "aside", "conflict"};
  for (const Row& rule : RowsOf(CASES "rules.txt", "([^:]*): (.*)")) {
    const std::string& plan = rule[1];
    SCOPED_TRACE(plan);
    std::map<std::string, std::unique_ptr<Journal>> ports;
    const auto at = [&](const std::string& port) -> Journal& {
      auto& journal = ports[port];
      if (!journal) journal = OpenJournal(address, JournalUse::Enter);
      return *journal;
    };
    ASSERT_TRUE(at("A").Begin(plan, "rules", {NewRow(1, "one", "R1  "), NewRow(2, "two"), NewRow(3)}))
        << at("A").Error();
    const auto result = [&](const std::string& step) -> std::string {
      std::istringstream words(step);
      std::string command, port, radio;
      words >> command;
      if (command == "take" || command == "endless") {
        words >> port;
        std::getline(words.ignore(), radio);
        const Claim claim = at(port).ClaimRow(plan, port.substr(0, 1), radio, command == "endless");
        const char* const kinds[] = {"row ", "done ", "none", "lost"};
        return kinds[static_cast<int>(claim.kind)] + (claim.row.row > 0 ? std::to_string(claim.row.row) : "");
      }
      if (command == "renew") {
        std::size_t row = 0;
        words >> port >> row;
        const char* const renewals[] = {"kept", "away", "lost"};
        return renewals[static_cast<int>(at(port).Renew(plan, row, port))];
      }
      if (command == "enter") {
        Attempt attempt;
        std::string outcome;
        words >> attempt.key >> attempt.bench >> attempt.idNumber >> attempt.row >> outcome;
        attempt.plan = plan;
        attempt.outcome = static_cast<AttemptOutcome>(std::ranges::find(outcomes, outcome) - outcomes);
        const auto entered = at(attempt.bench).Enter(attempt);
        return entered ? outcomes[static_cast<int>(*entered)] : "lost";
      }
      if (command == "silence") {
        int seconds = 0;
        words >> port >> seconds;
        Silence(port, seconds);
        return "";
      }
      if (command == "attempts") return std::to_string(at("A").Attempts(plan).value().size());
      std::string text;
      const auto rows = at("A").Rows(plan).value();
      for (const JournalRow& row : rows)
        text += (text.empty() ? "" : ", ") + TextOfRow(row);
      return text;
    };
    const QStringList steps = QString::fromStdString(rule[2]).split("; ");
    for (const QString& step : steps)
      EXPECT_EQ(result(step.section(" = ", 0, 0).toStdString()), step.section(" = ", 1).toStdString())
          << step.toStdString();
  }
  TakeWhatAnotherTakesMeanwhile();
}

// What goes to a file that nobody finds again would be lost. `journal` has the file open.
void SqlJournals::MoveTheFile(Journal& journal, const Attempt& attempt) {
  const std::string path = address.substr(std::string("sqlite:").size()), moved = path + ".moved";
  std::filesystem::rename(path, moved);
  const auto refuses = [&](const std::string& why) {
    EXPECT_EQ(journal.Enter(attempt), std::nullopt) << why;
    EXPECT_EQ(journal.Error(), "The journal was moved, deleted or replaced.") << why;
  };
  refuses("moved");
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_EQ(OpenJournal(path, JournalUse::List)->Attempts(""), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(path)) << "made by a list";
  ASSERT_TRUE(OpenJournal(path, JournalUse::Enter)->Begin("p1", "name", {}));
  refuses("another one in its place");
  std::filesystem::rename(moved, path);
  EXPECT_EQ(journal.Enter(attempt), attempt.outcome);

  const std::string other = path + ".other";
  std::ofstream(other) << 'x';
  const auto bad = OpenJournal(other, JournalUse::Enter);
  EXPECT_FALSE(bad->Begin("p1", "name", {}));
  EXPECT_EQ(bad->Error(), "It is no journal.");
  EXPECT_EQ(std::filesystem::file_size(other), 1U);
}

TEST_P(SqlJournals, KeepEveryDetailAndRefuseWhatTheyDoNotUnderstand) {
  const auto journal = OpenJournal(address, JournalUse::Enter);
  const std::vector<JournalRow> rows = {NewRow(7, "Wörk'shop \"7\" :plan ?", "R7"), NewRow(9)};
  for (int i = 0; i < 2; ++i)
    ASSERT_TRUE(journal->Begin("p1", "name", rows)) << journal->Error();
  EXPECT_EQ(journal->Rows("p1"), rows);
  EXPECT_EQ(journal->Rows("p2"), std::vector<JournalRow>());

  // clang-format off
  const Attempt second = {"a", "p1", 9, "la:bel", "id'", "1.7\\n", "3; 4", "COM3", "bench", "2026-11-25 13:45:08",
                          "2026-11-25 13:46:00", AttemptOutcome::SetAside, "two\nlines, ü", "/b/1.K4X", "00ff"};
  // clang-format on
  Attempt first = second;
  first.key = "b";
  first.plan = "p2";
  first.start = "2026-11-25 13:45:07";
  IsServer() ? static_cast<void>(journal->Enter(second)) : MoveTheFile(*journal, second);
  EXPECT_EQ(journal->Enter(first), AttemptOutcome::SetAside);
  EXPECT_EQ(journal->Attempts("p1"), std::vector<Attempt>({second}));
  EXPECT_EQ(journal->Attempts(""), std::vector<Attempt>({first, second}));

  Execute("UPDATE fleet_schema SET version = version + 1");
  const auto later = OpenJournal(address, JournalUse::Enter);
  for (int i = 0; i < 2; ++i)
    EXPECT_FALSE(later->Begin("p1", "name", rows));
  EXPECT_NE(later->Error().find("later version"), std::string::npos) << later->Error();

  for (const char* const bad :
       {"/no/such/folder/fleet.journal", "/dev/null", "postgresql://x@/y?host=/no/such/folder"}) {
    const auto away = OpenJournal(bad, JournalUse::Enter);
    EXPECT_EQ(away->ClaimRow("p1", "A", "X", false).kind, Claim::Kind::Lost) << bad;
    EXPECT_EQ(away->Renew("p1", 7, "A"), Renewal::Lost) << bad;
    EXPECT_EQ(away->Enter(first), std::nullopt) << bad;
    EXPECT_EQ(away->Rows("p1"), std::nullopt) << bad;
    EXPECT_EQ(away->Attempts(""), std::nullopt) << bad;
    EXPECT_NE(away->Error(), "") << bad;
  }
}

// Three benches at once, and a server that crashes meanwhile.
TEST_P(SqlJournals, GiveNoRowOutTwice) {
  constexpr std::size_t count = 60;
  std::vector<JournalRow> all;
  for (std::size_t row = 1; row <= count; ++row)
    all.push_back(NewRow(row));
  ASSERT_TRUE(OpenJournal(address, JournalUse::Enter)->Begin("plan", "", all));
  std::atomic<int> done = 0, lost = 0;
  const auto program = [&](const std::string& bench) {
    const auto journal = OpenJournal(address, JournalUse::Enter);
    std::map<std::size_t, std::string> radios; // by row
    for (int radio = 1;; ++radio) {
      Attempt attempt;
      attempt.key = NewAttemptKey();
      attempt.plan = "plan";
      attempt.bench = bench;
      attempt.idNumber = bench + std::to_string(radio);
      attempt.outcome = AttemptOutcome::Verified;
      Claim claim = journal->ClaimRow("plan", bench, attempt.idNumber, false);
      for (; claim.kind == Claim::Kind::Lost; ++lost)
        claim = journal->ClaimRow("plan", bench, attempt.idNumber, false);
      if (claim.kind == Claim::Kind::NoRow) return radios;
      attempt.row = claim.row.row;
      std::optional<AttemptOutcome> entered = journal->Enter(attempt);
      for (; !entered; ++lost)
        entered = journal->Enter(attempt);
      EXPECT_EQ(entered, AttemptOutcome::Verified);
      radios[attempt.row] = attempt.idNumber;
      ++done;
    }
  };
  std::vector<std::future<std::map<std::size_t, std::string>>> benches;
  for (const char* const bench : {"A", "B", "C"})
    benches.push_back(std::async(std::launch::async, program, bench));
  while (m_server && done < 10)
    std::this_thread::yield();
  if (m_server) m_server->Crash();
  EXPECT_TRUE(!m_server || m_server->Start());
  std::map<std::size_t, std::string> radios, entered;
  for (auto& bench : benches)
    radios.merge(bench.get());
  EXPECT_EQ(done, static_cast<int>(count)) << "a row was done twice, or not at all";
  EXPECT_TRUE(m_server || lost == 0) << "benches wait for each other";
  for (const Attempt& attempt : OpenJournal(address, JournalUse::List)->Attempts("plan").value())
    entered[attempt.row] += attempt.idNumber;
  EXPECT_EQ(radios.size(), count);
  EXPECT_EQ(entered, radios);
}

} // namespace
} // namespace mr4500x
