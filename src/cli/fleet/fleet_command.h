// The fleet command: many radios from one plan, and its journal.
#pragma once

#include "journal_queries.h"
#include "terminal.h"

namespace mr4500x {

struct FleetArguments {
  FleetChoice choice; // without the ports
  std::string ports;  // separated by commas; or "all"
  std::string logFile;
  bool isDryRun = false; // only checks the plan; needs no ports
  // fleet journal
  std::string listed; // the journal's address, or a template
  std::string csvFile;
  bool isJson = false;
  std::string plan;                    // the beginning of its key
  std::optional<RowDecision> decision; // without plan and operator
  std::string radio;                   // identity number
  bool isStatistics = false;
};

// Prints a line for every change at a port. Needs an application object, whose event loop receives Ctrl-C. Done only if
// every requested radio is verified, UnusableArguments for a plan with refused values.
[[nodiscard]] ExitStatus RunFleet(FileSystem& files, const std::string& settingsFile, FleetArguments arguments,
                                  Terminal& terminal);

// Done if the command may write the file. Otherwise prints a message.
[[nodiscard]] ExitStatus MayStore(FileSystem& files, const FleetChoice& choice, const std::string& path,
                                  Terminal& terminal);
// Prints why the journal does not answer.
ExitStatus NoAnswer(const std::string& address, const JournalFailure& failure, Terminal& terminal);

// Lists the journal, or what is asked of it; or changes a row.
[[nodiscard]] ExitStatus RunFleetJournal(FileSystem& files, const FleetArguments& arguments, Terminal& terminal);

} // namespace mr4500x
