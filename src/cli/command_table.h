// The commands with their arguments, as one table.
#pragma once

#include "call.h"

#include <functional>

namespace CLI {
class App;
}

namespace mr4500x {

// The parser fills in `call`, and sets the function that runs the command.
void DeclareCommands(CLI::App& app, Call& call, std::function<ExitStatus()>& chosen);

// Replaces this process by a program beside it, which loads libraries that the other commands do not need. Returns only
// on failure.
ExitStatus BecomePart(const std::string& name, std::vector<std::string> arguments, Terminal& terminal);

} // namespace mr4500x
