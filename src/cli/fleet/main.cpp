// mr4500x-cli-fleet fleet ...: the program that `mr4500x-cli fleet` becomes, so that the other commands start without
// database libraries.
#include "fleet_command.h"
#include "fleet_summary.h"
#include "machine.h"
#include "machine_files.h"
#include "parsing.h"
#include "processes.h"
#include "settings.h"

#include <QCoreApplication>

#include <unistd.h>

#include <iostream>
#include <limits>
#include <vector>

namespace mr4500x {
namespace {

std::string PortProblem(const std::string& text) {
  if (text == "all" || ParsePortAddress(text)) return "";
  return text + " is not a port: use a number from 1 to 16, the path of a device, or all.";
}

// Calls one of the functions after parsing.
void Declare(CLI::App& app, FleetArguments& arguments, const std::function<void()>& onFleet,
             const std::function<void()>& onJournal) {
  FleetChoice& choice = arguments.choice;
  CLI::App* const fleet = app.add_subcommand("fleet", FleetSummary);
  CLI::App* const journal = fleet->add_subcommand("journal", "List the journal");
  const auto option = [](CLI::App* sub, const char* name, auto& value, const char* type, const char* about) {
    return sub->add_option(name, value, about)->type_name(type);
  };
  const auto address = "the file of the journal, or postgresql://user@host:port/database";

  option(fleet, "TEMPLATE", choice.templateFile, "", "data file (.K4X) with the configuration for all radios");
  option(fleet, "--rows", choice.rowsFile, "R.csv",
         "a row for each radio: columns are settings (see fields), embedded_info, radio and label");
  option(fleet, "--ports", arguments.ports, "PORTS", "ports, separated by commas; all: COM1 to COM16 with a device")
      ->delimiter(',')
      ->allow_extra_args(false) // TEMPLATE may follow
      ->check(PortProblem);
  option(fleet, "--count", choice.count, "N", "stop after this number of radios")
      ->check(CLI::Range(1, std::numeric_limits<int>::max()));
  option(fleet, "--journal", choice.journal, "URL", address);
  option(fleet, "--backup", choice.backupFolder, "FOLDER",
         "folder for the radios' old configurations; default: backups, beside TEMPLATE");
  fleet->add_flag("--quick", choice.isQuick, "leave out the pauses between records, until the radio needs them");
  fleet->add_flag("--accept-band", choice.acceptsOtherBand, "also write radios with another frequency band");
  fleet->add_flag("--compare-done", choice.comparesDone,
                  "compare the whole content of radios that are done, not only their programming time");
  fleet->add_flag("--rewrite-done", choice.rewritesDone,
                  "rewrite radios that are done but have changed since; otherwise they are set aside");
  CLI::Option* const carryOver = fleet->add_flag("--carry-over", arguments.carriesOver,
                                                 "if the list has changed: unchanged rows that radios hold stay done");
  fleet
      ->add_flag("--start-over", arguments.startsOver,
                 "if it has changed, or its journal is missing: give all rows out again")
      ->excludes(carryOver);
  option(fleet, "--operator", choice.operatorName, "NAME", "the operator's name, for the journal");
  option(fleet, "--on-verified", choice.onVerified, "COMMAND",
         "run this for each verified radio, with its journal entry as JSON on standard input");
  option(fleet, "--trace", choice.traceFolder, "FOLDER",
         "add every byte on each port's line, with its time, to a file in this folder");
  option(fleet, "--log", arguments.logFile, "OUT.csv", "write this bench's part of the journal here at the end");
  fleet->add_flag(
      "--dry-run", arguments.isDryRun,
      "check TEMPLATE and the rows, and count their states in the journal; needs no ports and changes nothing");
  fleet->final_callback([&arguments, journal, onFleet] {
    if (journal->parsed()) return;
    if (arguments.choice.templateFile.empty()) throw CLI::RequiredError("TEMPLATE");
    if (arguments.ports.empty() && !arguments.isDryRun) throw CLI::RequiredError("--ports");
    onFleet();
  });

  option(journal, "URL", arguments.listed, "", address)->required();
  option(journal, "--csv", arguments.csvFile, "OUT.csv", "as CSV with every detail; - for standard output");
  journal->add_flag("--json", arguments.isJson, "as JSON with every detail");
  option(journal, "--plan", arguments.plan, "KEY", "only the plan with this key, which the CSV has");
  auto alone = [others = std::vector<CLI::Option*>()](CLI::Option* made) mutable {
    for (CLI::Option* const other : others)
      made->excludes(other);
    others.push_back(made);
  };
  alone(option(journal, "--radio", arguments.radio, "NUMBER", "all that is known of one radio"));
  alone(journal->add_flag("--statistics", arguments.isStatistics, "yield and mean time, by day and port"));
  alone(option(journal, "--free", arguments.freedRow, "ROW", "free a row that a bench has taken")
            ->check(CLI::PositiveNumber));
  alone(option(journal, "--reissue", arguments.reissuedRow, "ROW", "give a row out again that is done")
            ->check(CLI::PositiveNumber));
  alone(option(journal, "--note", arguments.note, "ROW TEXT", "enter a note about a row")->expected(2));
  option(journal, "--operator", choice.operatorName, "NAME", "the operator's name, for the entry about a row");
  journal->final_callback(onJournal);
}

} // namespace
} // namespace mr4500x

int main(int argc, char** argv) {
  using namespace mr4500x;
  PrepareProcess();
  IgnoreBrokenPipes(); // a write to a radio must not end because the reader of the output has ended
  try {
    const QCoreApplication application(argc, argv);
    FileSystem& files = MachineFiles();
    Terminal terminal{std::cout, std::cerr, std::cin, isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0,
                      isatty(STDERR_FILENO) != 0};
    FleetArguments arguments;
    ExitStatus status = ExitStatus::UnusableArguments;
    CLI::App app("A part of mr4500x-cli.", "mr4500x-cli");
    app.require_subcommand(1);
    const auto runFleet = [&] {
      const std::string settings = SettingsFilePath(files, ProgramFolder(), UserConfigFolder());
      status = RunFleet(files, settings, arguments, terminal);
    };
    Declare(app, arguments, runFleet, [&] { status = RunFleetJournal(files, arguments, terminal); });
    return static_cast<int>(Parse(app, argc, argv, terminal).value_or(status));
  } catch (const std::exception& error) { // mostly out of memory
    std::cerr << error.what() << '\n';
    return static_cast<int>(ExitStatus::Failed);
  }
}
