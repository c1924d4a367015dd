#include "chosen_port.h"

#include "arguments.h"
#include "end_signals.h"
#include "file_access.h"
#include "machine.h"
#include "messages.h"
#include "output.h"
#include "paths.h"
#include "port_address.h"
#include "port_devices.h"
#include "processes.h"
#include "settings.h"
#include "text.h"
#include "traced_port.h"
#include "utf8.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>

namespace mr4500x {
namespace {

using enum ExitStatus;

constexpr std::string_view AutoPort = "auto";

std::array<std::string, HighestPort> Pins(FileSystem& files) {
  return PortDevices(files, SettingsFilePath(files, ProgramFolder(), UserConfigFolder()));
}

// COM1 to COM16 with their current devices.
struct MachinePorts {
  explicit MachinePorts(FileSystem& files) : pins(Pins(files)) {}
  [[nodiscard]] PortDevice DeviceOf(int number) const { return DeviceOfPort(number, pins, devices); }

  std::array<std::string, HighestPort> pins;
  std::vector<std::string> devices = MachineSerialDevices();
};

// The only port with a radio that answers. A device can have two numbers.
ExitStatus ChooseOnlyPort(const Call& call, PortAddress& port) {
  Terminal quiet = call.terminal;
  quiet.showsProgress = false;
  const MachinePorts ports(call.files);
  std::set<std::string> asked;
  std::string answering, reasons; // names of ports; why others do not open
  for (int number = 1; number <= PortCount; ++number) {
    const std::string device = ports.DeviceOf(number).path;
    if (device.empty() || !asked.insert(device).second) continue;
    const std::unique_ptr<SerialPort> serial = MakePort({number, ""}, ports.pins);
    SteadyClock clock;
    SerialLine line(*serial, clock, number, ComName(number));
    TerminalObserver observer(quiet, BandAnswer::Ask);
    RadioImage unused;
    const ExchangeResult result = ReadIdentity(line, unused, observer);
    if (result.outcome == Outcome::PortNotOpened) reasons += "; " + FailureOf(result)->text;
    if (result.outcome == Outcome::PortNotOpened || result.outcome == Outcome::NoResponse) continue;
    port = {number, ""};
    answering += ' ' + ComName(number);
  }
  if (answering.empty()) return Fail(call.terminal, "auto: no radio answers on any port" + reasons);
  if (answering.rfind(' ') > 0) return Fail(call.terminal, "auto: more than one radio answers:" + answering);
  call.terminal.err << "auto:" << answering << '\n';
  return Done;
}

// The given or the default port.
ExitStatus ChoosePort(const Call& call, PortAddress& port) {
  const char* const standard = std::getenv("MR4500X_PORT");
  const std::string text = call.port.empty() && standard != nullptr ? standard : call.port;
  if (text == AutoPort) return ChooseOnlyPort(call, port);
  if (const auto meant = ParsePortAddress(text)) {
    port = *meant;
    return Done;
  }
  return Refuse(call.terminal, (!text.empty()         ? Printable(text) + ": PORT"
                                : standard != nullptr ? "PORT is missing, and MR4500X_PORT is empty. PORT"
                                                      : "PORT is missing, and MR4500X_PORT is not set. PORT") +
                                   " must be a number from 1 to 16, the path of a device, or auto.");
}

// FILE is an existing port, and PORT a data file.
bool AreSwapped(const std::string& file, const PortAddress& port) {
  std::error_code unknown;
  return IsPort(file) &&
         (HasDataFileEnding(port.device) || std::filesystem::is_regular_file(PathOf(port.device), unknown));
}

// The file that the trace is appended to. It must not be used otherwise. Does not wait for the reader of a pipe.
ExitStatus OpenTrace(const Call& call, const std::string& device, std::ofstream& trace) {
  const std::string& path = call.trace;
  if (path.empty()) return Done;
  bool isUsed = !StandardStreamAt(path).empty() || IsDataFile(call.files, path);
  for (std::string used : {call.file, call.other, call.backup, device})
    for (; used != FolderOf(used); used = FolderOf(used)) // it can't be a folder of another file either
      isUsed = isUsed || path == used || LeadsToInput(call.files, path, used);
  if (isUsed)
    return Refuse(call.terminal,
                  path + ": the trace must not be a data file, or another file or folder of the command");
  IgnoreBrokenPipes(); // a transfer does not end with the reader of the trace
  trace = OpenToAppend(call.files, path);
  return trace.is_open() ? Done : Fail(call.terminal, path + ": " + std::strerror(errno));
}

} // namespace

bool IsPort(const std::string& text) {
  const auto port = ParsePortAddress(text);
  return text == AutoPort || (port && PortExists(*port));
}

bool LooksLikePort(const std::string& text) {
  const std::string lower = Lower(text);
  const bool isNumber = !text.empty() && !ParsePortAddress(text); // above 16
  return isNumber || IsPort(text) || IsPort(lower) || (text.starts_with("/dev/") && !HasDataFileEnding(text));
}

ExitStatus WithRadio(Call& call, const std::function<ExitStatus(const RadioCommand&)>& run) {
  PortAddress port;
  if (const ExitStatus chosen = ChoosePort(call, port); chosen != Done) return chosen;
  if (AreSwapped(call.file, port))
    return Refuse(call.terminal, call.file + " is a port and " + port.device + " is a data file; swap them");
  const std::string device = port.number > 0 ? MachinePorts(call.files).DeviceOf(port.number).path : port.device;
  if (call.other.empty() && IsSameFile(call.files, call.file, device)) // not for diff, whose A can be the port
    return Refuse(call.terminal, call.file + ": is the port");
  std::ofstream trace;
  if (const ExitStatus opened = OpenTrace(call, device, trace); opened != Done) return opened;
  const std::unique_ptr<SerialPort> serial = MakePort(port, Pins(call.files));
  const EndSignalsHeld held;
  SteadyClock clock;
  TracedPort traced(*serial, clock, LocalNow, trace);
  SerialPort& used = call.trace.empty() ? *serial : static_cast<SerialPort&>(traced);
  SerialLine line(used, clock, port.number, DisplayName(port));
  const ExitStatus status =
      run({line, call.files, call.terminal, LocalNow, call.isQuick ? Speed::Quick : Speed::Prescribed, call.trace});
  if (call.trace.empty() || trace.flush()) return status;
  return Fail(call.terminal, call.trace + ": the trace could not be written", status == Done ? Failed : status);
}

bool LoadFileOrPort(Call& call, const std::string& fileOrPort, RadioImage& image) {
  if (!IsPort(fileOrPort)) {
    if (!LoadForCommand(call.files, fileOrPort, image, call.terminal)) return false;
    RadioImage shown = image;
    static_cast<void>(ValuesForCommand(fileOrPort, PointTexts(), shown, call.terminal)); // for its messages
    return true;
  }
  call.port = fileOrPort;
  const auto read = [&](const RadioCommand& radio) {
    const bool isRead = ReadForCommand(radio, image);
    if (IsEnding()) Fail(call.terminal, radio.line.PortName() + ": interrupted. Nothing was compared.");
    return isRead ? Done : Failed;
  };
  return WithRadio(call, read) == Done;
}

ExitStatus ListPorts(Call& call) {
  const MachinePorts ports(call.files);
  const std::unique_ptr<SerialPort> serial = MakeSerialPort([&](int number) { return ports.DeviceOf(number); });
  return RunPorts(
      *serial, [&](int number) { return ports.DeviceOf(number).path; }, call.json, call.terminal);
}

} // namespace mr4500x
