// The comparison of two configurations, for `diff` and whatever checks what a radio holds.
#pragma once

#include "differences.h"
#include "terminal.h"

#include <string>

namespace mr4500x {

class FileSystem;

// One line for each setting that differs ("CH3 Rx Freq  443.00625  443.50000"), then one for each byte that no setting
// shows ("ChannelBlock 37  0x00  0x08").
[[nodiscard]] std::string DifferenceLines(const ImageDifferences& differences);
// The same as one JSON document.
[[nodiscard]] std::string DifferenceJson(const ImageDifferences& differences);

// Prints what differs between two data files. As diff(1) has it, the status is 0 for the same, 1 for different and 2
// for trouble.
[[nodiscard]] ExitStatus RunDiff(FileSystem& files, const std::string& before, const std::string& after, bool asJson,
                                 Terminal& terminal);

} // namespace mr4500x
