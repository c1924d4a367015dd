// mr4500x-cli: parses the command line and runs the command with the machine's serial port, files and clock.
#include "arguments.h"
#include "conventions.h"
#include "data_file.h"
#include "declare_file_commands.h"
#include "embedded_info.h"
#include "end_signals.h"
#include "fill_messages.h"
#include "fleet/fleet_summary.h"
#include "machine.h"
#include "machine_files.h"
#include "paths.h"
#include "port_address.h"
#include "port_devices.h"
#include "processes.h"
#include "radio_commands.h"
#include "settings.h"
#include "traced_port.h"

#include <CLI/CLI.hpp>

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <span>
#include <string_view>
#include <tuple>

namespace mr4500x {
namespace {

struct Arguments {
  std::string file;
  PortAddress port;
  std::u16string text;
  bool json = false;
  WriteOptions write;
  bool quick = false;
  std::string traceFile;
  std::string textFile;
  std::string pdfFile;
  std::vector<std::string> reports;
};

class CommandLine {
public:
  CommandLine()
      : m_terminal{std::cout,
                   std::cerr,
                   std::cin,
                   isatty(STDIN_FILENO) != 0,
                   isatty(STDERR_FILENO) != 0,
                   [] { return AwaitInput(STDIN_FILENO); },
                   IsEnding} {}

  int Run(int argc, char** argv);

private:
  void Declare(CLI::App& app);
  [[nodiscard]] ExitStatus WithRadio(const std::function<ExitStatus(const RadioCommand&)>& run);
  [[nodiscard]] bool Load(const std::string& fileOrPort, RadioImage& image);
  [[nodiscard]] ExitStatus Ports();
  [[nodiscard]] ExitStatus Print();
  [[nodiscard]] ExitStatus Fleet(char** argv);
  [[nodiscard]] ExitStatus Become(const std::string& name, std::vector<std::string> arguments);
  [[nodiscard]] std::string SettingsFile() { return SettingsFilePath(m_files, ProgramFolder(), UserConfigFolder()); }

  FileSystem& m_files = MachineFiles();
  Terminal m_terminal;
  Arguments m_arguments;
  std::function<ExitStatus()> m_command;
};

// FILE is a port that is there, and PORT a data file.
bool AreSwapped(const std::string& file, const PortAddress& port) {
  const auto meant = ParsePortAddress(file);
  std::error_code unknown;
  return meant && PortExists(*meant) &&
         (HasDataFileEnding(port.device) || std::filesystem::is_regular_file(PathOf(port.device), unknown));
}

ExitStatus CommandLine::WithRadio(const std::function<ExitStatus(const RadioCommand&)>& run) {
  const auto& [file, port, traceFile] = std::tie(m_arguments.file, m_arguments.port, m_arguments.traceFile);
  if (AreSwapped(file, port)) {
    m_terminal.err << file << " is a port, " << port.device << " a data file: the other way round, please\n";
    return ExitStatus::UnusableArguments;
  }
  std::ofstream trace;
  if (!traceFile.empty()) trace.open(PathOf(traceFile), std::ios::app);
  if (!trace) {
    m_terminal.err << traceFile << ": " << std::strerror(errno) << '\n';
    return ExitStatus::Failed;
  }
  const std::unique_ptr<SerialPort> serial = MakePort(port, PortDevices(m_files, SettingsFile()));
  const EndSignalsHeld held;
  SteadyClock clock;
  TracedPort traced(*serial, clock, LocalNow, trace);
  SerialPort& used = traceFile.empty() ? *serial : static_cast<SerialPort&>(traced);
  SerialLine line(used, clock, port.number, DisplayName(port));
  return run({line, m_files, m_terminal, LocalNow, m_arguments.quick ? Speed::Quick : Speed::Prescribed});
}

// A number and what leads to a device are ports.
bool CommandLine::Load(const std::string& fileOrPort, RadioImage& image) {
  const auto port = ParsePortAddress(fileOrPort);
  if (!port || !PortExists(*port)) return LoadForCommand(m_files, fileOrPort, image, m_terminal);
  m_arguments.port = *port;
  const auto read = [&](const RadioCommand& radio) {
    const bool isRead = ReadForCommand(radio, image);
    if (IsEnding()) m_terminal.err << DisplayName(*port) << ": asked to end. Nothing has been compared.\n";
    return isRead ? ExitStatus::Done : ExitStatus::Failed;
  };
  return WithRadio(read) == ExitStatus::Done;
}

ExitStatus CommandLine::Ports() {
  const auto pins = PortDevices(m_files, SettingsFile());
  const std::vector<std::string> devices = MachineSerialDevices();
  const auto deviceOf = [&](int number) { return DeviceOfPort(number, pins, devices); };
  const std::unique_ptr<SerialPort> serial = MakeSerialPort(deviceOf);
  return RunPorts(
      *serial, [&](int number) { return deviceOf(number).path; }, m_terminal);
}

PortAddress PortOf(const std::string& text) {
  if (const auto port = ParsePortAddress(text)) return *port;
  throw CLI::ValidationError("PORT is a port number 1 to 16 or the path of a device.");
}

std::u16string InfoOf(const std::string& text) {
  const auto info = InfoFromArgument(text);
  if (!info) throw CLI::ValidationError("TEXT is not valid UTF-8.");
  if (info->size() > MostEmbeddedCharacters) throw CLI::ValidationError(TopSizeText);
  return *info;
}

// The program that draws the pages takes the place of this one.
ExitStatus CommandLine::Print() {
  if (m_arguments.pdfFile.empty() || LeadsToDataFile(m_files, m_arguments.file, m_arguments.pdfFile)) {
    m_terminal.err << "OUT.pdf is the PDF file to write; it must not be a data file.\n";
    return ExitStatus::UnusableArguments;
  }
  return Become("mr4500x-cli-print",
                {"mr4500x-cli-print", m_arguments.file, m_arguments.pdfFile, CLI::detail::join(m_arguments.reports)});
}

// The same for a fleet, whose journal needs a database's libraries. That program reads the arguments.
ExitStatus CommandLine::Fleet(char** argv) {
  std::vector<std::string> arguments;
  for (; *argv != nullptr; ++argv)
    arguments.emplace_back(*argv);
  return Become("mr4500x-cli-fleet", std::move(arguments));
}

ExitStatus CommandLine::Become(const std::string& name, std::vector<std::string> arguments) {
  const std::string program = ProgramFolder() + Separator + name;
  BecomeProgram(program, std::move(arguments));
  m_terminal.err << program << " can't be started.\n";
  return ExitStatus::Failed;
}

void CommandLine::Declare(CLI::App& app) {
  Arguments& given = m_arguments;
  const auto command = [&](CLI::App& parent, const char* name, const char* about, std::function<ExitStatus()> run) {
    CLI::App* const sub = parent.add_subcommand(name, about);
    sub->final_callback([this, run = std::move(run)] { m_command = run; });
    return sub;
  };
  const auto positional = [](CLI::App* sub, const char* name, auto& value, const char* about) {
    return sub->add_option(name, value, about)->required()->type_name("");
  };
  // An argument that is more than its text; `parse` throws for an unusable one.
  const auto parsed = [](CLI::App* sub, const char* name, auto& value, auto parse, const char* about) {
    const auto take = [&value, parse](const std::string& text) { value = parse(text); };
    return sub->add_option_function<std::string>(name, take, about)->required()->type_name("");
  };
  const auto file = [&](CLI::App* sub) {
    positional(sub, "FILE", given.file, "data file (.K4X); - for standard input");
  };
  const auto trace = [&](CLI::App* sub) {
    sub->add_option("--trace", given.traceFile, "add every byte on the line, with its time, to this file")
        ->type_name("FILE");
  };
  const auto port = [&](CLI::App* sub) {
    parsed(sub, "PORT", given.port, PortOf, "port number 1 to 16, or the path of a device");
    trace(sub);
  };
  const auto quick = [&](CLI::App* sub) {
    sub->add_flag("--quick", given.quick, "leave out the pauses between records, until the radio needs them");
  };
  const auto onRadio = [this](auto run) { return [this, run] { return WithRadio(run); }; };

  const auto load = [this](const std::string& fileOrPort, RadioImage& image) { return Load(fileOrPort, image); };
  DeclareFileCommands(app, m_files, m_terminal, load, m_command);
  trace(app.get_subcommand("diff"));

  CLI::App* const identify =
      command(app, "identify", "Print the radio's identity number, firmware, band and last programming time",
              onRadio([&](const RadioCommand& radio) {
                return RunIdentify(radio, given.json ? ShowAs::Json : ShowAs::Table);
              }));
  identify->add_flag("--json", given.json, "as one JSON document");
  port(identify);

  CLI::App* const read = command(app, "read", "Read the whole radio and store it in FILE, over one that is there",
                                 onRadio([&](const RadioCommand& radio) { return RunRead(radio, given.file); }));
  port(read);
  positional(read, "FILE", given.file,
             "data file (.K4X); {id}, {date} and {time} in it are filled in; - for standard output");
  quick(read);

  CLI::App* const write =
      command(app, "write", "Write the configuration in FILE to the radio",
              onRadio([&](const RadioCommand& radio) { return RunWrite(radio, given.file, given.write); }));
  file(write);
  port(write);
  quick(write);
  write->add_flag_callback(
      "--accept-band", [&] { given.write.band = BandAnswer::Yes; }, "go on when the radio's frequency band is another");
  write->add_option("--backup", given.write.backupFolder, "keep what the radio holds in a file of this folder first")
      ->type_name("FOLDER");
  write->add_flag("--verify", given.write.isVerified, "read back what was written and compare it");

  CLI::App* const verify = command(app, "verify", "Compare what a write of FILE would send with what the radio holds",
                                   onRadio([&](const RadioCommand& radio) { return RunVerify(radio, given.file); }));
  file(verify);
  port(verify);
  quick(verify);

  CLI::App* const info = app.add_subcommand("info", "Read or write the embedded information");
  info->require_subcommand(1);
  port(command(*info, "read", "Print the text and the last programming time", onRadio(RunInfoRead)));
  CLI::App* const infoWrite =
      command(*info, "write", "Write TEXT, at most 119 characters", onRadio([&](const RadioCommand& radio) {
        return given.textFile.empty() ? RunInfoWrite(radio, given.text) : RunInfoWriteFrom(radio, given.textFile);
      }));
  port(infoWrite);
  CLI::App* const text = infoWrite->add_option_group("What to write");
  text->require_option(1);
  parsed(text, "TEXT", given.text, InfoOf, "the text in quotes; a line break counts as two characters")
      ->required(false);
  text->add_option("--from", given.textFile, "the text in this file, as write --backup keeps it")->type_name("FILE");

  CLI::App* const print = command(app, "print", "Print the reports of FILE to a PDF file", [this] { return Print(); });
  file(print);
  positional(print, "OUT.pdf", given.pdfFile, "the PDF file to write, over one that is there; - for standard output");
  print->add_option("--reports", given.reports, "channels, tts, info, separated by commas; all by default")
      ->type_name("NAMES")
      ->delimiter(',')
      ->check(CLI::IsMember({"channels", "tts", "info"}))
      ->default_val(std::vector<std::string>{"channels", "tts", "info"});

  app.add_subcommand("fleet", FleetSummary);

  command(app, "ports", "List COM1 to COM16: the device each stands for, and whether it opens",
          [this] { return Ports(); });
}

// What to tell about a word in the place of a command; "" if the words are commands.
std::string UnknownCommand(const CLI::App* at, std::span<char* const> words) {
  for (const std::string_view word : words) {
    std::vector<std::string> names;
    const CLI::App* next = nullptr;
    for (const CLI::App* const sub : at->get_subcommands([](const CLI::App*) { return true; })) {
      if (!sub->get_name().empty()) names.push_back(sub->get_name()); // else a group of options
      if (sub->get_name() == word) next = sub;
    }
    if (at->get_require_subcommand_min() == 0 || word.starts_with('-')) return "";
    const std::string nearest = NearestOf(word, names);
    const std::string hint = nearest.empty() ? "--help lists the commands" : "did you mean \"" + nearest + "\"?";
    if (next == nullptr) return '"' + std::string(word) + "\" is no command; " + hint;
    at = next;
  }
  return "";
}

int CommandLine::Run(int argc, char** argv) {
  if (argc > 1 && std::string_view(argv[1]) == "fleet") return static_cast<int>(Fleet(argv));
  CLI::App app("Prepares configurations of LR7200 radios and transfers them, without a window.", "mr4500x-cli");
  app.require_subcommand(1);
  app.set_version_flag("--version", "mr4500x-cli " MR4500X_VERSION);
  Declare(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const std::string unknown = UnknownCommand(&app, std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
    if (!unknown.empty()) {
      std::cerr << unknown << '\n';
      return static_cast<int>(ExitStatus::UnusableArguments);
    }
    return app.exit(error, std::cout, std::cerr) == 0 ? 0 : static_cast<int>(ExitStatus::UnusableArguments);
  }
  return static_cast<int>(m_command());
}

} // namespace
} // namespace mr4500x

int main(int argc, char** argv) {
  mr4500x::PrepareProcess();
  try {
    return mr4500x::CommandLine().Run(argc, argv);
  } catch (const std::exception& error) { // mostly out of memory
    std::cerr << error.what() << '\n';
    return static_cast<int>(mr4500x::ExitStatus::Failed);
  }
}
