// mr4500x-cli-fleet fleet ...: what `mr4500x-cli fleet` becomes, so that the other commands start without a database's
// libraries.
#include "fleet_command.h"
#include "machine.h"
#include "posix_file_system.h"
#include "settings.h"

#include <CLI/CLI.hpp>
#include <QCoreApplication>

#include <unistd.h>

#include <csignal>
#include <iostream>

int main(int argc, char** argv) {
  using namespace mr4500x;
  PrepareProcess();
  std::signal(SIGPIPE, SIG_IGN); // a reader of the lines that has gone must not end the radios' writes
  try {
    const QCoreApplication application(argc, argv);
    PosixFileSystem files;
    Terminal terminal{std::cout, std::cerr, std::cin, false, isatty(STDERR_FILENO) != 0};
    FleetArguments arguments;
    ExitStatus status = ExitStatus::UnusableArguments;
    CLI::App app("A part of mr4500x-cli.", "mr4500x-cli");
    app.require_subcommand(1);
    DeclareFleetCommand(
        app, arguments,
        [&] {
          const std::string settings = SettingsFilePath(files, ProgramFolder(), UserConfigFolder());
          status = RunFleet(files, settings, arguments, terminal);
        },
        [&] { status = RunFleetJournal(files, arguments, terminal); });
    try {
      app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      if (app.exit(error, std::cout, std::cerr) == 0) status = ExitStatus::Done;
    }
    return static_cast<int>(status);
  } catch (const std::exception& error) { // mostly out of memory
    std::cerr << error.what() << '\n';
    return static_cast<int>(ExitStatus::Failed);
  }
}
