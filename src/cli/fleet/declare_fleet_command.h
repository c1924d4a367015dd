// `mr4500x-cli fleet` on the command line.
#pragma once

#include "fleet_choice.h"

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace mr4500x {

struct FleetArguments {
  FleetChoice choice;             // without the ports
  std::vector<std::string> ports; // "all" is one that is there
  std::string logFile;
  // fleet journal
  std::string listed; // the journal's address, or a template
  std::string csvFile;
  std::string plan; // the key of the only plan to list
};

// Calls one of them at the end of the parsing.
void DeclareFleetCommand(CLI::App& app, FleetArguments& arguments, const std::function<void()>& onFleet,
                         const std::function<void()>& onJournal);

} // namespace mr4500x
