// mr4500x-cli-print FILE OUT.pdf REPORTS: runs the print command of mr4500x-cli, so that the other commands start
// without the libraries that draw pages. mr4500x-cli has checked the arguments.
#include "machine.h"
#include "machine_files.h"
#include "print_command.h"

#include <QGuiApplication>

#include <iostream>
#include <string_view>

namespace {

// Keeps Qt's warnings about a missing desktop from scripts.
void DropDiagnostics(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type == QtFatalMsg) std::cerr << text.toStdString() << '\n';
}

} // namespace

int main(int argc, char** argv) {
  using namespace mr4500x;
  return RunProgram([&](Terminal& terminal) {
    if (argc != 4) return Refuse(terminal, "This is a part of mr4500x-cli: see mr4500x-cli print --help.");
    qInstallMessageHandler(DropDiagnostics);
    constexpr std::string_view Platform = MR4500X_SCREENLESS_PLATFORM; // empty if the usual one needs no screen
    if (!Platform.empty()) qputenv("QT_QPA_PLATFORM", Platform.data());
    const QGuiApplication application(argc, argv);
    return RunPrint(MachineFiles(), argv[1], argv[2], ReportsNamed(argv[3]), QLocale(), LocalNow(), terminal);
  });
}
