#include "timed_journal.h"

#include <atomic>
#include <condition_variable>
#include <future>
#include <mutex>
#include <utility>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;

constexpr auto LongestCall = 4s;
constexpr std::size_t RowsInASecond = 2500; // on a slow line
// After an abandoned call the next ones fail at once, so that two calls in a row end in time.
constexpr auto PauseAfterIt = 3s;

} // namespace

struct TimedJournal::Worker {
  std::mutex mutex;
  std::condition_variable changed;
  std::function<void(Journal&)> call; // the call to be made
  bool isOver = false;
  std::atomic<bool> isGivenUp = false;

  void Run(const OpenFunction& open) {
    const std::unique_ptr<Journal> journal = open([this] { return !isGivenUp; });
    std::unique_lock lock(mutex);
    for (;;) {
      changed.wait(lock, [this] { return call || isOver; });
      if (!call) return;
      const auto next = std::exchange(call, {});
      lock.unlock();
      next(*journal);
      lock.lock();
    }
  }
};

TimedJournal::~TimedJournal() {
  if (!m_worker) return;
  {
    const std::lock_guard guard(m_worker->mutex);
    m_worker->isOver = true;
  }
  m_worker->changed.notify_one();
  m_thread.join(); // no call is in progress
}

void TimedJournal::GiveUp() {
  m_worker->isGivenUp = true;
  {
    const std::lock_guard guard(m_worker->mutex);
    m_worker->isOver = true;
  }
  m_worker->changed.notify_one();
  m_worker.reset();
  m_thread.detach(); // the thread ends when its call returns
  m_notBefore = std::chrono::steady_clock::now() + PauseAfterIt;
  m_failure = {"The database does not answer."};
}

template<class Answer>
Answer TimedJournal::Ask(std::function<Answer(Journal&)> call, Answer lost, std::chrono::seconds more) {
  if (!m_worker) {
    if (std::chrono::steady_clock::now() < m_notBefore) return lost;
    m_worker = std::make_shared<Worker>();
    m_thread = std::thread([worker = m_worker, open = m_open] { worker->Run(open); });
  }
  const auto promise = std::make_shared<std::promise<std::pair<Answer, JournalFailure>>>();
  auto answer = promise->get_future();
  {
    const std::lock_guard guard(m_worker->mutex);
    m_worker->call = [promise, call = std::move(call)](Journal& journal) {
      try {
        Answer found = call(journal);
        promise->set_value({std::move(found), journal.Failure()});
      } catch (...) {
        promise->set_exception(std::current_exception());
      }
    };
  }
  m_worker->changed.notify_one();
  if (answer.wait_for(LongestCall + more) != std::future_status::ready) {
    GiveUp();
    return lost;
  }
  auto [found, failure] = answer.get();
  m_failure = std::move(failure);
  return found;
}

// The arguments are copied, because an abandoned call may need them later.
bool TimedJournal::Begin(const PlanHead& plan, const std::vector<JournalRow>& rows) {
  const std::chrono::seconds forRows(rows.size() / RowsInASecond); // no port waits for this call
  return Ask<bool>([=](Journal& journal) { return journal.Begin(plan, rows); }, false, forRows);
}

std::optional<PlanHistory> TimedJournal::History(const PlanHead& plan) {
  return Ask<std::optional<PlanHistory>>([=](Journal& journal) { return journal.History(plan); }, std::nullopt);
}

Claim TimedJournal::ClaimRow(const Attempt& attempt, const ClaimRequest& request) {
  return Ask<Claim>([=](Journal& journal) { return journal.ClaimRow(attempt, request); }, {});
}

Renewal TimedJournal::Renew(const std::string& plan, std::size_t row, const std::string& bench) {
  return Ask<Renewal>([=](Journal& journal) { return journal.Renew(plan, row, bench); }, Renewal::Lost);
}

std::optional<Attempt> TimedJournal::Enter(const Attempt& attempt) {
  return Ask<std::optional<Attempt>>([=](Journal& journal) { return journal.Enter(attempt); }, std::nullopt);
}

bool TimedJournal::ReportAlive(const std::string& bench) {
  return Ask<bool>([=](Journal& journal) { return journal.ReportAlive(bench); }, false);
}

std::optional<RowList> TimedJournal::ChangedRows(const std::string& plan, std::int64_t since) {
  return Ask<std::optional<RowList>>([=](Journal& journal) { return journal.ChangedRows(plan, since); }, std::nullopt);
}

std::optional<std::vector<Attempt>> TimedJournal::Attempts(const std::string& plan) {
  return Ask<std::optional<std::vector<Attempt>>>([=](Journal& journal) { return journal.Attempts(plan); },
                                                  std::nullopt);
}

} // namespace mr4500x
