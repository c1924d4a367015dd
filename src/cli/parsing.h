// Parses a command line and reports its errors.
#pragma once

#include "terminal.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>

namespace mr4500x {

// The summary of the fleet command, which mr4500x-cli lists and another program runs.
inline constexpr char FleetSummary[] = "Program many radios on several ports, each with its row of a plan";

// nullopt if the command can run. Otherwise the exit status, after the help or an error message was printed. Only TEXT
// can be empty. Any other empty argument would come from an unset variable in a script.
[[nodiscard]] std::optional<ExitStatus> Parse(CLI::App& app, int argc, char** argv, Terminal& terminal);

using ValueCheck = std::function<std::string(const std::string&)>; // "", or what is wrong with a value
// Checks each item of a list separated by commas, none of which can be empty.
[[nodiscard]] ValueCheck EachItem(const ValueCheck& check);

// Only one of these options can be given. The command does not have to have all of them.
void ExcludeEachOther(CLI::App& command, std::initializer_list<const char*> options);

} // namespace mr4500x
