// Parses a command line, and says what is wrong with it.
#pragma once

#include "terminal.h"

#include <CLI/CLI.hpp>

#include <optional>

namespace mr4500x {

// nullopt if the command can run. Otherwise the status with which the program ends: its help was printed, or what is
// wrong. Only TEXT can be empty: any other empty argument is an unset variable of a script.
[[nodiscard]] std::optional<ExitStatus> Parse(CLI::App& app, int argc, char** argv, Terminal& terminal);

} // namespace mr4500x
