#include "port_way.h"

#include "function_settings.h"
#include "pending_attempts.h"
#include "radio_way.h"
#include "text.h"
#include "words.h"

#include <algorithm>

namespace mr4500x {
namespace {

using enum PortState;

constexpr std::chrono::seconds BetweenTries{1};
constexpr int LookEvery = 10;    // tries; what other benches have done
constexpr int IdentityTries = 3; // while a plug goes in, the first may fail
constexpr int SilentTries = 3;   // of a radio that was there, until it counts as taken off
constexpr int MostFailures = 2;  // in a row

// One of the places of a desk. Given back at the end unless it was used.
class Place {
public:
  explicit Place(FleetDesk& desk) : m_desk(desk) {
    const std::lock_guard guard(desk.places);
    m_isTaken = desk.placesLeft != 0;
    if (!m_isTaken) return;
    ++desk.underway;
    if (desk.placesLeft > 0) --desk.placesLeft;
  }
  ~Place() {
    const std::lock_guard guard(m_desk.places);
    if (!m_isTaken) return;
    --m_desk.underway;
    if (!m_isUsed && m_desk.placesLeft >= 0) ++m_desk.placesLeft;
  }
  Place(const Place&) = delete;
  Place& operator=(const Place&) = delete;

  [[nodiscard]] bool IsTaken() const { return m_isTaken; }
  void Use() { m_isUsed = true; }

private:
  FleetDesk& m_desk;
  bool m_isTaken = false, m_isUsed = false;
};

bool IsFull(FleetDesk& desk) {
  const std::lock_guard guard(desk.places);
  return desk.placesLeft == 0 && desk.underway == 0;
}

class PortWay final : ExchangeObserver {
public:
  PortWay(std::size_t port, SerialLine& line, Clock& clock, Journal& journal, PendingAttempts& pending, FleetDesk& desk)
      : m_line(line), m_clock(clock), m_journal(journal), m_pending(pending), m_desk(desk) {
    m_event.port = port;
  }

  void Run() {
    m_desk.tell(m_event);
    for (;;) {
      const Clock::Moment next = m_clock.Now() + BetweenTries;
      Try();
      if (m_failures >= MostFailures || IsOver()) break;
      m_clock.WaitUntil(next);
    }
    static_cast<void>(Look()); // what is still pending
    m_failures >= MostFailures ? Tell(Stopped, "look at the cable; the last one: " + m_event.text) : Tell(Finished);
  }

private:
  [[nodiscard]] bool IsOver() { return m_desk.isStopping || m_desk.areRowsDone || IsFull(m_desk); }
  void Try();
  [[nodiscard]] bool Begin();
  [[nodiscard]] bool Look();
  void Handle(const RadioImage& identity, const std::string& whyUnknown);
  void End(Attempt& attempt, AttemptOutcome outcome, Place& place);
  [[nodiscard]] std::string WhatIsPending();
  void Gone(PortState state, const std::string& text = {});
  void Tell(PortState state, const std::string& text = {}, int percent = 0);

  // Of an identification:
  void Began(Transfer /*transfer*/, int /*maximum*/) override {
    if (m_event.state == Waiting || m_event.state == NoPort) Tell(Identifying);
  }
  void Progress(int /*value*/) override {}
  void Ended() override {}
  [[nodiscard]] bool AcceptsOtherBand() override { return false; }
  [[nodiscard]] bool Complete(Transfer /*transfer*/) override { return true; }

  SerialLine& m_line;
  Clock& m_clock;
  Journal& m_journal;
  PendingAttempts& m_pending;
  FleetDesk& m_desk;
  PortEvent m_event;                  // the last one told
  std::optional<std::string> m_radio; // the identity number of the radio that is to be taken off; "" if unknown
  int m_tries = 0, m_badIdentities = 0, m_silentTries = 0, m_failures = 0;
};

void PortWay::Try() {
  if (m_tries++ % LookEvery == 0 || m_event.state == NoJournal) {
    const bool answers = Look();
    if (!answers && (m_event.state == Waiting || m_event.state == NoJournal)) return Tell(NoJournal, m_journal.Error());
    if (m_event.state == NoJournal) Gone(Waiting);
    if (m_event.state == NoRow) m_radio.reset(); // one may be free by now
    if (IsOver()) return;
  }
  if (m_desk.placesLeft == 0) return; // another port's radio may give one back

  RadioImage image;
  const ExchangeResult result = ReadIdentity(m_line, image, *this, 1);
  if (result.outcome == Outcome::PortNotOpened) {
    m_radio.reset();
    // A cable that was pulled must not hide which radio holds only a part.
    return m_event.state == Failed ? void() : Gone(NoPort, result.systemDescription);
  }
  if (result.outcome == Outcome::NoResponse) {
    if (m_radio && ++m_silentTries < SilentTries) return;
    return Gone(Waiting, m_line.HasHeard() ? "what answers is no radio, or the cable is bad" : "");
  }
  m_silentTries = 0;
  if (result.outcome == Outcome::Complete) {
    m_badIdentities = 0;
    const std::string idNumber = IdentityNumber(image);
    if (m_radio == idNumber) return; // still there
    m_radio = idNumber;
    Handle(image, "it has no identity number, and the journal can't tell it from others");
  } else if (!m_radio && ++m_badIdentities == IdentityTries) {
    m_radio = "";
    m_badIdentities = 0;
    Handle({}, ReasonFor(result));
  }
}

// False if the database does not answer.
bool PortWay::Begin() {
  if (m_desk.isBegun) return true;
  const Plan& plan = m_desk.plan;
  if (!m_journal.Begin(plan.key, plan.name, JournalRowsOf(plan))) return false;
  m_desk.isBegun = true;
  return true;
}

// The same.
bool PortWay::Look() {
  const bool isHandedIn = Begin() && m_pending.HandIn(m_journal);
  for (const Attempt& attempt : m_pending.TakeConflicts())
    if (m_desk.tellConflict) m_desk.tellConflict(attempt);
  if (!isHandedIn) return false;
  const auto rows = m_journal.Rows(m_desk.plan.key);
  if (!rows) return false;
  const auto isDone = [](const JournalRow& row) { return row.state == RowState::Done; };
  const bool isWhole = rows->size() >= m_desk.plan.rows.size();
  if (!m_desk.plan.isEndless && isWhole && std::ranges::all_of(*rows, isDone)) m_desk.areRowsDone = true;
  return true;
}

// An image without an identity number is that of a radio that is not known; the reason goes into the journal.
void PortWay::Handle(const RadioImage& identity, const std::string& whyUnknown) {
  Place place(m_desk);
  if (!place.IsTaken()) return Gone(Waiting);
  Attempt attempt;
  attempt.key = m_desk.newKey();
  attempt.plan = m_desk.plan.key;
  attempt.idNumber = m_event.idNumber = IdentityNumber(identity);
  attempt.firmware = FirmwareVersion(identity);
  if (!attempt.idNumber.empty()) attempt.band = BandText(identity.BandBlock);
  attempt.port = m_line.PortName();
  attempt.bench = m_desk.bench;
  attempt.start = TimestampText(m_desk.now());
  m_event.row = 0;
  m_event.label.clear();
  if (attempt.idNumber.empty()) {
    attempt.text = whyUnknown;
    return End(attempt, AttemptOutcome::Failed, place);
  }

  const bool isReady = Begin() && m_pending.HandIn(m_journal);
  const Claim claim =
      isReady ? m_journal.Take(attempt.plan, m_desk.bench, attempt.idNumber, m_desk.plan.isEndless) : Claim{};
  attempt.row = m_event.row = claim.row.row;
  attempt.label = m_event.label = claim.row.label;
  if (claim.kind == Claim::Kind::Lost) {
    m_radio.reset(); // to be tried again
    return Tell(NoJournal, m_journal.Error());
  }
  if (claim.kind == Claim::Kind::NoRow) return Tell(NoRow);
  if (claim.kind == Claim::Kind::DoneHere) {
    m_failures = 0;
    return Tell(AlreadyDone);
  }
  RadioWay way(m_line, m_journal, m_desk, [&](PortState state, int percent) { Tell(state, {}, percent); });
  const AttemptOutcome outcome = way.Go(identity, attempt);
  End(attempt, outcome, place);
}

void PortWay::End(Attempt& attempt, AttemptOutcome outcome, Place& place) {
  attempt.end = TimestampText(m_desk.now());
  attempt.outcome = outcome;
  const AttemptOutcome entered = m_pending.Enter(m_journal, attempt);
  m_failures = entered == AttemptOutcome::Failed ? m_failures + 1 : 0;
  if (entered == AttemptOutcome::Verified) place.Use();
  const std::string text = entered == AttemptOutcome::Verified   ? WhatIsPending()
                           : entered == AttemptOutcome::Conflict ? LineForConflict(attempt)
                                                                 : attempt.text;
  if (entered != AttemptOutcome::Verified) { // the row is no longer this radio's
    m_event.row = 0;
    m_event.label.clear();
  }
  Tell(entered == AttemptOutcome::Verified ? Done : entered == AttemptOutcome::SetAside ? SetAside : Failed, text);
  static_cast<void>(Look()); // it may have been the last row
}

std::string PortWay::WhatIsPending() {
  if (m_pending.Count() == 0) return "";
  return m_pending.IsKept() ? "the journal gets it later" : "the journal and its file for later can't be written";
}

// No radio is there, or it has been taken off.
void PortWay::Gone(PortState state, const std::string& text) {
  m_radio.reset();
  m_badIdentities = m_silentTries = 0;
  m_event.row = 0;
  m_event.label.clear();
  m_event.idNumber.clear();
  Tell(state, text);
}

void PortWay::Tell(PortState state, const std::string& text, int percent) {
  if (m_event.state == state && m_event.text == text && m_event.percent == percent) return;
  m_event.state = state;
  m_event.text = text;
  m_event.percent = percent;
  m_desk.tell(m_event);
}

} // namespace

void RunPort(std::size_t port, SerialLine& line, Clock& clock, Journal& journal, PendingAttempts& pending,
             FleetDesk& desk) {
  PortWay(port, line, clock, journal, pending, desk).Run();
}

} // namespace mr4500x
