// mr4500x-cli: parses the command line and runs the command with the machine's serial port, files and clock.
#include "arguments.h"
#include "data_file.h"
#include "declare_file_commands.h"
#include "embedded_info.h"
#include "end_signals.h"
#include "fill_messages.h"
#include "machine.h"
#include "port_devices.h"
#include "posix_file_system.h"
#include "radio_commands.h"
#include "settings.h"

#include <CLI/CLI.hpp>

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iostream>

namespace mr4500x {
namespace {

struct Arguments {
  std::string file;
  PortArgument port;
  std::u16string text;
  bool acceptBand = false;
  std::string pdfFile;
  std::vector<std::string> reports;
};

class CommandLine {
public:
  CommandLine() : m_terminal{std::cout, std::cerr, std::cin, isatty(STDIN_FILENO) != 0, isatty(STDERR_FILENO) != 0} {}

  int Run(int argc, char** argv);

private:
  void Declare(CLI::App& app);
  [[nodiscard]] ExitStatus WithRadio(const std::function<ExitStatus(const RadioCommand&)>& run);
  [[nodiscard]] ExitStatus Ports();
  [[nodiscard]] ExitStatus Print();
  [[nodiscard]] std::string SettingsFile() { return SettingsFilePath(m_files, ProgramFolder(), UserConfigFolder()); }

  PosixFileSystem m_files;
  Terminal m_terminal;
  Arguments m_arguments;
  std::function<ExitStatus()> m_command;
};

ExitStatus CommandLine::WithRadio(const std::function<ExitStatus(const RadioCommand&)>& run) {
  const PortArgument& port = m_arguments.port;
  const std::unique_ptr<QtSerialPort> serial = PortFor(port, m_files, SettingsFile());
  const EndSignalsHeld held;
  SteadyClock clock;
  SerialLine line(*serial, clock, port.number, NameOf(port));
  return run({line, m_files, m_terminal});
}

ExitStatus CommandLine::Ports() {
  const auto pins = PortDevices(m_files, SettingsFile());
  const std::vector<std::string> devices = MachineSerialDevices();
  const auto deviceOf = [&](int number) { return DeviceOfPort(number, pins, devices); };
  QtSerialPort serial(deviceOf);
  return RunPorts(
      serial, [&](int number) { return deviceOf(number).path; }, m_terminal);
}

PortArgument PortOf(const std::string& text) {
  if (const auto port = ParsePortArgument(text)) return *port;
  throw CLI::ValidationError("PORT is a port number 1 to 16 or the path of a device.");
}

std::u16string InfoOf(const std::string& text) {
  const auto info = InfoFromArgument(text);
  if (!info) throw CLI::ValidationError("TEXT is not valid UTF-8.");
  if (info->size() > MostEmbeddedCharacters) throw CLI::ValidationError(TopSizeText);
  return *info;
}

// Whether a PDF file at that path would overwrite a data file: FILE itself or any other, whatever its name.
bool LeadsToDataFile(FileSystem& files, const std::string& dataFile, const std::string& pdfFile) {
  std::error_code failed; // of a missing file there is nothing to overwrite
  if (std::filesystem::equivalent(dataFile, pdfFile, failed)) return true;
  std::string extension = std::filesystem::weakly_canonical(pdfFile, failed).extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return std::toupper(c); });
  if (extension == ".K4X" || extension == ".K4Y") return true;
  RadioImage unused;
  return LoadDataFile(files, pdfFile, unused).outcome == LoadOutcome::Loaded;
}

// Replaces this process by the program that draws the pages, which keeps its streams and gives its exit status.
ExitStatus CommandLine::Print() {
  if (m_arguments.pdfFile.empty() || LeadsToDataFile(m_files, m_arguments.file, m_arguments.pdfFile)) {
    m_terminal.err << "OUT.pdf is the PDF file to write; it must not be a data file.\n";
    return ExitStatus::UnusableArguments;
  }
  const std::string reports = CLI::detail::join(m_arguments.reports);
  const std::string program = ProgramFolder() + "/mr4500x-cli-print";
  execl(program.c_str(), "mr4500x-cli-print", m_arguments.file.c_str(), m_arguments.pdfFile.c_str(), reports.c_str(),
        static_cast<char*>(nullptr));
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
    sub->add_option(name, value, about)->required()->type_name("");
  };
  // An argument that is more than its text; `parse` throws for an unusable one.
  const auto parsed = [](CLI::App* sub, const char* name, auto& value, auto parse, const char* about) {
    const auto take = [&value, parse](const std::string& text) { value = parse(text); };
    sub->add_option_function<std::string>(name, take, about)->required()->type_name("");
  };
  const auto file = [&](CLI::App* sub) { positional(sub, "FILE", given.file, "data file (.K4X)"); };
  const auto port = [&](CLI::App* sub) {
    parsed(sub, "PORT", given.port, PortOf, "port number 1 to 16, or the path of a device");
  };

  DeclareFileCommands(app, m_files, m_terminal, m_command);

  CLI::App* const read = command(app, "read", "Read the whole radio and store it in FILE", [this] {
    return WithRadio([this](const RadioCommand& radio) { return RunRead(radio, m_arguments.file); });
  });
  port(read);
  file(read);

  CLI::App* const write = command(app, "write", "Write the configuration in FILE to the radio", [this] {
    const auto band = m_arguments.acceptBand ? BandAnswer::Yes : BandAnswer::Ask;
    return WithRadio([&](const RadioCommand& radio) { return RunWrite(radio, m_arguments.file, band, LocalNow); });
  });
  file(write);
  port(write);
  write->add_flag("--accept-band", given.acceptBand, "go on when the radio's frequency band is another");

  CLI::App* const info = app.add_subcommand("info", "Read or write the embedded information");
  info->require_subcommand(1);
  port(command(*info, "read", "Print the text and the last programming time",
               [this] { return WithRadio(RunInfoRead); }));
  CLI::App* const infoWrite = command(*info, "write", "Write TEXT, at most 119 characters", [this] {
    return WithRadio([this](const RadioCommand& radio) { return RunInfoWrite(radio, m_arguments.text); });
  });
  port(infoWrite);
  parsed(infoWrite, "TEXT", given.text, InfoOf, "the text in quotes; a line break counts as two characters");

  CLI::App* const print = command(app, "print", "Print the reports of FILE to a PDF file", [this] { return Print(); });
  file(print);
  positional(print, "OUT.pdf", given.pdfFile, "the PDF file to write, over one that is there");
  print->add_option("--reports", given.reports, "channels, tts, info, separated by commas; all by default")
      ->type_name("NAMES")
      ->delimiter(',')
      ->check(CLI::IsMember({"channels", "tts", "info"}))
      ->default_val(std::vector<std::string>{"channels", "tts", "info"});

  command(app, "ports", "List COM1 to COM16: the device each stands for, and whether it opens",
          [this] { return Ports(); });
}

int CommandLine::Run(int argc, char** argv) {
  CLI::App app("Prepares configurations of LR7200 radios and transfers them, without a window.", "mr4500x-cli");
  app.require_subcommand(1);
  app.set_version_flag("--version", "mr4500x-cli " MR4500X_VERSION);
  Declare(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
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
