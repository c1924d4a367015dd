#include "program.h"

#include "conventions.h"
#include "file_access.h"
#include "machine.h"
#include "paths.h"
#include "port_choice.h"
#include "port_devices.h"
#include "processes.h"
#include "program_title.h"
#include "settings.h"

#include <QDesktopServices>
#include <QStandardPaths>
#include <QUrl>

namespace mr4500x {
namespace {

static_assert(HighestPort == PortCount);

void OpenLink(const std::string& page) {
  QDesktopServices::openUrl(QUrl(QString::fromStdString(page)));
}

// Beside the program, or where it was built, or on the path.
std::string SimulatorBeside(const std::string& programFolder) {
  const QString name = QStringLiteral("lr7200-simulator"), folder = QString::fromStdString(programFolder);
  const QString beside = QStandardPaths::findExecutable(name, {folder, folder + QStringLiteral("/../simulator")});
  return (beside.isEmpty() ? QStandardPaths::findExecutable(name) : beside).toStdString();
}

} // namespace

Program::Program()
    : m_files(MachineFiles()), m_folder(ProgramFolder()),
      m_settingsFile(SettingsFilePath(m_files, m_folder, UserConfigFolder())), m_clock(m_input),
      m_practice(SimulatorBeside(m_folder)), m_port(MakeSerialPort([this](int port) { return DeviceOf(port); })),
      m_trace(PathOf(TraceFile(m_files, m_settingsFile)), std::ios::app),
      m_tracedPort(*m_port, m_clock, LocalNow, m_trace), m_messages(m_input), m_progress(std::string(ProgramTitle)),
      m_help(m_messages, m_folder + "/MR4500X.hlp"),
      m_printers([this](const std::string& path, std::span<const std::uint8_t> content) {
        return ReplaceFile(m_files, path, content, Surplus::Drop);
      }),
      m_frmMain({m_messages, m_progress, m_dialogs, m_fonts, m_help, m_printers, m_files,
                 m_trace.is_open() ? static_cast<SerialPort&>(m_tracedPort) : *m_port, m_clock, m_input, m_practice,
                 m_settingsFile, FolderForFiles(), UserStateFolder() + Separator + "kept", LocalNow,
                 [this](int port) { return DeviceOf(port).path; },
                 [](const std::string& device) { return UserOfDevice(device); }, StoreWindowGeometry, OpenLink}) {}

// Looked up each time, because adapters are plugged in and out.
PortDevice Program::DeviceOf(int port) {
  if (port == m_practice.Port()) return {m_practice.Device()};
  return DeviceOfPort(port, PortDevices(m_files, m_settingsFile), MachineSerialDevices());
}

// The program's folder, or the user's documents if that is not writable.
std::string Program::FolderForFiles() {
  if (MayKeepFilesIn(m_files, m_folder)) return m_folder;
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
}

} // namespace mr4500x
