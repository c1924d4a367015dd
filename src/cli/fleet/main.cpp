// mr4500x-cli-fleet fleet ...: the program that `mr4500x-cli fleet` becomes, so that the other commands start without
// database libraries.
#include "decimal.h"
#include "fleet_command.h"
#include "machine.h"
#include "machine_files.h"
#include "parsing.h"
#include "processes.h"
#include "settings.h"
#include "utf8.h"

#include <QCoreApplication>

#include <span>
#include <string_view>
#include <vector>

namespace mr4500x {
namespace {

std::string PortProblem(const std::string& text) {
  if (text == "all" || (text != "auto" && ParsePortAddress(text))) return "";
  return text + " is not a port: use a number from 1 to 16, the path of a device, or all.";
}

// Takes only decimal digits. CLI11 would read 010 and 0x8 as 8.
std::string NumberProblem(const std::string& text) {
  const bool isNumber = !text.starts_with('0') && ParseWhole(text);
  return isNumber ? "" : text + " is not a whole number from 1 to 999999999";
}

constexpr char AddressHelp[] = "the file of the journal, or postgresql://user@host:port/database";

template<typename Value>
CLI::Option* AddOption(CLI::App* sub, const char* name, Value& value, const char* type, const char* about) {
  return sub->add_option(name, value, about)->type_name(type);
}

// Both functions call the last parameter after parsing.
void DeclareFleet(CLI::App* fleet, FleetArguments& arguments, const std::function<void()>& onFleet) {
  FleetChoice& choice = arguments.choice;
  AddOption(fleet, "TEMPLATE", choice.templateFile, "", "data file (.K4X) with the configuration for all radios");
  AddOption(fleet, "--rows", choice.rowsFile, "R.csv",
            "a row for each radio: columns are settings (see fields), embedded_info, radio and label")
      ->check([&choice](const std::string& text) {
        return std::string(text == Stream && choice.templateFile == Stream ? "only one can be standard input" : "");
      });
  AddOption(fleet, "--ports", arguments.ports, "PORTS", "ports, separated by commas; all: COM1 to COM16 with a device")
      ->check(EachItem(PortProblem));
  AddOption(fleet, "--count", choice.count, "N", "stop after this number of radios")->check(NumberProblem);
  AddOption(fleet, "--journal", choice.journal, "URL", AddressHelp);
  AddOption(fleet, "--backup", choice.backupFolder, "FOLDER",
            "folder for the radios' old configurations; default: backups, beside TEMPLATE");
  fleet->add_flag("-q,--quick", choice.isQuick, "leave out the pauses between records, until the radio needs them");
  fleet->add_flag("--accept-band", choice.acceptsOtherBand, "also write radios with another frequency band");
  fleet->add_flag("--compare-done", choice.comparesDone,
                  "compare the whole content of radios that are done, not only their programming time");
  fleet->add_flag("--rewrite-done", choice.rewritesDone,
                  "rewrite radios that are done but have changed since; otherwise they are set aside");
  fleet->add_flag("--accept-reissued", choice.acceptsReissued,
                  "also program radios whose row was given out again; otherwise they are set aside");
  const auto choose = [&choice](EarlierRows earlier) { return [&choice, earlier] { choice.earlier = earlier; }; };
  fleet->add_flag_callback("--carry-over", choose(EarlierRows::CarryOver),
                           "if the list has changed: unchanged rows that radios hold stay done");
  fleet->add_flag_callback(
      "--start-over", choose(EarlierRows::StartOver),
      "if the list or the template has changed, or the journal is missing: give all rows out again");
  ExcludeEachOther(*fleet, {"--carry-over", "--start-over"});
  AddOption(fleet, "--operator", choice.operatorName, "NAME", "the operator's name, for the journal");
  AddOption(fleet, "--on-verified", choice.onVerified, "COMMAND",
            "run this for each verified radio, with its journal entry as JSON on standard input");
  AddOption(fleet, "--trace", choice.traceFolder, "FOLDER",
            "add every byte on each port's line, with its time, to a file in this folder");
  AddOption(fleet, "--log", arguments.logFile, "OUT.csv", "write this bench's part of the journal here at the end");
  fleet->add_flag(
      "-n,--dry-run", arguments.isDryRun,
      "check TEMPLATE and the rows, and count their states in the journal; needs no ports and changes nothing");
  fleet->footer("Example: mr4500x-cli fleet radio.K4X --rows rows.csv --ports all\n"
                "Exit status: 0 every requested radio verified, 1 not, 2 unusable arguments");
  fleet->final_callback([&arguments, fleet, onFleet] {
    if (!fleet->get_subcommands().empty()) return; // the journal's
    if (arguments.choice.templateFile.empty()) throw CLI::RequiredError("TEMPLATE");
    if (arguments.ports.empty() && !arguments.isDryRun) throw CLI::RequiredError("--ports");
    onFleet();
  });
}

void DeclareJournal(CLI::App* fleet, FleetArguments& arguments, const std::function<void()>& onJournal) {
  CLI::App* const journal = fleet->add_subcommand("journal", "List the journal");
  AddOption(journal, "URL", arguments.listed, "", "the template, or what was given as --journal")->required();
  AddOption(journal, "--csv", arguments.csvFile, "OUT.csv", "as CSV with every detail; - for standard output");
  journal->add_flag("-j,--json", arguments.isJson, "as JSON with every detail");
  AddOption(journal, "--plan", arguments.plan, "KEY", "only the plan whose key begins so; the CSV has the keys");
  AddOption(journal, "--radio", arguments.radio, "NUMBER", "all that is known of one radio");
  journal->add_flag("--statistics", arguments.isStatistics, "yield and mean time, by day and port");
  const auto decide = [&](const char* name, AttemptOutcome outcome, const char* type, const char* about) {
    const auto set = [&arguments, outcome](const std::vector<std::string>& given) {
      const auto row = static_cast<std::size_t>(ParseWhole(given[0]).value_or(0));
      arguments.decision = RowDecision{outcome, {}, row, given.size() > 1 ? given[1] : "", {}};
    };
    return journal->add_option_function<std::vector<std::string>>(name, set, about)
        ->type_name(type)
        ->allow_extra_args(false) // would remove brackets around a note
        ->check(CLI::Validator(NumberProblem, "").application_index(0));
  };
  decide("--free", AttemptOutcome::Freed, "ROW", "free a row that a bench has taken")->expected(1);
  decide("--reissue", AttemptOutcome::Reissued, "ROW", "give a row out again that is done")->expected(1);
  decide("--note", AttemptOutcome::Note, "ROW TEXT", "enter a note about a row")->expected(2);
  AddOption(journal, "--operator", arguments.choice.operatorName, "NAME",
            "the operator's name, for the entry about a row");
  journal->footer("Example: mr4500x-cli fleet journal radio.K4X --radio LR7200-000004217\n"
                  "Exit status: 0 done, 1 failed, 2 unusable arguments");
  ExcludeEachOther(*journal, {"--radio", "--statistics", "--free", "--reissue", "--note"});
  ExcludeEachOther(*journal, {"--csv", "--json", "--free", "--reissue", "--note"});
  ExcludeEachOther(*journal, {"--csv", "--statistics"});
  journal->final_callback([&arguments, fleet, onJournal] {
    for (const CLI::Option* const option : fleet->get_options()) // before the word "journal"
      if (option->count() > 0) throw CLI::ExcludesError(option->get_name(), "journal");
    if (!arguments.choice.operatorName.empty() && !arguments.decision)
      throw CLI::RequiresError("--operator", "--free, --reissue or --note");
    onJournal();
  });
}

} // namespace
} // namespace mr4500x

int main(int argc, char** argv) {
  using namespace mr4500x;
  return RunProgram([&](Terminal& terminal) {
    for (const std::string_view word : std::span(argv, static_cast<std::size_t>(argc))) // for the journal
      if (!FromUtf8(word)) return Refuse(terminal, Printable(word) + ": is not valid UTF-8");
    IgnoreBrokenPipes(); // a write to a radio must not end because the reader of the output has ended
    const QCoreApplication application(argc, argv);
    FileSystem& files = MachineFiles();
    FleetArguments arguments;
    ExitStatus status = ExitStatus::UnusableArguments;
    CLI::App app("A part of mr4500x-cli.", "mr4500x-cli");
    app.require_subcommand(1);
    CLI::App* const fleet = app.add_subcommand("fleet", FleetSummary);
    DeclareFleet(fleet, arguments, [&] {
      status = RunFleet(files, SettingsFilePath(files, ProgramFolder(), UserConfigFolder()), arguments, terminal);
    });
    DeclareJournal(fleet, arguments, [&] { status = RunFleetJournal(files, arguments, terminal); });
    return Parse(app, argc, argv, terminal).value_or(status);
  });
}
