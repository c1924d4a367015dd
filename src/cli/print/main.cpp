// mr4500x-cli-print FILE OUT.pdf REPORTS: runs the print command of mr4500x-cli, so that the other commands start
// without the libraries that draw pages. mr4500x-cli has checked the arguments.
#include "machine.h"
#include "machine_files.h"
#include "print_command.h"

#include <QGuiApplication>

#include <unistd.h>

#include <iostream>
#include <string_view>

namespace {

// Keeps Qt's warnings about a missing desktop from scripts.
void DropDiagnostics(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type == QtFatalMsg) std::cerr << text.toStdString() << '\n';
}

} // namespace

int main(int argc, char** argv) {
  const auto choice = argc == 4 ? mr4500x::ParseReports(argv[3]) : std::nullopt;
  if (!choice) {
    std::cerr << "This is a part of mr4500x-cli: see mr4500x-cli print --help.\n";
    return static_cast<int>(mr4500x::ExitStatus::UnusableArguments);
  }
  mr4500x::PrepareProcess();
  qInstallMessageHandler(DropDiagnostics);
  constexpr std::string_view Platform = MR4500X_SCREENLESS_PLATFORM; // empty if the usual one needs no screen
  if (!Platform.empty()) qputenv("QT_QPA_PLATFORM", Platform.data());
  try {
    const QGuiApplication application(argc, argv);
    mr4500x::FileSystem& files = mr4500x::MachineFiles();
    mr4500x::Terminal terminal{std::cout, std::cerr, std::cin, isatty(STDIN_FILENO) != 0, isatty(STDERR_FILENO) != 0};
    return static_cast<int>(
        mr4500x::RunPrint(files, argv[1], argv[2], *choice, QLocale(), mr4500x::LocalNow(), terminal));
  } catch (const std::exception& error) { // mostly out of memory
    std::cerr << error.what() << '\n';
    return static_cast<int>(mr4500x::ExitStatus::Failed);
  }
}
