// The command line of the commands that need no radio.
#pragma once

#include "diff_command.h"
#include "terminal.h"

#include <functional>

namespace CLI {
class App;
}

namespace mr4500x {

class FileSystem;

// When the command line names one of them, `chosen` becomes what runs it. `load` is for `diff`.
void DeclareFileCommands(CLI::App& app, FileSystem& files, Terminal& terminal, const LoadAny& load,
                         std::function<ExitStatus()>& chosen);

} // namespace mr4500x
