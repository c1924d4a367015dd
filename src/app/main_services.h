#pragma once

#include "clock.h"
#include "desktop.h"
#include "file_system.h"
#include "message_view.h"
#include "open_windows.h"
#include "printer.h"
#include "serial_port.h"

#include <functional>
#include <string>

namespace mr4500x {

class PracticeRadio;
class UserInput;

// The services of the machine and the desktop that the main window uses. Tests replace them.
struct MainServices {
  MessageView& messages;
  ProgressView& progress;
  FileDialogs& dialogs;
  FontDialog& fonts;
  HelpViewer& help;
  Printers& printers;
  FileSystem& files;
  SerialPort& port;
  Clock& clock;     // for transfers
  UserInput& input; // held during transfers
  PracticeRadio& practice;
  std::string settingsFile;
  std::string folderForFiles; // initial folder of the file dialogs
  std::string keptFolder;     // for copies of unsaved work
  std::function<LocalTime()> now;
  std::function<std::string(int)> deviceOfPort;                // device path of a port; empty for none
  std::function<std::string(const std::string&)> userOfDevice; // a program that has it open; empty for none
  std::function<void(const WindowGeometry&)> storeGeometry;
  std::function<void(const std::string&)> openLink; // in the user's browser
};

} // namespace mr4500x
