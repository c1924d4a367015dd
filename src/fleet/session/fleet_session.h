// A running bench for the window and the command line, with its plan from files, its ports, its journal and its pending
// attempts.
#pragma once

#include "bench.h"
#include "port_address.h"
#include "verified_command.h"

#include <deque>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mr4500x {

// What becomes of the rows that radios hold from an earlier list.
enum class EarlierRows : std::uint8_t { Ask, CarryOver, StartOver };

// The user's choices for a bench.
struct FleetChoice {
  std::string templateFile;
  std::string rowsFile;     // "": every radio gets the template
  std::string journal;      // address; "": a file beside the template
  std::string backupFolder; // "": a folder beside the template
  std::vector<PortAddress> ports;
  int count = -1; // radios at most; below 0: all
  bool isQuick = false;
  bool acceptsOtherBand = false;
  bool comparesDone = false;    // the whole content of done radios, not only their write stamps
  bool rewritesDone = false;    // whose content differs; otherwise they are set aside
  bool acceptsReissued = false; // whose row a person has given out again; otherwise they are set aside
  std::string operatorName;     // for the journal
  std::string traceFolder;      // folder for the traces of the ports; "" for none
  std::string onVerified;       // the user's command for each verified radio; "": none
  EarlierRows earlier = EarlierRows::Ask;
};

// The journal's address. For a file this is its absolute path.
[[nodiscard]] std::string JournalOf(const FleetChoice& choice);
// The address without a password, for messages and settings.
[[nodiscard]] std::string WithoutPassword(const std::string& address);
// Whether the file is the journal or one that the bench reads, so that no table may be written there.
[[nodiscard]] bool IsNeeded(const FleetChoice& choice, const std::string& path);
// A file of the bench that has another use: a trace or log that is needed, or a file in the place of a folder or of
// standard output. Also an input at standard output. "" if there is none. `logFile` is "" without a log.
[[nodiscard]] std::string FileUsedTwice(const FleetChoice& choice, const std::string& logFile);
// Whether the traces can be written: in their folder, and into files that are there, none of which is a pipe. `path` is
// the folder or file that was looked at last.
FileResult MayStoreTraces(FileSystem& files, const FleetChoice& choice, std::string& path);
// An absolute path, for other benches of the journal.
[[nodiscard]] std::string BackupFolderOf(const FleetChoice& choice);

// Reads the template and the rows. A file that can't be read is a problem of the plan. `input` is read for "-". Without
// it, "-" is a file name.
[[nodiscard]] PlanCheck LoadPlan(FileSystem& files, const FleetChoice& choice, const FieldTexts& texts,
                                 std::istream* input);
// A checksum of the template and the list as they are in the files now.
[[nodiscard]] std::string ContentOf(FileSystem& files, const FleetChoice& choice);

// "2026-11-25 12:45:07Z" for attempts, and "2026-11-25 13:45:07 +01:00" in the time zone of this machine.
[[nodiscard]] std::string UtcTimestamp();
[[nodiscard]] std::string LocalTimestamp(const std::string& utc);

// The path of the port's device, without links; "" if it has none.
[[nodiscard]] std::string DeviceOf(FileSystem& files, const std::string& settingsFile, const PortAddress& port);
// The ports COM1 to COM16 that have a device, each device once.
[[nodiscard]] std::vector<PortAddress> PortsWithDevice(FileSystem& files, const std::string& settingsFile);

struct JournalContent {
  std::vector<JournalRow> rows;     // of the plan
  std::vector<Attempt> attempts;    // of all plans
  std::vector<JournalRow> outdated; // see OutdatedRowsOf
  JournalFailure failure;           // without an error it was read
};
[[nodiscard]] JournalContent ReadJournal(const std::string& address, const std::string& plan);

// The destructor stops the ports after the radios in progress, and waits for them.
class FleetSession {
public:
  // Starts the ports. BeginPlan has entered the plan. Calls `onCommand` as VerifiedCommand does.
  FleetSession(FileSystem& files, const std::string& settingsFile, std::shared_ptr<const Plan> plan,
               const FleetChoice& choice, BenchEvents events, std::function<void(const Attempt&)> onCommand);

  void StopAfterTheseRadios() { m_state.StopAfterTheseRadios(); }
  void StopBeforeWrites() { m_state.StopBeforeWrites(); } // according to the policy in end_signals.h
  void GoOn(std::size_t port) { m_state.GoOn(port); }     // see BenchState
  void ChooseRow(std::size_t row) { m_state.Rows().Choose(row); }
  void ForgetChoices() { m_state.Rows().ForgetChoices(); }
  [[nodiscard]] const std::string& BenchName() const { return m_settings.bench; }
  // Waits for the ports. False if a trace could not be written as a whole.
  [[nodiscard]] bool EndTraces();
  [[nodiscard]] bool HasCommands() const { return m_command.IsRunning(); }
  // The number of entries that are still pending.
  [[nodiscard]] std::size_t PendingCount() { return m_pending.Count(); }
  // Whether all requested radios are verified: the count, or all rows.
  [[nodiscard]] bool IsComplete() const { return m_state.IsComplete(); }

private:
  const FieldTexts m_texts;
  const std::shared_ptr<const Plan> m_plan;
  const BenchSettings m_settings;
  const BenchEvents m_events;
  BenchState m_state;
  PendingAttempts m_pending;
  VerifiedCommand m_command;
  std::deque<std::ofstream> m_traces; // of the ports
  Bench m_bench;
};

// Counts what the ports of a bench have reported.
class FleetTally {
public:
  explicit FleetTally(std::size_t ports) : m_last(ports) {}

  // Returns whether the status is more than progress.
  bool Record(const PortStatus& status);
  // Whether all ports have ended, permanently or until the user lets one continue.
  [[nodiscard]] bool HasEnded() const;
  [[nodiscard]] bool HasStopped() const;
  [[nodiscard]] int Done() const { return m_done; } // radios

private:
  std::vector<std::optional<PortStatus>> m_last;
  int m_done = 0;
};

} // namespace mr4500x
