// random_walk [SECONDS [SEED]]: random input to the window: menu commands, keys, clicks, drags, drops, clipboard
// contents, and answers to dialogs. The program must not crash or hang. All files are in a separate folder, which is
// kept after a failure. Its file "actions" has the last actions.
#include "program.h"
#include "random_image.h"

#include <QTest>
#include <QtWidgets>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>

#include <sys/stat.h>
#include <unistd.h>

namespace mr4500x {
namespace {

constexpr unsigned LongestActionSeconds = 120; // a transfer may be one
constexpr int MostLevels = 6;                  // nested dialogs

// Clipboard data of another program, which may hang or have ended when the data is requested.
class OwnersData final : public QMimeData {
public:
  OwnersData(QStringList formats, bool isGone, unsigned long hang)
      : m_formats(std::move(formats)), m_isGone(isGone), m_hang(hang) {}
  QStringList formats() const override {
    QThread::msleep(m_hang);
    return m_isGone && ++m_asked > 1 ? QStringList() : m_formats;
  }

protected:
  QVariant retrieveData(const QString& format, QMetaType /*type*/) const override {
    QThread::msleep(m_hang);
    return m_isGone ? QVariant() : QVariant(format.toUtf8());
  }

private:
  QStringList m_formats;
  bool m_isGone;
  unsigned long m_hang;
  mutable int m_asked = 0;
};

class Walker {
public:
  Walker(QString folder, unsigned seed) : m_folder(std::move(folder)), m_random(seed), m_log(Path("actions")) {
    FileSystem& files = MachineFiles();
    for (const char* const name : {"a.K4X", "b.K4Y", "any.K4X"}) {
      RadioImage image;
      if (name[1] == 'n')
        image = RandomImage(m_random); // one that no program would write
      else
        ResetToDefaults(image, {2004, 11, 4, 9, 5, 7});
      static_cast<void>(SaveDataFile(files, Path(name), image));
    }
    std::filesystem::copy(Path("a.K4X"), Path("cut.K4X"));
    std::filesystem::resize_file(Path("cut.K4X"), 300);
    std::ofstream(Path("list.csv")) << "Rx Freq (MHz);Tx Freq (MHz)\n446,00625;446,00625\n;\n450;x\n";
    std::filesystem::create_directory(Path("folder.K4X"));
    std::filesystem::create_symlink(Path("loop.K4X"), Path("loop.K4X"));
    mkfifo(Path("pipe.K4X").c_str(), 0600);
  }

  void WalkUntil(QDeadlineTimer end) {
    while (!end.hasExpired()) {
      Program program;
      m_program = &program;
      program.Window().show();
      program.Window().activateWindow();
      QTimer::singleShot(0, &program.Window(), [&] {
        if (!program.Window().OpenLeftWork()) program.Window().OpenGiven(AnyFile().toStdString());
      });
      m_planned = std::make_unique<QObject>();
      PlanAction(end);
      QApplication::exec();
      m_planned.reset(); // the remaining actions would act on the next window
    }
    std::cout << m_actions << " actions\n";
  }

private:
  [[nodiscard]] std::string Path(const QString& name) const { return (m_folder + '/' + name).toStdString(); }
  [[nodiscard]] int Any(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }
  template<class List>
  [[nodiscard]] const auto& AnyOf(const List& list) {
    return list[static_cast<decltype(std::size(list))>(Any(static_cast<int>(std::size(list))))];
  }
  [[nodiscard]] QString AnyFile() {
    static constexpr const char* names[] = {"a.K4X",    "b.K4Y",      "any.K4X",  "cut.K4X",  "new.K4X",
                                            "list.csv", "folder.K4X", "loop.K4X", "pipe.K4X", "new.pdf"};
    return m_folder + '/' + QLatin1String(AnyOf(names));
  }
  void Log(const char* action, const QObject* on, const QString& with = {}) {
    m_log << ++m_actions << ' ' << action << ' ' << (on != nullptr ? on->metaObject()->className() : "") << ' '
          << (on != nullptr ? on->objectName().toStdString() : "") << ' ' << with.toStdString() << std::endl;
  }

  // One action in each event loop: the next one in the loop of a dialog that an action opens, else after the action.
  void PlanAction(QDeadlineTimer end) {
    if (end.hasExpired()) return QCoreApplication::exit();
    QTimer::singleShot(Any(20) == 0 ? 30 : 0, m_planned.get(), [this, end] {
      PlanAction(end);
      const int level = QThread::currentThread()->loopLevel();
      if (level <= m_level) return; // an action is processing events
      const QScopedValueRollback acting(m_level, level);
      alarm(LongestActionSeconds);
      Act();
    });
  }

  void Act() {
    using Action = void (Walker::*)(QWidget&);
    static constexpr Action actions[] = {&Walker::Command, &Walker::Command, &Walker::Key,
                                         &Walker::Key,     &Walker::Key,     &Walker::Point,
                                         &Walker::Point,   &Walker::Point,   &Walker::PutOnClipboard,
                                         &Walker::Point,   &Walker::Drop,    &Walker::Rare};
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const dialog = QApplication::activeModalWidget();
    if (auto* const files = qobject_cast<QFileDialog*>(dialog)) KeepIn(*files);
    QWidget* const window = popup != nullptr    ? popup
                            : dialog != nullptr ? dialog
                                                : AnyShown(QApplication::topLevelWidgets());
    if (window == nullptr) return;
    if (dialog != nullptr && popup == nullptr && (m_level > MostLevels || Any(6) == 0)) return Answer(*dialog);
    (this->*AnyOf(actions))(*window);
  }

  QWidget* AnyShown(QWidgetList widgets) {
    erase_if(widgets, [](const QWidget* widget) { return !widget->isVisible(); });
    return widgets.isEmpty() ? nullptr : AnyOf(widgets);
  }

  // Nothing outside the folder is touched, and nothing in it renamed or deleted, with whatever keys.
  void KeepIn(QFileDialog& dialog) {
    dialog.setOption(QFileDialog::ReadOnly);
    if (dialog.directory().absolutePath() != m_folder) dialog.setDirectory(m_folder);
    auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (name != nullptr && (Any(3) == 0 || name->text().contains('/'))) name->setText(AnyFile());
  }

  void Answer(QWidget& dialog) {
    const QList<QAbstractButton*> buttons = dialog.findChildren<QAbstractButton*>();
    if (buttons.isEmpty() || Any(4) == 0) {
      Log("close", &dialog);
      return static_cast<void>(dialog.close());
    }
    QAbstractButton* const button = AnyOf(buttons);
    Log("press", button, button->text());
    if (button->isVisible()) button->click();
  }

  // Queued, so that further actions come while a transfer runs.
  void Command(QWidget& window) {
    if (QApplication::activeModalWidget() != nullptr) return Key(window);
    QList<QAction*> actions = m_program->Window().findChildren<QAction*>();
    erase_if(actions, [](const QAction* action) { return !action->isEnabled() || action->menu() != nullptr; });
    QAction* const action = AnyOf(actions);
    static const QRegularExpression transfer(QStringLiteral("(Program|Embed)(Read|Write)|^(Read|Write)$"));
    if (transfer.match(action->objectName()).hasMatch() && Any(8) != 0) return; // takes long
    Log("command", action, action->text());
    QMetaObject::invokeMethod(action, "trigger", Qt::QueuedConnection);
  }

  void Key(QWidget& window) {
    static const QStringList keys =
        QStringLiteral("Tab Backtab Return Enter Esc Up Down Left Right PgUp PgDown Home End Menu Del Ins Space "
                       "Backspace F2 F5 F6 F9 F10 . , -")
            .split(' ');
    static constexpr const char* modifiers[] = {"", "", "Shift+", "Ctrl+", "Alt+", "Ctrl+Shift+", "Alt+Shift+"};
    const int kind = Any(3);
    const QString key = kind == 0 ? AnyOf(keys) : kind == 1 ? QString::number(Any(10)) : QString(QChar('A' + Any(26)));
    const QKeySequence pressed(AnyOf(modifiers) + key);
    QWidget* const focus = QApplication::focusWidget();
    QWidget* const on = focus != nullptr && window.isAncestorOf(focus) ? focus : &window;
    Log("key", on, pressed.toString());
    const QPointer<QWindow> handle = on->window()->windowHandle(); // What's This closes by the press
    if (handle != nullptr) QTest::keyPress(handle, pressed[0].key(), pressed[0].keyboardModifiers());
    if (handle != nullptr) QTest::keyRelease(handle, pressed[0].key(), pressed[0].keyboardModifiers());
  }

  struct Spot {
    QPointer<QWindow> window;
    QPoint at;
  };
  Spot AnySpot(QWidget& window, const char* action) {
    QWidget* const shown = AnyShown(window.findChildren<QWidget*>());
    QWidget& control = shown != nullptr ? *shown : window;
    const QPoint at(Any(control.width() + 1), Any(control.height() + 1));
    Log(action, &control, QStringLiteral("%1,%2").arg(at.x()).arg(at.y()));
    return {window.windowHandle(), control.mapTo(control.window(), at)};
  }
  // Clicks once or twice, drags or turns the wheel. Each of it can end the window.
  void Point(QWidget& window) {
    static constexpr Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton,
                                                  Qt::MiddleButton};
    static constexpr Qt::KeyboardModifier modifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                                         Qt::ControlModifier};
    const int kind = Any(12);
    const auto [handle, at] = AnySpot(window, kind == 0 ? "wheel" : kind < 4 ? "drag from" : "click");
    const Qt::MouseButton button = kind < 4 ? Qt::LeftButton : AnyOf(buttons);
    const Qt::KeyboardModifier modifier = AnyOf(modifiers);
    if (handle == nullptr) return;
    if (kind == 0) {
      const QPoint turned(0, Any(2) == 0 ? 120 : -120);
      QWheelEvent event(at, handle->mapToGlobal(at), {}, turned, {}, {}, Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(handle, &event);
    } else if (kind < 4) {
      const QPoint to = AnySpot(window, "to").at;
      QTest::mousePress(handle, button, {}, at);
      for (const QPoint by : {(at + to) / 2, to})
        if (handle != nullptr) QTest::mouseMove(handle, by);
      if (handle != nullptr) QTest::mouseRelease(handle, button, {}, to);
    } else {
      for (int count = kind < 6 ? 2 : 1; count > 0 && handle != nullptr; --count)
        QTest::mouseClick(handle, button, modifier, at);
    }
  }

  QMimeData* AnyData() {
    static constexpr const char* formats[] = {
        "", "text/plain", "text/html", "image/png", "text/uri-list", "text/html text/plain", "application/x-qrichtext"};
    static const QString texts[] = {QString(),
                                    "4",
                                    "446.00625",
                                    "12\t13\n14;15",
                                    "OFF",
                                    QString(200'000, '9'),
                                    QString::fromUtf16(u"\u2029\xD800\uFEFF\U0001F600"),
                                    QString(130, QChar(0)),
                                    "Rx Freq (MHz)\tTx Freq (MHz)\n446.1\t446.2\n",
                                    "<b>x</b>"};
    if (Any(2) == 0)
      return new OwnersData(QString(AnyOf(formats)).split(' ', Qt::SkipEmptyParts), Any(2) == 0, Any(8) == 0 ? 40 : 0);
    auto* const data = new QMimeData;
    if (Any(3) == 0)
      data->setUrls({QUrl::fromLocalFile(AnyFile())});
    else
      data->setData(Any(6) == 0 ? "text/csv" : "text/plain", AnyOf(texts).toUtf8());
    return data;
  }
  void PutOnClipboard(QWidget& /*window*/) {
    QMimeData* const data = AnyData();
    Log("clipboard", data, data->formats().join(' '));
    if (Any(8) == 0) QGuiApplication::clipboard()->clear();
    const bool isSelection = QGuiApplication::clipboard()->supportsSelection() && Any(8) == 0;
    QGuiApplication::clipboard()->setMimeData(data, isSelection ? QClipboard::Selection : QClipboard::Clipboard);
  }
  void Drop(QWidget& window) {
    const auto [handle, at] = AnySpot(window, "drop");
    const std::unique_ptr<QMimeData> data(AnyData());
    QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, data.get(), Qt::LeftButton, {});
    if (handle != nullptr) QCoreApplication::sendEvent(handle, &enter);
    QDropEvent drop(at, Qt::CopyAction | Qt::MoveAction, data.get(), Qt::LeftButton, {});
    if (handle != nullptr && enter.isAccepted()) QCoreApplication::sendEvent(handle, &drop);
  }

  void Rare(QWidget& window) {
    static constexpr const char* actions[] = {"compose",       "compose",       "compose", "compose",
                                              "resize",        "resize",        "resize",  "resize",
                                              "hide and show", "hide and show", "end"};
    static constexpr const char* ends[] = {"remove", "remove", "remove", "close", "close", "quit", "signal"};
    FrmMain& main = m_program->Window();
    std::string action = AnyOf(actions);
    if (action == "end") action = Any(2) == 0 ? AnyOf(ends) : "";
    Log(action.c_str(), &window);
    if (action == "compose") {
      QInputMethodEvent composed;
      composed.setCommitString(QString::fromUtf16(u"9\u00E4\U0001F600"));
      if (QApplication::focusWidget() != nullptr) QCoreApplication::sendEvent(QApplication::focusWidget(), &composed);
    } else if (action == "resize") {
      if (window.isWindow() && !window.isFullScreen()) window.resize(100 + Any(1500), 100 + Any(900));
    } else if (action == "hide and show") {
      main.showMinimized();
      main.showNormal();
    } else if (action == "remove") {
      std::error_code ignored; // a copy may be written there at the same moment
      std::filesystem::remove(Path("new.K4X"), ignored);
      std::filesystem::remove_all(Path("state"), ignored);
    } else if (action == "close") {
      main.close();
    } else if (action == "quit") { // like the end of the session
      QEvent quit(QEvent::Quit);
      QCoreApplication::sendEvent(qApp, &quit);
    } else if (action == "signal") {
      main.EndBySignal(SIGTERM);
    }
  }

  QString m_folder;
  std::mt19937 m_random;
  std::ofstream m_log;
  std::unique_ptr<QObject> m_planned; // the context of the next action
  Program* m_program = nullptr;
  int m_level = 0;
  int m_actions = 0;
};

// Opens no page on the internet.
class NoBrowser final : public QObject {
  Q_OBJECT
public slots:
  void Open(const QUrl& /*page*/) {}
};

void Walk(int seconds, unsigned seed, QTemporaryDir& folder) {
  QProcess radio;
  radio.start(LR7200_SIMULATOR, {"--memory", folder.filePath("memory")});
  while (!radio.canReadLine() && radio.waitForReadyRead()) {
  }
  std::ofstream((QCoreApplication::applicationDirPath() + "/MR4500X.ini").toStdString())
      << "[Comm Port]\nTrace=" << folder.filePath("trace").toStdString()
      << "\n[Port Devices]\nCOM2=/dev/null\nCOM1=" << radio.readLine().toStdString();
  NoBrowser browser;
  static constexpr const char* schemes[] = {"http", "https", "file", "mailto"};
  for (const char* const scheme : schemes)
    QDesktopServices::setUrlHandler(QLatin1String(scheme), &browser, "Open");
  Walker(folder.path(), seed).WalkUntil(QDeadlineTimer(std::chrono::seconds(seconds)));
  for (const char* const scheme : schemes)
    QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
  radio.kill();
  radio.waitForFinished();
}

} // namespace
} // namespace mr4500x

#include "random_walk.moc"

int main(int argc, char** argv) {
  QTemporaryDir folder;
  for (const char* const variable : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
    qputenv(variable, folder.filePath(variable[0] == 'X' ? "state" : ".").toUtf8());
  qputenv("QT_QPA_PLATFORM", qgetenv("WALK_PLATFORM").isEmpty() ? "offscreen" : qgetenv("WALK_PLATFORM"));
  qputenv("QT_LOGGING_RULES", "*.warning=false"); // about what the platform can't do
  QApplication application(argc, argv);
  QApplication::setStyle("Fusion");
  QDir::setCurrent(folder.path());
  const int seconds = argc > 1 ? QByteArray(argv[1]).toInt() : 60;
  const unsigned seed = argc > 2 ? QByteArray(argv[2]).toUInt() : std::random_device()();
  std::cout << "random_walk " << seconds << ' ' << seed << " in " << folder.path().toStdString() << std::endl;
  folder.setAutoRemove(false); // unless it ends well
  mr4500x::Walk(seconds, seed, folder);
  folder.setAutoRemove(true);
}
