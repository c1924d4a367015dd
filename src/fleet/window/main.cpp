// MR4500X-fleet: the window for programming many radios from one plan.
#include "end_signals.h"
#include "frm_fleet.h"
#include "machine.h"
#include "machine_files.h"
#include "settings.h"

#include <QApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>

#include <iostream>

namespace {

// Alt with a key that no button or menu uses would type the character into a box.
class NoTextByAlt final : public QObject {
public:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const auto modifiers = static_cast<const QKeyEvent*>(event)->modifiers() & ~Qt::ShiftModifier;
    return modifiers == Qt::AltModifier && qobject_cast<const QLineEdit*>(QApplication::focusWidget()) != nullptr;
  }
};

} // namespace

int main(int argc, char** argv) {
  using namespace mr4500x;
  PrepareProcess();
  const QApplication application(argc, argv);
  NoTextByAlt noTextByAlt;
  qApp->installEventFilter(&noTextByAlt);
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/fleet.svg")));
  QApplication::setDesktopFileName(QStringLiteral("mr4500x-fleet")); // for the desktop's menu entry and icon
  if (QApplication::arguments().size() > 1) {
    std::cerr << "usage: mr4500x-fleet\nmr4500x-cli fleet does the same without a window.\n";
    return 2;
  }
  FileSystem& files = MachineFiles();
  const std::string folder = UserConfigFolder();
  FrmFleet window(files, SettingsFilePath(files, ProgramFolder(), folder),
                  QString::fromStdString(folder) + QStringLiteral("/fleet.ini"));
  window.show();
  int signal = 0;
  const auto close = [&](int number) {
    signal = number;
    window.CloseBySignal();
  };
  const EndSignalsHeard endSignals(close, NextSignal::IsReported);
  const int status = QApplication::exec();
  return signal == 0 ? status : 128 + signal;
}
