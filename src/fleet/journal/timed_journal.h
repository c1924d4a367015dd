// A journal on a server that may hold the connection without answering. No call takes longer than a few seconds. Each
// call runs in a separate thread. A call that takes too long is abandoned with its thread and connection, and can no
// longer commit anything. Its thread may still be at work while the process ends, so no code that it runs uses global
// objects with destructors.
#pragma once

#include "journal.h"

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace mr4500x {

class TimedJournal final : public Journal {
public:
  // Called in the thread. `mayContinue` returns false as soon as the call has been abandoned.
  using OpenFunction = std::function<std::unique_ptr<Journal>(std::function<bool()> mayContinue)>;

  explicit TimedJournal(OpenFunction open) : m_open(std::move(open)) {}
  ~TimedJournal() override;
  TimedJournal(const TimedJournal&) = delete;
  TimedJournal& operator=(const TimedJournal&) = delete;

  bool Begin(const PlanHead& plan, const std::vector<JournalRow>& rows) override;
  std::optional<PlanHistory> History(const PlanHead& plan) override;
  Claim ClaimRow(const Attempt& attempt, const ClaimRequest& request) override;
  Renewal Renew(const std::string& plan, std::size_t row, const std::string& bench) override;
  std::optional<Attempt> Enter(const Attempt& attempt) override;
  bool ReportAlive(const std::string& bench) override;
  std::optional<RowList> ChangedRows(const std::string& plan, std::int64_t since) override;
  std::optional<std::vector<Attempt>> Attempts(const std::string& plan) override;
  JournalFailure Failure() const override { return m_failure; }

private:
  struct Worker;

  // The answer of `call`, or `lost` if there is none in time.
  template<class Answer>
  [[nodiscard]] Answer Ask(std::function<Answer(Journal&)> call, Answer lost, std::chrono::seconds more = {});
  void GiveUp();

  const OpenFunction m_open;
  std::shared_ptr<Worker> m_worker; // none before the first call and after an abandoned one
  std::thread m_thread;             // the worker's
  std::chrono::steady_clock::time_point m_notBefore{};
  JournalFailure m_failure;
};

} // namespace mr4500x
