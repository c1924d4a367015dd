// The words of the fleet, for the window, the command line and the lists of the journal.
#pragma once

#include "port_way.h"

#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

[[nodiscard]] std::string_view WordFor(PortState state);        // "WRITING", "TAKE OFF"
[[nodiscard]] std::string_view WordFor(AttemptOutcome outcome); // "verified"
[[nodiscard]] std::string_view WordFor(RowState state);         // "free"

// "COM3: row 12, Truck 12: verified. Take the radio off."
[[nodiscard]] std::string LineFor(const PortEvent& event, std::string_view portName);

// Of a late entry whose row another radio got meanwhile.
[[nodiscard]] std::string LineForConflict(const Attempt& attempt);

// With a heading, one line an attempt. AttemptsIn takes it back.
[[nodiscard]] std::string JournalCsv(const std::vector<Attempt>& attempts);
[[nodiscard]] std::vector<Attempt> AttemptsIn(std::string_view csv);

} // namespace mr4500x
