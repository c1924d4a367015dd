// MR4500X [FILE]: shows the splash until the main window has loaded, but at least FrmSplash::LeastTime.
#include "end_signals.h"
#include "frm_splash.h"
#include "machine.h"
#include "open_windows.h"
#include "program.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <QWindow>

#include <functional>
#include <iostream>
#include <string_view>
#include <utility>

namespace {

using namespace mr4500x;

constexpr char Usage[] = "usage: mr4500x [FILE]\n"
                         "Opens the window, with the data file FILE (.K4X or .K4Y) in it.\n"
                         "mr4500x-cli does the same jobs without a window.\n";

void StayUntil(Clock::Moment moment, Clock& clock) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(moment - clock.Now());
  if (left.count() <= 0) return;
  QEventLoop loop;
  QTimer::singleShot(left, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

// Runs the work once the window is exposed: by then the window manager has placed it, and dialogs are centred on it.
class AtFirstExpose final : public QObject {
public:
  AtFirstExpose(QWindow& window, std::function<void()> work) : QObject(&window), m_work(std::move(work)) {
    window.installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Expose && m_work) QTimer::singleShot(0, this, std::exchange(m_work, {}));
    return QObject::eventFilter(watched, event);
  }

private:
  std::function<void()> m_work;
};

} // namespace

int main(int argc, char** argv) {
  PrepareProcess();
  const std::string_view first = argc == 2 ? argv[1] : "";
  if (first == "--help" || first == "-h") { // needs no display, so it comes before Qt
    std::cout << Usage;
    return 0;
  }
  ScaleByWholeFactors();
  const QApplication application(argc, argv);
  QApplication::setDesktopFileName(QStringLiteral("mr4500x")); // for the desktop's menu entry and icon
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() > 2 || arguments.value(1).startsWith(QLatin1Char('-'))) {
    std::cerr << Usage;
    return 2;
  }
  UseProgramStyle();
  FrmSplash splash;
  splash.ShowPainted();
  SteadyClock clock;
  const Clock::Moment shown = clock.Now();
  Program program;
  StayUntil(shown + FrmSplash::LeastTime, clock);
  program.Window().winId(); // makes the window's handle
  new AtFirstExpose(*program.Window().windowHandle(), [&] {
    if (program.Window().OpenLeftWork() || arguments.size() < 2) return;
    program.Window().OpenArgument(arguments[1]);
  });
  program.Window().show();
  splash.close();
  const EndSignalsHeard endSignals([&](int signal) { program.Window().EndBySignal(signal); }, NextSignal::Ends);
  return QApplication::exec();
}
