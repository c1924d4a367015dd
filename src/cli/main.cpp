// mr4500x-cli: parses the command line and runs the command with the machine's serial port, files and clock.
#include "command_table.h"
#include "machine_files.h"
#include "parsing.h"
#include "utf8.h"

namespace mr4500x {
namespace {

ExitStatus Run(std::vector<char*> words, Terminal& terminal) {
  const auto isFirst = [&](std::string_view word) { return words.size() > 1 && words[1] == word; };
  char help[] = "--help";
  const bool isHelp = isFirst("help"); // of a command
  if (isHelp) {
    words.erase(words.begin() + 1);
    words.push_back(help);
  }
  CLI::App app("Prepares and transfers configurations of LR7200 radios, without a window.", "mr4500x-cli");
  app.set_version_flag("--version", "mr4500x-cli " MR4500X_VERSION);
  Call call{MachineFiles(), terminal};
  std::function<ExitStatus()> command;
  DeclareCommands(app, call, command);
  const CLI::App* at = &app;
  for (std::size_t i = 1; isHelp && i + 1 < words.size(); ++i) { // Parse reports a misspelt command
    const auto commands = at->get_subcommands({});
    const std::string_view word = words[i];
    const bool isOfFleet = i > 1 && isFirst("fleet"); // another program, which would ignore it
    if (commands.empty() || (isOfFleet && word != "journal") || (word.starts_with('-') && word != "-h" && word != help))
      return Refuse(terminal, "help: \"" + Printable(words[i]) + "\" is too much");
    for (const CLI::App* const one : commands)
      if (one->get_name() == words[i]) at = one;
  }
  if (isFirst("fleet")) return BecomePart("mr4500x-cli-fleet", {words.begin() + 1, words.end()}, terminal);
  const auto end = Parse(app, static_cast<int>(words.size()), words.data(), terminal);
  return end ? *end : command();
}

} // namespace
} // namespace mr4500x

int main(int argc, char** argv) {
  return mr4500x::RunProgram([=](mr4500x::Terminal& terminal) { return mr4500x::Run({argv, argv + argc}, terminal); });
}
