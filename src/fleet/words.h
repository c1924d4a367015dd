// The words of the fleet, for the window, the command line and the lists of the journal.
#pragma once

#include "exchange.h"
#include "journal.h"
#include "port_status.h"

#include <string>
#include <string_view>

namespace mr4500x {

struct ImageDifferences;

[[nodiscard]] std::string_view WordFor(PortState state);        // "WRITING", "TAKE OFF"
[[nodiscard]] std::string_view WordFor(AttemptOutcome outcome); // "verified"
[[nodiscard]] std::string_view WordFor(RowState state);         // "free"

// Why a radio was not programmed, for a technician who can only connect it again.
inline constexpr char NoNumberReason[] = "it has no identity number, and the journal can't tell it from others";
inline constexpr char ExchangedReason[] = "the radio was exchanged for another one; nothing has been written";
inline constexpr char StoppedReason[] = "stopped before the write; nothing has been written";
inline constexpr char TakenAwayReason[] =
    "its row went to another bench, as this one was silent for too long; nothing has been written";
inline constexpr char ChangedReason[] = "this radio's number is done, but it holds something else; "; // and what
inline constexpr char TextDiffersReason[] = "it does not hold the embedded information that was written";
[[nodiscard]] std::string ReasonFor(const ExchangeResult& result); // "" if it is complete
// `band`: "" if only its answer to the write showed it.
[[nodiscard]] std::string OtherBandReason(const std::string& band, const std::string& bandOfRow);
[[nodiscard]] std::string BackupReason(const std::string& folder, const std::string& systemReason);
[[nodiscard]] std::string DifferenceReason(const ImageDifferences& differences);
// Another radio was found where the attempt's was backed up.
[[nodiscard]] std::string OtherRadioReason(const Attempt& attempt, const std::string& idNumber,
                                           const std::string& firmware);
[[nodiscard]] std::string HeldReason(const JournalRow& row); // why a radio gets no row

// What a port's state leaves open.
inline constexpr char NoiseHint[] = "what answers is no radio, or the cable is bad";
inline constexpr char CableHint[] = "look at the cable; the last one: "; // and the reason
inline constexpr char LateEntryHint[] = "the journal gets it later";
inline constexpr char LostEntryHint[] = "the journal and its file for later can't be written";

// "COM3: row 12, Truck 12, radio R12: verified; take the radio off"
[[nodiscard]] std::string LineFor(const PortStatus& status, std::string_view portName);

// "2026-11-25 13:45:07  COM3: row 12, Truck 12, radio R12: failed: No Response !!"
[[nodiscard]] std::string LineFor(const Attempt& attempt);
// An entry whose row another radio got in the meantime, or whose radio another row.
[[nodiscard]] std::string LineForConflict(const Attempt& attempt);
// "May hold only a part of a configuration: row 3, Taxi 3, radio R3"
[[nodiscard]] std::string LineForPartlyWritten(const PortStatus& status);
[[nodiscard]] std::string LineForPartlyWritten(const Attempt& attempt);

inline constexpr char WaitsForBenchText[] = "Another bench is entering its rows in the journal; waiting for it.";

// "1 entry waits for the journal; the next start hands it in."
[[nodiscard]] std::string LineForPending(std::size_t count);

} // namespace mr4500x
