#include "port_worker.h"

#include "function_settings.h"
#include "port_machine.h"
#include "radio_job.h"
#include "words.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr std::chrono::seconds CycleTime{1};
constexpr std::chrono::milliseconds EndCheckTime{100}; // another port's radio may have been the last one

class PortWorker final : ExchangeObserver {
public:
  PortWorker(std::size_t port, SerialLine& line, Clock& clock, Journal& journal, const BenchContext& context)
      : m_line(line), m_clock(clock), m_journal(journal), m_context(context), m_settings(context.settings),
        m_nextCycle(clock.Now() + CycleTime) {
    m_machine.status.port = port;
  }

  void Run() {
    m_context.events.onStatus(m_machine.status);
    PortAction action = Handle(CycleStarted{});
    while (action != PortAction::End)
      action = Handle(Perform(action));
  }

private:
  // Advances the machine, and reports changes. Row, label and number are reported with the next state.
  PortAction Handle(const PortEvent& event) {
    const PortStatus before = m_machine.status;
    BenchState& state = m_context.state;
    const bool goesOn =
        std::holds_alternative<CycleStarted>(event) && state.TakeGoOn(before.port) && IsByClick(before.remedy);
    if (goesOn) m_wanted = before.idNumber;
    auto [machine, action] = Advance(std::move(m_machine), event, {state.IsOver(), state.HasSlot(), goesOn});
    m_machine = std::move(machine);
    PlanNext();
    const PortStatus& now = m_machine.status;
    if (now.state != before.state || now.text != before.text || now.percent != before.percent ||
        now.nextRow != before.nextRow || now.remedy != before.remedy)
      m_context.events.onStatus(now);
    return action;
  }

  void PlanNext() {
    PortStatus& status = m_machine.status;
    m_next = m_context.state.Rows().NextFor(status.port, NeedsRow(m_machine));
    status.nextRow = status.state == PortState::Waiting ? m_next.row : 0;
    const std::vector<PlanRow>& rows = m_settings.plan.rows;
    status.nextLabel = status.nextRow == 0 || status.nextRow > rows.size() ? "" : rows[status.nextRow - 1].label;
  }

  [[nodiscard]] PortEvent Perform(PortAction action) {
    if (action == PortAction::PollJournal) return PollJournal();
    if (action == PortAction::Identify) return Identify();
    if (action == PortAction::HandleRadio) return HandleRadio();
    while (!m_context.state.IsOver() && m_clock.Now() < m_nextCycle)
      m_clock.WaitUntil(std::min(m_nextCycle, m_clock.Now() + EndCheckTime));
    m_nextCycle = m_clock.Now() + CycleTime;
    return CycleStarted{};
  }

  [[nodiscard]] JournalPolled PollJournal();
  [[nodiscard]] RadioIdentified Identify();
  [[nodiscard]] RadioReported HandleRadio();
  [[nodiscard]] Claim ClaimRow(Attempt& attempt, bool takesDone);
  [[nodiscard]] bool ListRows();
  [[nodiscard]] RadioReported ReportNoRow(Attempt& attempt, const JournalRow& held, BenchState::Slot& slot);
  [[nodiscard]] Attempt NewAttempt() const;
  [[nodiscard]] RadioReported Enter(Attempt& attempt, AttemptOutcome outcome, BenchState::Slot& slot,
                                    Remedy remedy = Remedy::None);

  // An identification reports only its beginning.
  void Began(Transfer /*transfer*/, int /*maximum*/) override { static_cast<void>(Handle(RadioAnswered{})); }

  SerialLine& m_line;
  Clock& m_clock;
  Journal& m_journal;
  const BenchContext& m_context;
  const BenchSettings& m_settings;
  Clock::Moment m_nextCycle;
  PortMachine m_machine;
  RowQueue::Next m_next;
  RadioImage m_identity;         // of the last radio that answered
  std::string m_identityText;    // why it is refused if it has no number
  std::string m_wanted;          // the number of the last radio that the user wants to be programmed
  bool m_hasAskedBefore = false; // it is the one that waits for a row
};

JournalPolled PortWorker::PollJournal() {
  const bool isReady =
      m_context.pending.EnterPending(m_journal) && m_journal.ReportAlive(m_settings.bench); // it can be written
  for (const Attempt& attempt : m_context.pending.TakeConflicts())
    m_context.events.onConflict(attempt);
  if (!isReady || !ListRows()) return {m_journal.Failure().error};
  return {};
}

// False if the journal does not answer.
bool PortWorker::ListRows() {
  const Plan& plan = m_settings.plan;
  RowQueue& queue = m_context.state.Rows();
  const auto since = plan.isEndless ? std::nullopt : queue.BeginList(m_machine.status.port);
  if (!since) return true;
  const auto list = m_journal.ChangedRows(plan.key, *since);
  const std::size_t done = queue.EndList(list.value_or(RowList()));
  if (list && done >= plan.rows.size()) m_context.state.SetRowsDone();
  return list.has_value();
}

RadioIdentified PortWorker::Identify() {
  m_identity = {};
  const ExchangeResult result = ReadIdentity(m_line, m_identity, *this, 1);
  if (result.outcome == Outcome::PortNotOpened) return {result.outcome, "", result.systemDescription};
  if (result.outcome == Outcome::NoResponse) return {result.outcome, "", m_line.HasReceived() ? NoiseHint : ""};
  const bool isComplete = result.outcome == Outcome::Complete;
  if (!isComplete) m_identity = {};
  m_identityText = isComplete ? NoNumberReason : ReasonFor(result);
  const std::string idNumber = IdentityNumber(m_identity);
  m_hasAskedBefore = m_machine.waitsForRow && m_machine.status.idNumber == idNumber;
  return {result.outcome, idNumber, ""};
}

RadioReported PortWorker::HandleRadio() {
  BenchState::Slot slot(m_context.state);
  if (!slot.IsTaken()) return {PortState::Waiting};
  Attempt attempt = NewAttempt();
  if (attempt.idNumber.empty()) {
    attempt.text = m_identityText;
    return Enter(attempt, AttemptOutcome::Failed, slot,
                 m_identityText == NoNumberReason ? Remedy::PutAside : Remedy::CheckCable);
  }
  const Claim claim = m_context.pending.EnterPending(m_journal) ? ClaimRow(attempt, false) : Claim{};
  if (claim.kind == Claim::Kind::Lost) return {.state = PortState::NoJournal, .text = m_journal.Failure().error};
  if (claim.kind == Claim::Kind::NoRow) return ReportNoRow(attempt, claim.row, slot);
  RadioJob job(m_line, m_journal, m_context, [&](PortState state, int percent) {
    static_cast<void>(Handle(RadioReported{state, attempt.row, attempt.label, "", percent}));
  });
  if (claim.kind == Claim::Kind::DoneHere) {
    const bool isSame = claim.row.stamp == StampDigits(m_identity) && !claim.row.stamp.empty();
    const AttemptOutcome found =
        isSame && !m_settings.comparesDone ? AttemptOutcome::DoneBefore : job.CompareDone(attempt);
    const bool isRewritten = found == AttemptOutcome::SetAside && m_settings.rewritesDone &&
                             ClaimRow(attempt, true).kind == Claim::Kind::Taken;
    if (!isRewritten) return Enter(attempt, found, slot, job.RemedyOf());
    attempt.text.clear();
  } else if (claim.reissued > 0 && claim.row.radio.empty() && !m_settings.acceptsReissued &&
             m_wanted != attempt.idNumber) {
    attempt.text = ReissuedReason(claim.reissued);
    return Enter(attempt, AttemptOutcome::SetAside, slot, Remedy::ProgramIt);
  }
  const AttemptOutcome outcome = job.Run(m_identity, attempt);
  return Enter(attempt, outcome, slot, job.RemedyOf());
}

// The attempt gets the row.
Claim PortWorker::ClaimRow(Attempt& attempt, bool takesDone) {
  const ClaimRequest request = {.isEndless = m_settings.plan.isEndless,
                                .takesDone = takesDone,
                                .row = m_next.row,
                                .isChosen = m_next.isChosen,
                                .begun = m_next.begun};
  Claim claim = m_journal.ClaimRow(attempt, request);
  const bool hasRow = claim.kind == Claim::Kind::Taken || claim.kind == Claim::Kind::DoneHere;
  if (hasRow) attempt.row = claim.row.row;
  if (hasRow) attempt.label = claim.row.label;
  if (claim.kind == Claim::Kind::Taken) m_context.state.Rows().Hold(m_machine.status.port, attempt.row, attempt.port);
  return claim;
}

// A radio that waits for a row is entered only once.
RadioReported PortWorker::ReportNoRow(Attempt& attempt, const JournalRow& held, BenchState::Slot& slot) {
  if (held.row == 0 && m_next.isChosen) {
    attempt.text = ChoiceGoneReason(m_next.row);
    return Enter(attempt, AttemptOutcome::SetAside, slot, Remedy::ChooseAgain); // it must not get another row by itself
  }
  const std::string port = held.bench == m_settings.bench ? m_context.state.Rows().PortThatHolds(held.row) : "";
  attempt.text = port.empty() ? HeldReason(held) : AtOtherPortReason(port);
  if (held.row == 0 && ListRows()) attempt.text = NoFreeRowReason(m_context.state.Rows().Counts());
  if (!m_hasAskedBefore) return Enter(attempt, AttemptOutcome::NoRow, slot, Remedy::Wait);
  return {.state = PortState::NoRow, .text = attempt.text, .remedy = Remedy::Wait};
}

Attempt PortWorker::NewAttempt() const {
  Attempt attempt;
  attempt.key = m_settings.newKey();
  attempt.plan = m_settings.plan.key;
  attempt.idNumber = IdentityNumber(m_identity);
  attempt.firmware = FirmwareVersion(m_identity);
  if (!attempt.idNumber.empty()) attempt.band = BandText(m_identity.BandBlock);
  attempt.port = m_line.PortName();
  attempt.bench = m_settings.bench;
  attempt.operatorName = m_settings.operatorName;
  attempt.start = m_settings.timestamp();
  return attempt;
}

RadioReported PortWorker::Enter(Attempt& attempt, AttemptOutcome outcome, BenchState::Slot& slot, Remedy remedy) {
  using enum AttemptOutcome;
  attempt.end = m_settings.timestamp();
  attempt.outcome = outcome;
  const Attempt entered = m_context.pending.Enter(m_journal, attempt);
  m_context.events.onEntered(entered);
  if (entered.outcome == Verified || entered.outcome == DoneBefore) {
    if (entered.outcome == Verified) slot.Use();
    const bool isPending = m_context.pending.Count() > 0;
    const char* const hint = m_context.pending.IsKept() ? LateEntryHint : LostEntryHint;
    return {entered.outcome == Verified ? PortState::Done : PortState::AlreadyDone, attempt.row, attempt.label,
            isPending ? hint : ""};
  }
  if (entered.outcome == NoRow) return {.state = PortState::NoRow, .text = attempt.text, .remedy = remedy};
  // The row is no longer this radio's.
  return {.state = entered.outcome == SetAside ? PortState::SetAside : PortState::Failed,
          .text = entered.outcome == Conflict ? LineForConflict(entered) : attempt.text,
          .isFailure = entered.outcome == Failed,
          .remedy = entered.outcome == Conflict ? Remedy::ReprogramOne : remedy};
}

} // namespace

void RunPort(std::size_t port, SerialLine& line, Clock& clock, Journal& journal, const BenchContext& context) {
  PortWorker(port, line, clock, journal, context).Run();
}

} // namespace mr4500x
