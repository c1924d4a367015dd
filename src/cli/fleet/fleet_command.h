// The fleet command: many radios over one plan, and the journal of it.
#pragma once

#include "declare_fleet_command.h"
#include "file_system.h"
#include "terminal.h"

namespace mr4500x {

// Prints a line for every change at a port. Needs an application object; its event loop hears Ctrl-C. Done only if
// every radio asked for is verified, UnusableArguments for a plan with refusals.
[[nodiscard]] ExitStatus RunFleet(FileSystem& files, const std::string& settingsFile, FleetArguments arguments,
                                  Terminal& terminal);

[[nodiscard]] ExitStatus RunFleetJournal(FileSystem& files, const FleetArguments& arguments, Terminal& terminal);

} // namespace mr4500x
