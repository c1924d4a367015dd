// The fixture of the fleet tests: a journal in memory, cables to simulated radios on a virtual clock, and a technician
// who plugs the radios in and unplugs them.
#pragma once

#include "differences.h"
#include "function_settings.h"
#include "machine_files.h"
#include "new_folder.h"
#include "pending_attempts.h"
#include "port_worker.h"
#include "simulated_radio.h"
#include "text.h"
#include "words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <map>
#include <set>
#include <thread>

namespace mr4500x {

using namespace std::chrono_literals;

// The tables of a database, and its connections.
struct Tables {
  std::mutex mutex;
  bool isLost = false; // the database does not answer
  bool isFull = false; // and can only be read
  bool isFullOnce = false;
  std::vector<JournalRow> rows;
  std::vector<Attempt> attempts;
  std::map<std::size_t, int> done; // how often a row became so
  std::size_t reissued = 0;        // the row that was each radio's
};

class MemoryJournal : public Journal {
public:
  explicit MemoryJournal(Tables& tables) : m_tables(tables) {}

  bool Begin(const PlanHead& /*plan*/, const std::vector<JournalRow>& rows) override {
    if (m_tables.rows.empty()) m_tables.rows = rows;
    return true;
  }
  std::optional<PlanHistory> History(const PlanHead& /*plan*/) override { return std::nullopt; }
  Claim ClaimRow(const Attempt& attempt, const ClaimRequest& request) override {
    const std::string &id = attempt.idNumber, &bench = attempt.bench;
    const std::lock_guard guard(m_tables.mutex);
    if (m_tables.isLost) return {};
    auto& rows = m_tables.rows;
    for (JournalRow& row : rows)
      if (row.state == RowState::Done && row.idNumber == id) {
        if (request.takesDone) row.state = RowState::Taken, row.bench = bench;
        return {request.takesDone ? Claim::Kind::Taken : Claim::Kind::DoneHere, row};
      }
    for (const JournalRow& row : rows)
      if (row.state == RowState::Taken && row.idNumber == id) return {Claim::Kind::NoRow, row};
    const auto freeFor = [&](const std::string& radio) {
      return std::ranges::find_if(
          rows, [&](const JournalRow& row) { return row.state == RowState::Free && row.radio == radio; });
    };
    auto found = freeFor(id);
    const auto isWished = [&](const JournalRow& row) { return row.row == request.row && row.state == RowState::Free; };
    if (found == rows.end()) found = std::ranges::find_if(rows, isWished);
    if (found == rows.end() && !request.isChosen) found = freeFor("");
    if (found == rows.end() && request.isEndless)
      found = rows.insert(rows.end(), JournalRow{rows.size() + 1, "", "", {}, "", ""});
    if (found == rows.end()) return {Claim::Kind::NoRow, {}};
    found->state = RowState::Taken;
    found->bench = bench;
    found->idNumber = id;
    return {Claim::Kind::Taken, *found, m_tables.reissued};
  }
  Renewal Renew(const std::string& /*plan*/, std::size_t row, const std::string& bench) override {
    const std::lock_guard guard(m_tables.mutex);
    if (m_tables.isLost) return Renewal::Lost;
    return m_tables.rows.at(row - 1).bench == bench ? Renewal::Kept : Renewal::TakenAway;
  }
  bool ReportAlive(const std::string& /*bench*/) override {
    const std::lock_guard guard(m_tables.mutex);
    return !m_tables.isLost && !m_tables.isFull && !std::exchange(m_tables.isFullOnce, false);
  }
  std::optional<Attempt> Enter(const Attempt& attempt) override {
    const std::lock_guard guard(m_tables.mutex);
    if (m_tables.isLost) return std::nullopt;
    for (const Attempt& known : m_tables.attempts)
      if (known.key == attempt.key) return known;
    Attempt& entered = m_tables.attempts.emplace_back(attempt);
    if (attempt.row == 0 || attempt.outcome == AttemptOutcome::DoneBefore) return entered;
    JournalRow& row = m_tables.rows.at(attempt.row - 1);
    if (row.state != RowState::Taken || row.bench != attempt.bench) {
      if (entered.outcome != AttemptOutcome::Verified) return entered;
      entered.outcome = AttemptOutcome::Conflict;
      entered.text = "radio " + row.idNumber + " holds the row";
      return entered;
    }
    const bool isDone = attempt.outcome == AttemptOutcome::Verified;
    row.state = isDone ? RowState::Done : RowState::Free;
    row.idNumber = isDone ? attempt.idNumber : "";
    row.stamp = isDone ? attempt.stamp : "";
    m_tables.done[attempt.row] += isDone ? 1 : 0;
    return entered;
  }
  std::optional<RowList> ChangedRows(const std::string& /*plan*/, std::int64_t /*since*/) override {
    const std::lock_guard guard(m_tables.mutex);
    return m_tables.isLost ? std::nullopt : std::optional(RowList{m_tables.rows, 1});
  }
  std::optional<std::vector<Attempt>> Attempts(const std::string& /*plan*/) override { return m_tables.attempts; }
  JournalFailure Failure() const override { return {"no answer"}; }

private:
  Tables& m_tables;
};

// A radio on the technician's table.
struct TableRadio {
  RadioMemory memory;
  std::vector<PlannedFault> faults;
  std::optional<PortState> faultsIn; // nullopt: always
};

// A cable: the port of a radio, if one is attached, and a clock that advances only by waiting.
struct Cable final : SerialPort, Clock {
  std::function<std::optional<TableRadio>()> next; // radio to attach
  std::function<void(const RadioMemory&)> takenOff;
  std::optional<std::string> openFailure;
  std::function<void()> onWait; // a long one, as between two cycles

  void Enter(PortState state) {
    if (std::exchange(m_state, state) == state) return;
    if (m_radio && state >= PortState::Done && state <= PortState::NoRow) TakeOff();
    if (m_radio && m_table.faultsIn && m_hasFaults != (m_table.faultsIn == state))
      Attach(RadioMemory(m_radio->Memory()), m_table.faultsIn == state);
  }

  void Spoil(std::size_t address) {
    RadioMemory memory = m_radio->Memory();
    memory.at(address) ^= 1;
    Attach(memory, false);
  }
  void Exchange(const std::string& idNumber) {
    RadioMemory memory = m_radio->Memory();
    SetIdentityNumber(memory, idNumber);
    Attach(memory, false);
  }

  Moment Now() override { return m_now; }
  void WaitUntil(Moment moment) override {
    if (moment >= m_now + 100ms) std::this_thread::yield(); // lets the ports with radios go on
    if (moment >= m_now + 100ms && onWait) onWait();
    m_now = std::max(m_now, moment);
  }
  void SetPortNumber(int /*number*/) override {}
  std::optional<std::string> Open(const LineSettings& /*settings*/) override {
    m_isOpen = !openFailure;
    ++m_tries;
    if (m_radio && m_tries > MostTries) TakeOff();
    if (!m_radio && m_tries > TriesWithout)
      if (const auto table = next()) {
        m_table = *table;
        m_tries = 0;
        Attach(table->memory, !table->faultsIn || table->faultsIn == PortState::Identifying);
      }
    return openFailure;
  }
  void Close() override { m_isOpen = false; }
  bool IsOpen() const override { return m_isOpen; }
  std::optional<std::size_t> BytesReceived() override { return Receive().size(); }
  bool DiscardReceived() override { return TakeReceived().has_value(); }
  std::optional<std::size_t> BytesToTransmit() override { return 0; }
  bool DiscardTransmit() override { return true; }
  void AwaitSent() override {}
  std::optional<LineBytes> TakeReceived() override { return std::exchange(Receive(), {}); }
  bool Write(std::span<const std::uint8_t> bytes) override {
    if (m_radio) m_radio->Receive(bytes, m_now);
    if (m_radio && m_radio->HasVanished()) TakeOff();
    return true;
  }

private:
  static constexpr int MostTries = 20;   // tries with a radio that does not answer
  static constexpr int TriesWithout = 3; // the port must see that the last one was taken off

  void Attach(const RadioMemory& memory, bool hasFaults) {
    m_hasFaults = hasFaults;
    m_radio.emplace(memory, 1250us, hasFaults ? m_table.faults : std::vector<PlannedFault>());
  }
  void TakeOff() {
    takenOff(m_radio->Memory());
    m_radio.reset();
    m_tries = 0;
  }
  LineBytes& Receive() {
    const LineBytes bytes = m_radio ? m_radio->TakeReplies(m_now) : LineBytes();
    m_received.insert(m_received.end(), bytes.begin(), bytes.end());
    return m_received;
  }

  Moment m_now{};
  PortState m_state = PortState::Finished;
  std::optional<SimulatedRadio> m_radio;
  TableRadio m_table;
  LineBytes m_received;
  bool m_isOpen = false, m_hasFaults = false;
  int m_tries = 0; // tries with a radio, or without one
};

inline std::string TestSha(std::string_view bytes) {
  return std::to_string(std::hash<std::string_view>()(bytes));
}

// Reads a radio's memory directly, without a transfer.
inline RadioImage ImageOf(const RadioMemory& memory) {
  RadioImage image;
  for (std::uint16_t address = 0; address < RadioMemoryBytes; address += RecordBytes)
    static_cast<void>(PlaceRecord(image, address, std::span(memory).subspan(address, RecordBytes)));
  return image;
}

template<class Range, class Member>
std::string WordsOf(const Range& range, Member member) {
  std::string words;
  for (const auto& each : range)
    words += (words.empty() ? "" : ", ") + std::string(WordFor(each.*member));
  return words;
}

// A bench, its database, and the radios on the table.
struct Fleet {
  Fleet() {
    folder = NewFolder("/dev/shm"); // no disk to wait for
    UseCables(1);
    settings.bench = "A";
    settings.backupFolder = folder + "/backup";
    settings.now = [this] { return LocalTime{2026, 11, 4, 9, m_keys / 60, m_keys % 60}; }; // a second for each attempt
    settings.timestamp = [this] { return TimestampText({2026, 11, 4, 9, ++m_times / 60 % 60, m_times % 60}) + 'Z'; };
    settings.sha256 = TestSha;
    settings.newKey = [this] { return std::to_string(++m_keys); };
    events.onStatus = [this](const PortStatus& status) {
      EXPECT_LE(status.percent, 100);
      if (when.second && status.state == when.first) std::exchange(when.second, {})(*this);
      if (IsByClick(status.remedy) && goesOn) state->GoOn(status.port);
      if (IsByClick(status.remedy) && !goesOn) state->StopAfterTheseRadios();
      const bool isKept = IsByClick(status.remedy) && goesOn; // connected
      if (status.port < cables.size() && !isKept) cables[status.port].Enter(status.state);
      const std::lock_guard guard(mutex);
      const std::string planned = LineForNext(status, "COM" + std::to_string(status.port + 1)) + '\n';
      if (status.nextRow != 0 && !next.ends_with(planned)) next += planned;
      if (status.state == PortState::Waiting && !status.text.empty()) return hints.push_back(status.text);
      if (shown.empty() || shown.back().state != status.state || shown.back().port != status.port)
        shown.push_back(status);
    };
  }
  ~Fleet() { std::filesystem::remove_all(folder); }
  Fleet(const Fleet&) = delete;
  Fleet& operator=(const Fleet&) = delete;

  void UsePlan(const std::optional<std::string>& rows, const RadioImage& image = ImageOf(FactoryMemory())) {
    const PlanCheck check = MakePlan(image, "plan", rows, texts, TestSha);
    EXPECT_TRUE(check.problems.empty()) << check.problems.front();
    plan = check.plan;
  }
  void UseCables(std::size_t count) {
    while (cables.size() < count) {
      Cable& cable = cables.emplace_back();
      cable.next = [this] { return NextRadio(); };
      cable.takenOff = [this](const RadioMemory& memory) { TakenOff(memory); };
    }
  }
  // Until all the ports have ended.
  void Run() {
    PendingAttempts pending(files, folder + "/pending");
    const BenchContext context = Context(pending);
    state->Rows().SetPorts(std::max<std::size_t>(2, cables.size()));
    static_cast<void>(MemoryJournal(tables).Begin({}, JournalRowsOf(plan)));
    std::vector<std::jthread> threads;
    for (std::size_t port = 0; port < cables.size(); ++port)
      threads.emplace_back([this, port, &context] {
        MemoryJournal journal(tables);
        SerialLine line(cables[port], cables[port], static_cast<int>(port + 1));
        RunPort(port, line, cables[port], journal, context);
      });
  }

  BenchContext Context(PendingAttempts& pending) { return {settings, *state, pending, events}; }
  void AddRadio(const std::string& id, const std::vector<PlannedFault>& faults = {}, std::optional<PortState> in = {}) {
    SetIdentityNumber(table.emplace_back(TableRadio{FactoryMemory(), faults, in}).memory, id);
  }
  // Whether the radio holds the row, and where the row has a text, that.
  [[nodiscard]] bool Holds(const std::string& id, std::size_t row) {
    const RadioImage found = ImageOf(shelf[id]), expected = ImageFor(plan, row, texts);
    return CompareImages(expected, found, texts).IsEmpty() &&
           (row > plan.rows.size() || !plan.rows[row - 1].embeddedInfo ||
            found.EmbeddedInfoBlock.bytes == expected.EmbeddedInfoBlock.bytes);
  }
  // "failed, verified"
  [[nodiscard]] std::string Outcomes() const { return WordsOf(tables.attempts, &Attempt::outcome); }
  [[nodiscard]] std::string States() const { return WordsOf(shown, &PortStatus::state); }

  FileSystem& files = MachineFiles();
  std::string folder;
  const FieldTexts texts = BuildFieldTexts('.');
  Plan plan;
  Tables tables;
  BenchSettings settings{.plan = plan, .texts = texts, .files = files};
  std::unique_ptr<BenchState> state = std::make_unique<BenchState>();
  BenchEvents events;
  std::deque<Cable> cables;
  std::mutex mutex; // guards the following members
  std::vector<PortStatus> shown;
  std::vector<std::string> hints;           // while waiting
  std::string next;                         // the same, as lines
  std::deque<TableRadio> table;             // radios to come
  std::map<std::string, RadioMemory> shelf; // radios that were taken off, by their identity numbers
  std::vector<RadioMemory> off;             // memories of radios in the order in which they were unplugged
  bool stopsWithoutRadios = true;
  bool goesOn = false;   // a port that has stopped
  bool putsBack = false; // a radio that is not done is connected again without its faults
  std::pair<PortState, std::function<void(Fleet&)>> when; // something happens the first time

private:
  std::optional<TableRadio> NextRadio() {
    const std::lock_guard guard(mutex);
    if (table.empty()) {
      if (stopsWithoutRadios && off.size() == m_given) state->StopAfterTheseRadios(); // the others may not have begun
      return std::nullopt;
    }
    ++m_given;
    TableRadio radio = std::move(table.front());
    table.pop_front();
    return radio;
  }
  void TakenOff(const RadioMemory& memory) {
    const std::string id = IdentityNumber(ImageOf(memory));
    const auto rows = MemoryJournal(tables).Rows("");
    const std::lock_guard guard(mutex);
    shelf[id] = off.emplace_back(memory);
    const auto isDone = [&](const JournalRow& row) { return row.state == RowState::Done && row.idNumber == id; };
    if (putsBack && std::ranges::none_of(*rows, isDone)) table.push_back({memory, {}, {}});
  }

  std::size_t m_given = 0; // radios that were attached
  std::atomic<int> m_keys = 0, m_times = 0;
};

} // namespace mr4500x
