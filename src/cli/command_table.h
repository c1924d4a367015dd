// The commands with their arguments, as one table.
#pragma once

#include "call.h"

#include <functional>

namespace CLI {
class App;
}

namespace mr4500x {

// The parser fills in `call`, and sets what runs the command.
void DeclareCommands(CLI::App& app, Call& call, std::function<ExitStatus()>& chosen);

// Replaces this process with a program beside it, which loads the libraries that other commands start without. Returns
// only if it fails.
ExitStatus BecomePart(const std::string& name, std::vector<std::string> arguments, Terminal& terminal);

} // namespace mr4500x
