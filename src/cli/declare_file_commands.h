// The command line of the commands that need no radio.
#pragma once

#include "terminal.h"

#include <functional>

namespace CLI {
class App;
}

namespace mr4500x {

class FileSystem;

// When the command line names one of them, `chosen` becomes what runs it.
void DeclareFileCommands(CLI::App& app, FileSystem& files, Terminal& terminal, std::function<ExitStatus()>& chosen);

} // namespace mr4500x
