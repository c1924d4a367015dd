#include "command_table.h"

#include "backup.h"
#include "chosen_port.h"
#include "conventions.h"
#include "embedded_info.h"
#include "fill_messages.h"
#include "machine.h"
#include "output.h"
#include "parsing.h"
#include "processes.h"
#include "radio_commands.h"
#include "setting_commands.h"
#include "utf8.h"

#include <utility>
#include <variant>

namespace mr4500x {
namespace {

// A name with a dash is an option. The others are positional, and optional if in brackets.
struct Argument {
  const char* name = nullptr;
  std::variant<bool Call::*, std::string Call::*, std::optional<std::string> Call::*, std::vector<std::string> Call::*>
      value;
  const char* about = nullptr;
  const char* type = ""; // the type of an option's value
};

struct Command {
  const char* name; // "info read" is the command read of info
  const char* about;
  std::variant<std::monostate, ExitStatus (*)(Call&), ExitStatus (*)(Call&, const RadioCommand&)> run;
  Argument arguments[9];
  const char* example;
};

ExitStatus Diff(Call& c) {
  if ((c.isQuick || !c.trace.empty()) && !IsPort(c.file) && !IsPort(c.other))
    return Refuse(c.terminal, "--quick and --trace are for a PORT, but A and B are files");
  RadioImage a, b;
  if (!LoadFileOrPort(c, c.file, a) || !LoadFileOrPort(c, c.other, b)) return ExitStatus::UnusableArguments;
  return RunDiff(c.Differences(), a, b, c.terminal);
}

ExitStatus Get(Call& c) {
  if (c.all != c.words.empty()) return Refuse(c.terminal, "Give either FIELD or --all.");
  return RunGet(c.files, c.file, c.words, c.json, c.terminal);
}

ExitStatus Set(Call& c) {
  if (c.words.empty() && c.other.empty()) return Refuse(c.terminal, "FIELD=VALUE or --from is required");
  return RunSet(c.files, c.Change(), c.words, c.terminal);
}

ExitStatus Read(Call& c) {
  if (c.file.empty() && LooksLikePort(c.port))
    return Refuse(c.terminal, c.port + " is taken for a port, and FILE is missing");
  if (c.file.empty()) c.file.swap(c.port); // PORT was left out
  if (c.file.empty()) return Refuse(c.terminal, "FILE is required");
  const std::string name = FilledIn(c.file.substr(c.file.find_last_of(Separators) + 1), RadioImage(), {});
  const std::size_t left = name.find('{'), end = name.find('}', left); // of a word that stays
  if (end != std::string::npos)
    return Refuse(c.terminal, Printable(name.substr(left, end - left + 1)) +
                                  ": unknown; the name can have {id}, {date} and {time}");
  return WithRadio(c, [&](const RadioCommand& radio) { return RunRead(radio, c.file, c.replace); });
}

ExitStatus Write(Call& c, const RadioCommand& radio) {
  return RunWrite(radio, c.file,
                  {c.acceptsBand ? BandAnswer::Yes : BandAnswer::Ask, c.backup, c.isVerified, c.isDryRun});
}

// The text is checked before a port is opened.
ExitStatus WriteInfo(Call& c) {
  if (!c.text && c.other.empty() && LooksLikePort(c.port))
    return Refuse(c.terminal, c.port + " is taken for a port, and TEXT is missing");
  if (!c.text && c.other.empty() && !c.port.empty()) c.text = std::exchange(c.port, ""); // PORT was left out
  if (c.text.has_value() != c.other.empty()) return Refuse(c.terminal, "Give either TEXT or --from.");
  const auto text = c.text ? c.text : ReadTextForCommand(c.files, c.other, c.terminal);
  if (!text) return ExitStatus::Failed;
  if (text->find('\0') != std::string::npos)
    return Fail(c.terminal, NameOfSource(c.other) + ": has a zero byte, which would end the text");
  const auto info = c.text ? InfoFromArgument(*text) : InfoFromKept(*text);
  if (!info) return Refuse(c.terminal, (c.text ? "TEXT" : NameOfSource(c.other)) + " is not valid UTF-8.");
  if (!c.text && info->empty())
    return Refuse(c.terminal, NameOfSource(c.other) + ": is empty; an empty TEXT (\"\") erases the radio's text");
  EmbeddedInfo block;
  if (!StoreEmbeddedText(block, *info)) return Refuse(c.terminal, TopSizeText);
  return WithRadio(c, [&](const RadioCommand& radio) { return RunInfoWrite(radio, block, c.isVerified); });
}

// Replaces this program by the one that draws the pages.
ExitStatus Print(Call& c) {
  if (!CheckExport(c.files, c.output, c.terminal)) return ExitStatus::UnusableArguments;
  return BecomePart("mr4500x-cli-print", {c.file, c.output, c.text.value_or("")}, c.terminal);
}

// clang-format off
constexpr Argument
    File = {"FILE", &Call::file, "data file (.K4X); - for standard input"},
    Changed = {"FILE", &Call::file, "data file (.K4X); replaced in one step, or left unchanged if anything is "
                                    "refused; - from standard input to output"},
    Output = {"-o,--output", &Call::output, "write OUT instead of FILE, replacing an existing one; - for standard "
                                            "output", "OUT"},
    DryRun = {"-n,--dry-run", &Call::isDryRun, "print what would change, and change nothing"},
    Replace = {"--replace", &Call::replace, "replace an existing file"},
    Json = {"-j,--json", &Call::json, "as one JSON document"},
    Identifiers = {"--identifiers", &Call::identifiers, "name settings by identifiers, not labels"},
    Port = {"[PORT]", &Call::port, "port number 1 to 16, path of a device, or auto for the only radio that answers; "
                                   "default: MR4500X_PORT"},
    Trace = {"--trace", &Call::trace, "append every byte on the line, with its time, to this file", "FILE"},
    Quick = {"-q,--quick", &Call::isQuick, "leave out the pauses between records, until the radio needs them"},
    Verified = {"--verify", &Call::isVerified, "read back what was written and compare it"};

constexpr Command Commands[] = {
    {"new", "Write the default configuration to FILE",
     [](Call& c) { return RunNew(c.files, c.file, c.replace, LocalNow(), c.terminal); },
     {{"FILE", &Call::file, "data file (.K4X); an existing one is refused without --replace; - for standard output"},
      Replace},
     "new empty.K4X"},
    {"show", "Print every setting of FILE",
     [](Call& c) { return RunShow(c.files, c.file, c.json, c.terminal); },
     {File, Json}, "show --json radio.K4X"},
    {"diff", "Print the settings that differ, then the bytes that no setting shows; 1 if any differs", Diff,
     {{"A", &Call::file, "data file (.K4X) or PORT; - for standard input"},
      {"B", &Call::other, "data file (.K4X) or PORT; - for standard input"},
      Json, Identifiers, {"--patch", &Call::patch, "print the changes that turn A into B, as input for apply"},
      Trace, Quick},
     "diff --patch old.K4X new.K4X | mr4500x-cli apply radio.K4X -"},
    {"fields", "List the identifiers of all settings, with label, kind and allowed values",
     [](Call& c) { return RunFields(c.files, c.file, c.json, c.terminal); },
     {{"[FILE]", &Call::file, "data file (.K4X) whose band and mode decide what is allowed"}, Json},
     "fields radio.K4X"},
    {"get", "Print the values of settings of FILE, one per line", Get,
     {File,
      {"[FIELD]", &Call::words, "a setting, such as channels.3.rx_freq; or a group or pattern (channels.3, "
                                "channels.5-8.in_use, 'channels.*.rx_freq'), printed as FIELD=VALUE"},
      {"-a,--all", &Call::all, "all settings as FIELD=VALUE, for set --from"}, Json},
     "get radio.K4X 'channels.*.rx_freq'"},
    {"set", "Change settings of FILE, all of them or none", Set,
     {Changed,
      {"[FIELD=VALUE]", &Call::words, "for instance channels.3.rx_freq=446.00625 'select_call=5 Tone' "
                                      "'channels.*.bandwidth=12.5'"},
      {"--from", &Call::other, "read lines FIELD=VALUE from this file; - for standard input", "LINES"},
      DryRun, Output},
     "set --dry-run radio.K4X channels.3.rx_freq=446.00625"},
    {"apply", "Change settings from JSON: the output of `show --json`, or a part of it",
     [](Call& c) { return RunApply(c.files, c.Change(), c.terminal); },
     {Changed, {"CHANGES.json", &Call::other, "the JSON document; - for standard input"}, DryRun, Output},
     "apply radio.K4X changes.json"},
    {"channels", "Exchange the channels with spreadsheets and other programs", {}, {},
     "channels import radio.K4X channels.csv"},
    {"channels export", "Write every channel of FILE as CSV",
     [](Call& c) { return RunChannelsExport(c.files, c.file, c.output.empty() ? "-" : c.output, c.terminal); },
     {File, {"[OUT.csv]", &Call::output, "the file to write, replacing an existing one; default: standard output"}},
     "channels export radio.K4X channels.csv"},
    {"channels import", "Import channels from CSV: the output of export, or a list with Location and Frequency",
     [](Call& c) { return RunChannelsImport(c.files, c.Change(), c.skipBad, c.terminal); },
     {Changed, {"IN.csv", &Call::other, "the list, separated by commas, semicolons or tabs; - for standard input"},
      {"--skip-bad", &Call::skipBad, "skip the lines that are refused, and import the others"}, DryRun, Output},
     "channels import radio.K4X channels.csv"},
    {"identify", "Print the radio's identity number, firmware, band and last programming time",
     [](Call& c, const RadioCommand& radio) { return RunIdentify(radio, c.json); },
     {Port, Json, Trace}, "identify auto"},
    {"read", "Read the whole radio and store it in FILE, replacing an existing one", Read,
     {Port, {"[FILE]", &Call::file, "data file (.K4X); {id}, {date} and {time} in its name are replaced; - for "
                                    "standard output"},
      {"--replace", &Call::replace, "replace an existing file even if its name has {id}, {date} or {time}"},
      Trace, Quick},
     "read 1 '{id}_{date}.K4X'"},
    {"write", "Write the configuration in FILE to the radio", Write,
     {File, Port, {"--accept-band", &Call::acceptsBand, "write even if the radio has another frequency band"},
      {"--backup", &Call::backup, "first save the radio's configuration in this folder", "FOLDER"},
      {"-n,--dry-run", &Call::isDryRun, "read the radio, print what would change, and write nothing"},
      Verified, Trace, Quick},
     "write --backup old --verify radio.K4X 1"},
    {"verify", "Compare the radio with what a write of FILE would send",
     [](Call& c, const RadioCommand& radio) { return RunVerify(radio, c.file, c.Differences()); },
     {File, Port, Json, Identifiers, Trace, Quick}, "verify radio.K4X 1"},
    {"info", "Read or write the embedded information", {}, {}, "info write 1 'Our text'"},
    {"info read", "Print the text and the last programming time",
     [](Call& c, const RadioCommand& radio) { return RunInfoRead(radio, c.json); },
     {Port, Json, Trace}, "info read 1"},
    {"info write", "Write TEXT, at most 119 characters", WriteInfo,
     {Port, {"[TEXT]", &Call::text, "the text in quotes, after -- if it begins with -; a line break counts as two "
                                    "characters"},
      {"--from", &Call::other, "read the text from this file, such as one saved by write --backup", "FILE"}, Verified,
       Trace},
     "info write 1 'Our text'"},
    {"print", "Print the reports of FILE to a PDF file", Print,
     {File, {"OUT.pdf", &Call::output, "the PDF file to write, replacing an existing one; - for standard output"},
      {"--reports", &Call::text, "channels, tts, info, separated by commas; all by default", "NAMES"}},
     "print radio.K4X radio.pdf"},
    {"fleet", FleetSummary, {}, {}, ""}, // another program
    {"fleet journal", "", {}, {}, ""},
    {"ports", "List COM1 to COM16 with their devices, and whether they can be opened", ListPorts, {Json},
     "ports --json"},
    {"help", "Print the help of a command", {}, {}, "help write"},
};
// clang-format on

void Add(CLI::App& command, const Argument& argument, Call& call) {
  const std::string shown = argument.name;
  const bool isOption = shown.starts_with('-'), isOptional = shown.starts_with('[');
  const std::string name = isOptional ? shown.substr(1, shown.size() - 2) : shown;
  const auto add = [&](auto member) {
    if constexpr (std::is_same_v<decltype(member), bool Call::*>)
      return command.add_flag(name, call.*member, argument.about);
    else
      return command.add_option(name, call.*member, argument.about)->type_name(argument.type);
  };
  CLI::Option* const option = std::visit(add, argument.value)->required(!isOption && !isOptional);
  if (argument.value == decltype(argument.value)(&Call::other))
    option->check([&call](const std::string& text) {
      return std::string(text == Stream && call.file == Stream ? "only one can be standard input" : "");
    });
}

ExitStatus Run(const Command& command, Call& call) {
  for (const std::string& input : {call.file, call.other}) // reading it would be endless, or it is empty by now
    if (const std::string stream = StandardStreamAt(input == Stream           ? "/dev/stdin"
                                                    : IsStandardOutput(input) ? ""
                                                                              : input);
        !stream.empty())
      return Refuse(call.terminal, NameOfSource(input) + ": is also " + stream);
  if (const auto* const run = std::get_if<1>(&command.run)) return (*run)(call);
  return WithRadio(call, [&](const RadioCommand& radio) { return std::get<2>(command.run)(call, radio); });
}

} // namespace

void DeclareCommands(CLI::App& app, Call& call, std::function<ExitStatus()>& chosen) {
  for (const Command& command : Commands) {
    const std::string path = command.name;
    const std::size_t blank = path.find(' ');
    CLI::App* const parent = blank == std::string::npos ? &app : app.get_subcommand(path.substr(0, blank));
    parent->require_subcommand(1);
    CLI::App* const sub = parent->add_subcommand(path.substr(blank + 1), command.about); // all of it without a blank
    for (const Argument& argument : command.arguments)
      if (argument.name != nullptr) Add(*sub, argument, call);
    ExcludeEachOther(*sub, {"--json", "--identifiers", "--patch"}); // its output forms
    const char* const status = path == "diff"     ? "0 the same, 1 different, 2 trouble"
                               : path == "verify" ? "0 the same, 1 different or failed, 2 unusable arguments"
                                                  : "0 done, 1 failed, 2 unusable arguments";
    sub->footer("Example: mr4500x-cli " + std::string(command.example) + "\nExit status: " + status);
    if (command.run.index() != 0) sub->final_callback([&] { chosen = [&] { return Run(command, call); }; });
  }
  app.get_subcommand("print")->get_option("--reports")->check(EachItem(CLI::IsMember({"channels", "tts", "info"})));
  app.footer("An existing file is replaced in one step, but `new`, and `read` with {id} in the name, need --replace "
             "for that.\n`mr4500x-cli help COMMAND` has an example of each command.");
}

ExitStatus BecomePart(const std::string& name, std::vector<std::string> arguments, Terminal& terminal) {
  const std::string program = ProgramFolder() + Separator + name;
  arguments.insert(arguments.begin(), name);
  BecomeProgram(program, std::move(arguments));
  return Fail(terminal, program + " can't be started.");
}

} // namespace mr4500x
