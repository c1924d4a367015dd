#include "declare_file_commands.h"

#include "channel_commands.h"
#include "diff_command.h"
#include "file_commands.h"
#include "machine.h"
#include "setting_commands.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace mr4500x {
namespace {

struct Given {
  std::string file, other, output;
  std::vector<std::string> words;
  bool json = false, replace = false, skipBad = false;

  // Where a changed FILE goes.
  [[nodiscard]] const std::string& Target() const { return output.empty() ? file : output; }
};

} // namespace

void DeclareFileCommands(CLI::App& app, FileSystem& files, Terminal& terminal, std::function<ExitStatus()>& chosen) {
  const auto shared = std::make_shared<Given>(); // lives as long as a callback does
  Given& given = *shared;
  const auto command = [&](CLI::App& parent, const char* name, const char* about, auto run) {
    CLI::App* const sub = parent.add_subcommand(name, about);
    sub->final_callback([&chosen, &files, &terminal, shared, run] {
      chosen = [&files, &terminal, shared, run] { return run(files, *shared, terminal); };
    });
    return sub;
  };
  const auto positional = [](CLI::App* sub, const char* name, auto& value, const char* about) {
    sub->add_option(name, value, about)->required()->type_name("");
  };
  const auto file = [&](CLI::App* sub, const char* about) { positional(sub, "FILE", given.file, about); };
  const auto json = [&](CLI::App* sub) { sub->add_flag("--json", given.json, "as one JSON document"); };
  const auto output = [&](CLI::App* sub) {
    sub->add_option("--output", given.output, "write OUT, over a file that is there, and leave FILE as it is")
        ->type_name("OUT");
  };
  const char* const read = "data file (.K4X)";
  const char* const changed = "data file (.K4X); replaced in one step, or left as it was if anything is refused";

  CLI::App* const create = command(app, "new", "Write the default configuration to FILE",
                                   [](FileSystem& on, const Given& is, Terminal& shown) {
                                     return RunNew(on, is.file, is.replace, LocalNow(), shown);
                                   });
  file(create, "data file (.K4X); one that is there is left unless --replace is given");
  create->add_flag("--replace", given.replace, "over a file that is there");

  CLI::App* const show =
      command(app, "show", "Print every setting of FILE", [](FileSystem& on, const Given& is, Terminal& shown) {
        return RunShow(on, is.file, is.json ? ShowAs::Json : ShowAs::Table, shown);
      });
  json(show);
  file(show, read);

  json(command(app, "fields", "List the identifiers of all settings, with label, kind and what each allows",
               [](FileSystem&, const Given& is, Terminal& shown) { return RunFields(is.json, shown); }));

  CLI::App* const get =
      command(app, "get", "Print the values of settings of FILE, one a line",
              [](FileSystem& on, const Given& is, Terminal& shown) { return RunGet(on, is.file, is.words, shown); });
  file(get, read);
  positional(get, "FIELD", given.words, "a setting, such as channels.3.rx_freq; see fields");

  CLI::App* const set = command(app, "set", "Change settings of FILE, all of them or none",
                                [](FileSystem& on, const Given& is, Terminal& shown) {
                                  return RunSet(on, is.file, is.Target(), is.words, shown);
                                });
  file(set, changed);
  positional(set, "FIELD=VALUE", given.words, "for instance channels.3.rx_freq=446.00625 'select_call=5 Tone'");
  output(set);

  CLI::App* const apply = command(app, "apply", "Take settings from what `show --json` prints, or from a part of it",
                                  [](FileSystem& on, const Given& is, Terminal& shown) {
                                    return RunApply(on, is.file, is.Target(), is.other, shown);
                                  });
  file(apply, changed);
  positional(apply, "CHANGES.json", given.other, "the JSON document; - for standard input");
  output(apply);

  CLI::App* const channels =
      app.add_subcommand("channels", "Exchange the channels with spreadsheets and other programs");
  channels->require_subcommand(1);
  CLI::App* const give = command(*channels, "export", "Write every channel of FILE as CSV",
                                 [](FileSystem& on, const Given& is, Terminal& shown) {
                                   return RunChannelsExport(on, is.file, is.other.empty() ? "-" : is.other, shown);
                                 });
  file(give, read);
  give->add_option("OUT.csv", given.other, "the file to write, over one that is there; else standard output")
      ->type_name("");
  CLI::App* const take =
      command(*channels, "import", "Take channels from CSV: what export writes, or a list with Location and Frequency",
              [](FileSystem& on, const Given& is, Terminal& shown) {
                return RunChannelsImport(on, {is.file, is.other, is.Target(), is.skipBad}, shown);
              });
  file(take, changed);
  positional(take, "IN.csv", given.other, "the list, separated by commas, semicolons or tabs; - for standard input");
  take->add_flag("--skip-bad", given.skipBad, "leave out the lines that are refused, and take the others");
  output(take);

  CLI::App* const diff = command(
      app, "diff", "Print the settings that differ, then the bytes that no setting shows; 1 if any differs",
      [](FileSystem& on, const Given& is, Terminal& shown) { return RunDiff(on, is.file, is.other, is.json, shown); });
  json(diff);
  positional(diff, "A", given.file, read);
  positional(diff, "B", given.other, read);
}

} // namespace mr4500x
