// mr4500x-cli: parses the command line and runs the command with the machine's serial port, files and clock.
#include "arguments.h"
#include "conventions.h"
#include "data_file.h"
#include "declare_file_commands.h"
#include "embedded_info.h"
#include "end_signals.h"
#include "file_access.h"
#include "fill_messages.h"
#include "fleet/fleet_summary.h"
#include "machine.h"
#include "machine_files.h"
#include "option_rules.h"
#include "paths.h"
#include "port_address.h"
#include "port_devices.h"
#include "processes.h"
#include "radio_commands.h"
#include "settings.h"
#include "traced_port.h"
#include "utf8.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <span>
#include <string_view>
#include <tuple>

namespace mr4500x {
namespace {

constexpr std::string_view AutoPort = "auto";

struct Arguments {
  std::string file;
  std::string portText; // a number, a path or "auto"
  PortAddress port;
  std::string text;
  std::u16string info;
  bool json = false;
  bool identifiers = false;
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
  [[nodiscard]] ExitStatus ChoosePort();
  [[nodiscard]] ExitStatus ChooseOnlyPort();
  [[nodiscard]] ExitStatus OpenTrace(std::ofstream& trace);
  [[nodiscard]] ShowAs Form() const { return m_arguments.json ? ShowAs::Json : ShowAs::Table; }
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

// The port that was given, or else is the default.
ExitStatus CommandLine::ChoosePort() {
  std::string& text = m_arguments.portText;
  const char* const standard = std::getenv("MR4500X_PORT");
  if (text.empty() && standard != nullptr) text = standard;
  if (text == AutoPort) return ChooseOnlyPort();
  if (const auto port = ParsePortAddress(text)) {
    m_arguments.port = *port;
    return ExitStatus::Done;
  }
  m_terminal.err << (text.empty() ? "PORT is missing, and MR4500X_PORT is not set. PORT" : Printable(text) + ": PORT")
                 << " must be a number from 1 to 16, the path of a device, or auto.\n";
  return ExitStatus::UnusableArguments;
}

// The one with a radio that answers.
ExitStatus CommandLine::ChooseOnlyPort() {
  const auto pins = PortDevices(m_files, SettingsFile());
  const std::vector<std::string> devices = MachineSerialDevices();
  Terminal quiet = m_terminal;
  quiet.showsProgress = false;
  std::set<std::string> asked; // a device can have two numbers
  std::vector<int> answering;
  for (int number = 1; number <= PortCount; ++number) {
    const std::string device = DeviceOfPort(number, pins, devices).path;
    if (device.empty() || !asked.insert(device).second) continue;
    const std::unique_ptr<SerialPort> serial = MakePort({number, ""}, pins);
    SteadyClock clock;
    SerialLine line(*serial, clock, number, ComName(number));
    TerminalObserver observer(quiet, BandAnswer::Ask);
    RadioImage unused;
    if (ReadIdentity(line, unused, observer).outcome == Outcome::Complete) answering.push_back(number);
  }
  if (answering.size() == 1) {
    m_arguments.port = {answering.front(), ""};
    m_terminal.err << "auto: " << ComName(answering.front()) << '\n';
    return ExitStatus::Done;
  }
  m_terminal.err << "auto: " << (answering.empty() ? "no radio answers on any port" : "more than one radio answers:");
  for (const int number : answering)
    m_terminal.err << ' ' << ComName(number);
  m_terminal.err << '\n';
  return ExitStatus::Failed;
}

// The file that the trace is added to, never one that the command works with. A pipe without a reader is not waited
// for.
ExitStatus CommandLine::OpenTrace(std::ofstream& trace) {
  const auto& [file, path] = std::tie(m_arguments.file, m_arguments.traceFile);
  if (path.empty()) return ExitStatus::Done;
  if (path == file || IsSameFile(m_files, path, file) || HasDataFileEnding(path)) {
    m_terminal.err << path << ": the trace must not be a data file\n";
    return ExitStatus::UnusableArguments;
  }
  std::error_code unknown;
  const bool isPipe = std::filesystem::is_fifo(PathOf(path), unknown);
  const OpenFile pipe(m_files, isPipe ? m_files.OpenToWrite(path, 0666) : std::nullopt);
  if (!isPipe || pipe) trace.open(PathOf(path), std::ios::app);
  if (trace.is_open()) return ExitStatus::Done;
  m_terminal.err << path << ": " << std::strerror(errno) << '\n';
  return ExitStatus::Failed;
}

ExitStatus CommandLine::WithRadio(const std::function<ExitStatus(const RadioCommand&)>& run) {
  const auto& [file, port, traceFile] = std::tie(m_arguments.file, m_arguments.port, m_arguments.traceFile);
  if (const ExitStatus chosen = ChoosePort(); chosen != ExitStatus::Done) return chosen;
  if (AreSwapped(file, port)) {
    m_terminal.err << file << " is a port and " << port.device << " is a data file; swap them\n";
    return ExitStatus::UnusableArguments;
  }
  std::ofstream trace;
  if (const ExitStatus opened = OpenTrace(trace); opened != ExitStatus::Done) return opened;
  const std::unique_ptr<SerialPort> serial = MakePort(port, PortDevices(m_files, SettingsFile()));
  const EndSignalsHeld held;
  SteadyClock clock;
  TracedPort traced(*serial, clock, LocalNow, trace);
  SerialPort& used = traceFile.empty() ? *serial : static_cast<SerialPort&>(traced);
  SerialLine line(used, clock, port.number, DisplayName(port));
  const ExitStatus status =
      run({line, m_files, m_terminal, LocalNow, m_arguments.quick ? Speed::Quick : Speed::Prescribed});
  if (traceFile.empty() || trace.flush()) return status;
  m_terminal.err << traceFile << ": the trace could not be written\n";
  return status == ExitStatus::Done ? ExitStatus::Failed : status;
}

// A number and what leads to a device are ports.
bool CommandLine::Load(const std::string& fileOrPort, RadioImage& image) {
  const auto port = ParsePortAddress(fileOrPort);
  if (fileOrPort != AutoPort && (!port || !PortExists(*port)))
    return LoadForCommand(m_files, fileOrPort, image, m_terminal);
  m_arguments.portText = fileOrPort;
  const auto read = [&](const RadioCommand& radio) {
    const bool isRead = ReadForCommand(radio, image);
    if (IsEnding()) m_terminal.err << DisplayName(*port) << ": interrupted. Nothing was compared.\n";
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
      *serial, [&](int number) { return deviceOf(number).path; }, Form(), m_terminal);
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

// For --help of each command: an example, and what the exit status means.
void AddExamples(CLI::App& app) {
  constexpr std::pair<const char*, const char*> Examples[] = {
      {"new", "new empty.K4X"},
      {"show", "show --json radio.K4X"},
      {"diff", "diff --patch old.K4X new.K4X | mr4500x-cli apply radio.K4X -"},
      {"fields", "fields radio.K4X"},
      {"get", "get radio.K4X 'channels.*.rx_freq'"},
      {"set", "set --dry-run radio.K4X channels.3.rx_freq=446.00625"},
      {"apply", "apply radio.K4X changes.json"},
      {"channels", "channels import radio.K4X channels.csv"},
      {"identify", "identify auto"},
      {"read", "read 1 '{id}_{date}.K4X'"},
      {"write", "write --backup old --verify radio.K4X 1"},
      {"verify", "verify radio.K4X 1"},
      {"info", "info write 1 'Our text'"},
      {"print", "print radio.K4X radio.pdf"},
      {"ports", "ports --json"},
  };
  for (const auto& [name, example] : Examples) {
    const std::string_view command = name;
    const char* const status = command == "diff"     ? "0 the same, 1 different, 2 trouble"
                               : command == "verify" ? "0 the same, 1 different or failed, 2 unusable arguments"
                                                     : "0 done, 1 failed, 2 unusable arguments";
    app.get_subcommand(name)->footer("Example: mr4500x-cli " + std::string(example) + "\nExit status: " + status);
  }
  app.footer("An existing file is replaced in one step, but `new` and a name with {id} refuse to replace it.\n"
             "`mr4500x-cli help COMMAND` has an example of each command.");
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
  const auto file = [&](CLI::App* sub) {
    positional(sub, "FILE", given.file, "data file (.K4X); - for standard input");
  };
  const auto trace = [&](CLI::App* sub) {
    sub->add_option("--trace", given.traceFile, "append every byte on the line, with its time, to this file")
        ->type_name("FILE");
  };
  const auto port = [&](CLI::App* sub) {
    positional(sub, "PORT", given.portText,
               "port number 1 to 16, path of a device, or auto for the only radio that answers; default: MR4500X_PORT")
        ->required(false);
    trace(sub);
  };
  // What follows PORT, which can be left out.
  const auto afterPort = [&](CLI::App* sub, const char* name, std::string& value, const char* about) {
    return positional(sub, name, value, about)->required(false);
  };
  const auto json = [&](CLI::App* sub) { sub->add_flag("-j,--json", given.json, "as one JSON document"); };
  const auto quick = [&](CLI::App* sub) {
    sub->add_flag("-q,--quick", given.quick, "leave out the pauses between records, until the radio needs them");
  };
  const auto onRadio = [this](auto run) { return [this, run] { return WithRadio(run); }; };

  const auto load = [this](const std::string& fileOrPort, RadioImage& image) { return Load(fileOrPort, image); };
  DeclareFileCommands(app, m_files, m_terminal, load, m_command);
  trace(app.get_subcommand("diff"));
  quick(app.get_subcommand("diff"));

  CLI::App* const identify =
      command(app, "identify", "Print the radio's identity number, firmware, band and last programming time",
              onRadio([&](const RadioCommand& radio) { return RunIdentify(radio, Form()); }));
  json(identify);
  port(identify);

  CLI::App* const read =
      command(app, "read", "Read the whole radio and store it in FILE, replacing an existing one", [this, &given] {
        if (given.file.empty()) given.file.swap(given.portText);
        if (given.file.empty()) throw CLI::RequiredError("FILE");
        return WithRadio([&](const RadioCommand& radio) { return RunRead(radio, given.file); });
      });
  port(read);
  afterPort(read, "FILE", given.file,
            "data file (.K4X); {id}, {date} and {time} in its name are replaced; - for standard output");
  quick(read);

  CLI::App* const write =
      command(app, "write", "Write the configuration in FILE to the radio",
              onRadio([&](const RadioCommand& radio) { return RunWrite(radio, given.file, given.write); }));
  file(write);
  port(write);
  quick(write);
  write->add_flag_callback(
      "--accept-band", [&] { given.write.band = BandAnswer::Yes; },
      "write even if the radio has another frequency band");
  write->add_option("--backup", given.write.backupFolder, "first save the radio's configuration in this folder")
      ->type_name("FOLDER");
  write->add_flag("-n,--dry-run", given.write.isDryRun, "read the radio, print what would change, and write nothing");
  write->add_flag("--verify", given.write.isVerified, "read back what was written and compare it");

  CLI::App* const verify = command(
      app, "verify", "Compare the radio with what a write of FILE would send", onRadio([&](const RadioCommand& radio) {
        using enum DiffForm;
        return RunVerify(radio, given.file, given.json ? Json : given.identifiers ? Identifiers : Labels);
      }));
  file(verify);
  port(verify);
  quick(verify);
  json(verify);
  verify->add_flag("--identifiers", given.identifiers, "name settings by identifiers, not labels")->excludes("--json");

  CLI::App* const info = app.add_subcommand("info", "Read or write the embedded information");
  info->require_subcommand(1);
  CLI::App* const infoRead = command(*info, "read", "Print the text and the last programming time",
                                     onRadio([&](const RadioCommand& radio) { return RunInfoRead(radio, Form()); }));
  port(infoRead);
  json(infoRead);
  CLI::App* const infoWrite = command(*info, "write", "Write TEXT, at most 119 characters", [this, &given] {
    return WithRadio([&](const RadioCommand& radio) {
      const bool isVerified = given.write.isVerified;
      return given.textFile.empty() ? RunInfoWrite(radio, given.info, isVerified)
                                    : RunInfoWriteFrom(radio, given.textFile, isVerified);
    });
  });
  port(infoWrite);
  CLI::Option* const text = afterPort(infoWrite, "TEXT", given.text,
                                      "the text in quotes, after -- if it begins with -; a line break counts as two "
                                      "characters");
  infoWrite->add_option("--from", given.textFile, "read the text from this file, such as one saved by write --backup")
      ->type_name("FILE");
  infoWrite->add_flag("--verify", given.write.isVerified, "read back what was written and compare it");
  infoWrite->parse_complete_callback([&given, text] {
    bool isGiven = text->count() > 0;
    if (!isGiven && given.textFile.empty() && !given.portText.empty()) { // PORT was left out
      given.text.swap(given.portText);
      isGiven = true;
    }
    if (isGiven == !given.textFile.empty()) throw CLI::ValidationError("Give either TEXT or --from.");
    given.info = InfoOf(given.text);
  });

  CLI::App* const print = command(app, "print", "Print the reports of FILE to a PDF file", [this] { return Print(); });
  file(print);
  positional(print, "OUT.pdf", given.pdfFile,
             "the PDF file to write, replacing an existing one; - for standard output");
  print->add_option("--reports", given.reports, "channels, tts, info, separated by commas; all by default")
      ->type_name("NAMES")
      ->delimiter(',')
      ->check(CLI::IsMember({"channels", "tts", "info"}))
      ->default_val(std::vector<std::string>{"channels", "tts", "info"});

  app.add_subcommand("fleet", FleetSummary);

  json(command(app, "ports", "List COM1 to COM16 with their devices, and whether they can be opened",
               [this] { return Ports(); }));
  app.add_subcommand("help", "Print the help of a command");
  AddExamples(app);
  RefuseEmptyValues(app);
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
    if (next == nullptr) return '"' + std::string(word) + "\" is not a command; " + hint;
    at = next;
  }
  return "";
}

// An unknown option that may be a misspelt one of the command.
std::string UnknownOption(const CLI::App* at, std::span<char* const> words) {
  for (const std::string_view word : words) {
    const auto isIt = [&](const CLI::App* sub) { return sub->get_name() == word; };
    if (const auto subs = at->get_subcommands(isIt); !subs.empty()) at = subs.front();
    std::vector<std::string> names;
    for (const CLI::Option* const option : at->get_options())
      for (const std::string& name : option->get_lnames())
        names.push_back("--" + name);
    const std::string_view name = word.substr(0, word.find('='));
    if (!name.starts_with("--") || name == "--" || std::ranges::find(names, name) != names.end()) continue;
    const std::string nearest = NearestOf(name, names);
    if (!nearest.empty()) return Printable(name) + ": unknown option; did you mean " + nearest + "?";
  }
  return "";
}

int CommandLine::Run(int argc, char** argv) {
  std::vector<char*> words(argv, argv + argc);
  char help[] = "--help";
  if (argc > 1 && std::string_view(argv[1]) == "help") { // help COMMAND
    words.erase(words.begin() + 1);
    words.push_back(help);
    argc = static_cast<int>(words.size());
  }
  words.push_back(nullptr);
  argv = words.data();
  if (argc > 1 && std::string_view(argv[1]) == "fleet") return static_cast<int>(Fleet(argv));
  CLI::App app("Prepares and transfers configurations of LR7200 radios, without a window.", "mr4500x-cli");
  app.require_subcommand(1);
  app.set_version_flag("--version", "mr4500x-cli " MR4500X_VERSION);
  Declare(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const auto given = std::span(argv, static_cast<std::size_t>(argc)).subspan(1);
    std::string unknown = UnknownCommand(&app, given);
    if (unknown.empty() && error.get_exit_code() != 0) unknown = UnknownOption(&app, given);
    if (!unknown.empty()) {
      std::cerr << unknown << '\n';
      return static_cast<int>(ExitStatus::UnusableArguments);
    }
    if (app.exit(error, std::cout, std::cerr) == 0) return static_cast<int>(EndOutput(m_terminal));
    return static_cast<int>(ExitStatus::UnusableArguments);
  }
  try {
    return static_cast<int>(m_command());
  } catch (const CLI::ParseError& error) { // of arguments that need each other
    std::cerr << error.what() << '\n';
    return static_cast<int>(ExitStatus::UnusableArguments);
  }
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
