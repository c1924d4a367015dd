// The words of the fleet, for the window, the command line and the lists of the journal.
#pragma once

#include "port_way.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

[[nodiscard]] std::string_view WordFor(PortState state);        // "WRITING", "TAKE OFF"
[[nodiscard]] std::string_view WordFor(AttemptOutcome outcome); // "verified". Journals keep these: they never change
[[nodiscard]] std::optional<AttemptOutcome> OutcomeNamed(std::string_view word);
[[nodiscard]] std::string_view WordFor(RowState state); // "free"

// Why an exchange ended, for somebody who can only plug the radio in once more; "" if it is complete.
[[nodiscard]] std::string ReasonFor(const ExchangeResult& result);

// "COM3: row 12, Truck 12, radio R12: verified; take the radio off"
[[nodiscard]] std::string LineFor(const PortEvent& event, std::string_view portName);

// "2026-11-25 13:45:07  COM3: row 12, Truck 12, radio R12: failed: No Response !!"
[[nodiscard]] std::string LineFor(const Attempt& attempt);
// Of a late entry whose row another radio got meanwhile.
[[nodiscard]] std::string LineForConflict(const Attempt& attempt);

// "1 entry waits for the journal; the next start hands it in."
[[nodiscard]] std::string LineForPending(std::size_t count);

// With a heading, one line an attempt. AttemptsIn takes it back.
[[nodiscard]] std::string JournalCsv(const std::vector<Attempt>& attempts);
[[nodiscard]] std::vector<Attempt> AttemptsIn(std::string_view csv);

} // namespace mr4500x
