#include "declare_file_commands.h"

#include "channel_commands.h"
#include "file_commands.h"
#include "machine.h"
#include "setting_commands.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace mr4500x {
namespace {

constexpr const char* Read = "data file (.K4X); - for standard input";
constexpr const char* Changed =
    "data file (.K4X); replaced in one step, or left unchanged if anything is refused; - from standard input to output";

// What is given, and what a command works with.
struct Call {
  FileSystem& files;
  Terminal& terminal;
  LoadAny load{};
  std::string file{}, other{}, output{};
  std::vector<std::string> words{};
  bool json = false, replace = false, skipBad = false, isDryRun = false, all = false, patch = false,
       identifiers = false;

  [[nodiscard]] ShowAs Form() const { return json ? ShowAs::Json : ShowAs::Table; }
  [[nodiscard]] FileChange Change() const { return {file, output.empty() ? file : output, other, isDryRun}; }
  [[nodiscard]] DiffForm Differences() const {
    using enum DiffForm;
    return json ? Json : patch ? Patch : identifiers ? Identifiers : Labels;
  }
};

struct Declaring {
  std::shared_ptr<Call> call; // lives as long as a callback does
  std::function<ExitStatus()>& chosen;

  CLI::App* Command(CLI::App& parent, const char* name, const char* about, ExitStatus (*run)(Call&)) const {
    CLI::App* const sub = parent.add_subcommand(name, about);
    sub->final_callback([&to = chosen, on = call, run] { to = [on, run] { return run(*on); }; });
    return sub;
  }
  static CLI::Option* Positional(CLI::App* sub, const char* name, auto& value, const char* about) {
    return sub->add_option(name, value, about)->required()->type_name("");
  }
  // What is read beside FILE.
  void Other(CLI::App* sub, const char* name, const char* about) const {
    NotTwice(Positional(sub, name, call->other, about));
  }
  CLI::Option* NotTwice(CLI::Option* option) const {
    return option->check([on = call](const std::string& text) {
      return std::string(text == Stream && on->file == Stream ? "only one can be standard input" : "");
    });
  }
  CLI::Option* File(CLI::App* sub, const char* about) const { return Positional(sub, "FILE", call->file, about); }
  void Json(CLI::App* sub) const { sub->add_flag("-j,--json", call->json, "as one JSON document"); }
  void Output(CLI::App* sub) const {
    sub->add_flag("-n,--dry-run", call->isDryRun, "print what would change, and change nothing");
    sub->add_option("-o,--output", call->output,
                    "write OUT instead of FILE, replacing an existing one; - for standard output")
        ->type_name("OUT");
  }

  void WholeFiles(CLI::App& app) const {
    CLI::App* const create = Command(app, "new", "Write the default configuration to FILE", [](Call& c) {
      return RunNew(c.files, c.file, c.replace, LocalNow(), c.terminal);
    });
    File(create, "data file (.K4X); an existing one is refused without --replace; - for standard output");
    create->add_flag("--replace", call->replace, "replace an existing file");
    CLI::App* const show = Command(app, "show", "Print every setting of FILE",
                                   [](Call& c) { return RunShow(c.files, c.file, c.Form(), c.terminal); });
    Json(show);
    File(show, Read);
    CLI::App* const diff =
        Command(app, "diff", "Print the settings that differ, then the bytes that no setting shows; 1 if any differs",
                [](Call& c) { return RunDiff(c.load, c.file, c.other, c.Differences(), c.terminal); });
    Json(diff);
    diff->add_flag("--identifiers", call->identifiers, "name settings by identifiers, not labels")->excludes("--json");
    diff->add_flag("--patch", call->patch, "print the changes that turn A into B, as input for apply")
        ->excludes("--json")
        ->excludes("--identifiers");
    Positional(diff, "A", call->file, "data file (.K4X) or PORT; - for standard input");
    Other(diff, "B", "data file (.K4X) or PORT; - for standard input");
  }

  void Settings(CLI::App& app) const {
    CLI::App* const fields =
        Command(app, "fields", "List the identifiers of all settings, with label, kind and allowed values",
                [](Call& c) { return RunFields(c.files, c.file, c.json, c.terminal); });
    Json(fields);
    File(fields, "data file (.K4X) whose band and mode decide what is allowed")->required(false);
    CLI::App* const get = Command(app, "get", "Print the values of settings of FILE, one per line", [](Call& c) {
      if (c.all == c.words.empty()) return RunGet(c.files, c.file, c.words, c.json, c.terminal);
      throw CLI::ValidationError("Give either FIELD or --all.");
    });
    File(get, Read);
    Positional(get, "FIELD", call->words,
               "a setting, such as channels.3.rx_freq; or a group or pattern (channels.3, channels.5-8.in_use, "
               "'channels.*.rx_freq'), printed as FIELD=VALUE")
        ->required(false);
    get->add_flag("-a,--all", call->all, "all settings as FIELD=VALUE, for set --from");
    Json(get);
    CLI::App* const set = Command(app, "set", "Change settings of FILE, all of them or none", [](Call& c) {
      if (c.words.empty() && c.other.empty()) throw CLI::RequiredError("FIELD=VALUE or --from");
      return RunSet(c.files, c.Change(), c.words, c.terminal);
    });
    File(set, Changed);
    Positional(set, "FIELD=VALUE", call->words,
               "for instance channels.3.rx_freq=446.00625 'select_call=5 Tone' 'channels.*.bandwidth=12.5'")
        ->required(false);
    NotTwice(set->add_option("--from", call->other, "read lines FIELD=VALUE from this file; - for standard input"))
        ->type_name("LINES");
    Output(set);
    CLI::App* const apply =
        Command(app, "apply", "Change settings from JSON: the output of `show --json`, or a part of it",
                [](Call& c) { return RunApply(c.files, c.Change(), c.terminal); });
    File(apply, Changed);
    Other(apply, "CHANGES.json", "the JSON document; - for standard input");
    Output(apply);
  }

  void Channels(CLI::App& app) const {
    CLI::App* const give = Command(app, "export", "Write every channel of FILE as CSV", [](Call& c) {
      return RunChannelsExport(c.files, c.file, c.other.empty() ? "-" : c.other, c.terminal);
    });
    File(give, Read);
    give->add_option("OUT.csv", call->other, "the file to write, replacing an existing one; default: standard output")
        ->type_name("");
    CLI::App* const take =
        Command(app, "import", "Import channels from CSV: the output of export, or a list with Location and Frequency",
                [](Call& c) { return RunChannelsImport(c.files, c.Change(), c.skipBad, c.terminal); });
    File(take, Changed);
    Other(take, "IN.csv", "the list, separated by commas, semicolons or tabs; - for standard input");
    take->add_flag("--skip-bad", call->skipBad, "skip the lines that are refused, and import the others");
    Output(take);
  }
};

} // namespace

void DeclareFileCommands(CLI::App& app, FileSystem& files, Terminal& terminal, const LoadAny& load,
                         std::function<ExitStatus()>& chosen) {
  const Declaring declaring = {std::make_shared<Call>(Call{files, terminal, load}), chosen};
  declaring.WholeFiles(app);
  declaring.Settings(app);
  CLI::App* const channels =
      app.add_subcommand("channels", "Exchange the channels with spreadsheets and other programs");
  channels->require_subcommand(1);
  declaring.Channels(*channels);
}

} // namespace mr4500x
