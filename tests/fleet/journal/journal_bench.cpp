// A bench without radios, in a process of its own: journal_bench ADDRESS PLAN ROWS BENCH LIMIT. Takes rows and enters
// them as verified until all are done or it has done LIMIT, and says "took ROW", "done ROW RADIO" and "lost". LIMIT
// below 0: it holds its last row and waits to be killed.
#include "sql_journal.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <thread>

#include <sys/prctl.h>
#include <unistd.h>

using namespace mr4500x;

namespace {

// Until the database answers, or another bench has done what it has to.
template<typename Call>
auto Repeated(Call call) {
  auto answer = call();
  for (; !answer; answer = call())
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  return answer;
}

void SayLost() {
  std::cout << "lost" << std::endl;
}

bool AllDone(const std::vector<JournalRow>& rows) {
  return std::ranges::all_of(rows, [](const JournalRow& row) { return row.state == RowState::Done; });
}

} // namespace

int main(int count, char* arguments[]) {
  prctl(PR_SET_PDEATHSIG, SIGKILL); // with its test
  const QCoreApplication application(count, arguments);
  if (count != 6) return EXIT_FAILURE;
  const std::string plan = arguments[2], bench = arguments[4];
  std::vector<JournalRow> rows(std::stoul(arguments[3]));
  for (std::size_t i = 0; i < rows.size(); ++i)
    rows[i].row = i + 1;
  const int limit = std::stoi(arguments[5]);
  const std::unique_ptr<Journal> journal = OpenJournal(arguments[1], JournalUse::Enter);
  Repeated([&] { return journal->Begin(plan, "benches", rows); });

  for (int radio = 1; radio <= std::abs(limit); ++radio) {
    Attempt attempt;
    attempt.key = NewAttemptKey();
    attempt.plan = plan;
    attempt.bench = bench;
    attempt.idNumber = bench + '-' + std::to_string(radio);
    attempt.outcome = AttemptOutcome::Verified;
    bool isOver = false;
    Repeated([&] {
      const Claim claim = journal->ClaimRow(plan, bench, attempt.idNumber, false);
      attempt.row = claim.row.row;
      if (claim.kind == Claim::Kind::Lost) SayLost();
      const auto now = claim.kind == Claim::Kind::NoRow ? journal->Rows(plan) : std::nullopt;
      isOver = now && AllDone(*now);
      return isOver || claim.kind == Claim::Kind::Taken;
    });
    if (isOver) break;
    std::cout << "took " << attempt.row << std::endl;
    if (radio == -limit) pause();
    if (journal->Renew(plan, attempt.row, bench) == Renewal::TakenAway) return EXIT_FAILURE;
    const auto entered = Repeated([&] {
      const auto outcome = journal->Enter(attempt);
      if (!outcome) SayLost();
      return outcome;
    });
    if (*entered != AttemptOutcome::Verified) return EXIT_FAILURE;
    std::cout << "done " << attempt.row << ' ' << attempt.idNumber << std::endl;
  }
  return EXIT_SUCCESS;
}
