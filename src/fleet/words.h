// The texts of the fleet, for the window, the command line and the lists of the journal.
#pragma once

#include "exchange.h"
#include "journal.h"
#include "port_status.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

struct ImageDifferences;
struct PlanChanges;
struct RowCounts;

[[nodiscard]] std::string_view WordFor(PortState state);        // "WRITING", "UNPLUG"
[[nodiscard]] std::string_view WordFor(AttemptOutcome outcome); // "verified"
[[nodiscard]] std::string_view WordFor(RowState state);         // "free"

// The reasons why a radio was not programmed, for a technician.
inline constexpr char NoNumberReason[] =
    "the radio has no identity number, so the journal can't distinguish it from others";
inline constexpr char ExchangedReason[] = "the radio was swapped for another one; nothing was written";
inline constexpr char StoppedReason[] = "stopped before the write; nothing was written";
inline constexpr char TakenAwayReason[] =
    "the row was freed, or given to another bench because this one did not report in time; nothing was written";
inline constexpr char ChangedReason[] = "a radio with this number is done, but this one differs; "; // and what
inline constexpr char TextDiffersReason[] = "its embedded information does not match what was written";
[[nodiscard]] std::string ReasonFor(const ExchangeResult& result); // "" if it is complete
// `band`: "" if the difference showed only in its answer to the write.
[[nodiscard]] std::string OtherBandReason(const std::string& band, const std::string& bandOfRow);
[[nodiscard]] std::string BackupReason(const std::string& folder, const std::string& systemReason);
[[nodiscard]] std::string DifferenceReason(const ImageDifferences& differences);
// Another radio was read back than the one that was backed up.
[[nodiscard]] std::string OtherRadioReason(const Attempt& attempt, const std::string& idNumber,
                                           const std::string& firmware);
// Why a radio gets no row: its number is at another port of this bench, or another bench has it.
[[nodiscard]] std::string AtOtherPortReason(const std::string& portName);
[[nodiscard]] std::string HeldReason(const JournalRow& row);
[[nodiscard]] std::string NoFreeRowReason(const RowCounts& counts);
[[nodiscard]] std::string ChoiceGoneReason(std::size_t row); // the row that the user has chosen is not free
[[nodiscard]] std::string ReissuedReason(std::size_t row);   // the radio's row was given out again

[[nodiscard]] std::string_view HintFor(Remedy remedy); // "Plug the radio in again."; "" for None

// Additional texts for a port's state.
inline constexpr char NoiseHint[] = "something answers, but it is not a radio, or the cable is faulty";
inline constexpr char LastFailureHint[] = "the last failure: "; // and the reason
inline constexpr char CableHint[] = "check the cable; the last failure: ";
inline constexpr char LateEntryHint[] = "the entry will be added to the journal later";
inline constexpr char LostEntryHint[] = "neither the journal nor the file of pending entries can be written";

// "next for COM3: Truck 12"; "" if the port does not wait, or has no row to give out.
[[nodiscard]] std::string LineForNext(const PortStatus& status, std::string_view portName);
// What becomes of a row that the user has chosen by a text; nullptr: there is none.
[[nodiscard]] std::string LineForChoice(const JournalRow* row, std::string_view text);
// "COM3: row 12, Truck 12, radio R12: verified; unplug the radio"
[[nodiscard]] std::string LineFor(const PortStatus& status, std::string_view portName);

// "2026-11-25 13:45:07  COM3: row 12, Truck 12, radio R12: failed: No Response !!"
[[nodiscard]] std::string LineFor(const Attempt& attempt);
// The reason why the user's command for a verified radio failed. `status` is empty if it took too long.
[[nodiscard]] std::string CommandReason(std::optional<int> status, const std::string& error,
                                        std::chrono::seconds limit);
// "COM3: row 12, Truck 12, radio R12: the command ended with status 1: no printer"
[[nodiscard]] std::string LineForCommand(const Attempt& note);
// An entry whose row went to another radio in the meantime, or whose radio got another row.
[[nodiscard]] std::string LineForConflict(const Attempt& attempt);
// "radio R12, at COM3: failed: the radio does not answer", of a radio that was not verified.
[[nodiscard]] std::string LineForFailed(const Attempt& attempt);
// "May be only partly programmed: row 3, Taxi 3, radio R3"
[[nodiscard]] std::string LineForPartlyWritten(const Attempt& attempt);
[[nodiscard]] std::string LineForHeld(const Attempt& attempt); // the row that its radio holds

struct FleetProgress {
  std::size_t done = 0, total = 0, failed = 0; // of radios; a total of 0 is unknown
  long long minutesLeft = 0;                   // 0: unknown
};
// "7 of 40, 2 failed, 12 min left"
[[nodiscard]] std::string LineForProgress(const FleetProgress& progress);

// "12 done carried over, 1 new, 2 changed, 25 not done"
[[nodiscard]] std::string LineForChanges(const PlanChanges& changes);
// "Holds a row of an earlier list: row 5, Taxi 5, radio R5", a line each, and "... and 7 more" after `most`.
[[nodiscard]] std::vector<std::string> LinesForOutdated(const std::vector<JournalRow>& rows, std::size_t most);
// Why rows that are done may be unknown. Addresses are without passwords.
[[nodiscard]] std::string LostReason(const std::string& journal);
[[nodiscard]] std::string RenamedReason(const std::string& journal);
[[nodiscard]] std::string ChangedTemplateReason(const std::string& name);
[[nodiscard]] std::string BusyWithEarlierReason(const std::string& bench);

inline constexpr char WaitsForBenchText[] = "Waiting for another bench that is adding its rows to the journal.";

// "1 entry is waiting for the journal; the next start will add it."
[[nodiscard]] std::string LineForPending(std::size_t count);

} // namespace mr4500x
