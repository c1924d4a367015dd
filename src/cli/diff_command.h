// The comparison of two configurations, for `diff` and whatever checks what a radio holds.
#pragma once

#include "differences.h"
#include "terminal.h"

#include <functional>
#include <string>

namespace mr4500x {

// Loads the configuration of a file or a port. False, with a message, if it can't.
using LoadAny = std::function<bool(const std::string& fileOrPort, RadioImage& image)>;

enum class NamedBy { Label, Identifier };
// One line for each setting that differs ("CH3 Rx Freq  443.00625  443.50000"), then one for each byte that no setting
// shows ("ChannelBlock 37  0x00  0x08").
[[nodiscard]] std::string DifferenceLines(const ImageDifferences& differences, NamedBy names);
// The same as one JSON document, with values as in the document of a configuration.
[[nodiscard]] std::string DifferenceJson(const RadioImage& before, const RadioImage& after);
// What `apply` needs to make the first image show what the second shows.
[[nodiscard]] std::string DifferencePatch(const RadioImage& before, const RadioImage& after);

enum class DiffForm { Labels, Identifiers, Json, Patch };
// Prints what differs between two files or radios. As diff(1) has it, the status is 0 for the same, 1 for different and
// 2 for trouble.
[[nodiscard]] ExitStatus RunDiff(const LoadAny& load, const std::string& before, const std::string& after,
                                 DiffForm form, Terminal& terminal);

} // namespace mr4500x
