// The comparison of two configurations, for `diff` and for commands that verify a radio.
#pragma once

#include "differences.h"
#include "terminal.h"

#include <string>

namespace mr4500x {

enum class DiffForm { Labels, Identifiers, Json, Patch };
// One line for each setting that differs ("CH3 Rx Freq  443.00625  443.50000"), then one for each byte that no setting
// shows ("ChannelBlock 37  0x00  0x08"). Or one JSON document with values as in the document of a configuration, or the
// changes that turn the first image into the second, as input for `apply`.
[[nodiscard]] std::string DifferencesAs(DiffForm form, const RadioImage& before, const RadioImage& after);

// Prints the differences. As in diff(1), the status is 0 if there are none, 1 if there are some, and 2 for an error.
[[nodiscard]] ExitStatus RunDiff(DiffForm form, const RadioImage& before, const RadioImage& after, Terminal& terminal);

} // namespace mr4500x
