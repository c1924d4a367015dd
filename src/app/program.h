#pragma once

#include "frm_main.h"
#include "machine_files.h"
#include "machine_port.h"
#include "practice_radio.h"
#include "qt_dialogs.h"
#include "qt_help_viewer.h"
#include "qt_printers.h"
#include "qt_progress_view.h"
#include "traced_port.h"
#include "transfer_guard.h"

#include <fstream>
#include <string>

namespace mr4500x {

// The main window with the real services behind it.
class Program {
public:
  Program();

  [[nodiscard]] FrmMain& Window() { return m_frmMain; }

private:
  [[nodiscard]] PortDevice DeviceOf(int port);
  [[nodiscard]] std::string FolderForFiles();

  FileSystem& m_files;
  std::string m_folder;
  std::string m_settingsFile;
  UserInput m_input;
  EventClock m_clock;
  PracticeRadio m_practice;
  std::unique_ptr<SerialPort> m_port;
  std::ofstream m_trace; // open if the settings file names one
  TracedPort m_tracedPort;
  QtMessageView m_messages;
  QtProgressView m_progress;
  QtFileDialogs m_dialogs;
  QtFontDialog m_fonts;
  QtHelpViewer m_help;
  QtPrinters m_printers;
  FrmMain m_frmMain;
};

} // namespace mr4500x
