// random_walk [SECONDS [SEED]]: a user who does anything to the window: menu commands, keys, clicks, drags, drops, the
// clipboard of any other program, and any answer to a dialog. Whatever happens, the program must not crash or hang.
// It keeps to a folder of its own, whose file "actions" has the last actions, and which stays after a failure.
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
constexpr int MostLevels = 6;                  // of dialogs over dialogs

// What another program offers, who may hang for a while or be gone when it is asked for it.
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
        image = RandomImage(m_random); // as no program writes it
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
      m_planned.reset(); // what is left would act on the next window
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
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const dialog = QApplication::activeModalWidget();
    if (auto* const files = qobject_cast<QFileDialog*>(dialog)) KeepIn(*files);
    QWidget* const window = popup != nullptr ? popup : dialog != nullptr ? dialog : AnyWindow();
    if (window == nullptr) return;
    const bool isDeep = m_level > MostLevels;
    if (dialog != nullptr && popup == nullptr && (isDeep || Any(6) == 0)) return Answer(*dialog);
    switch (Any(12)) {
    case 0:
    case 1:
      return dialog == nullptr ? Command() : Key(*window);
    case 2:
    case 3:
    case 4:
      return Key(*window);
    case 5:
    case 6:
    case 7:
      return Click(*window);
    case 8:
      return Drag(*window);
    case 9:
      return PutOnClipboard();
    case 10:
      return Any(2) == 0 ? Wheel(*window) : Drop(*window);
    default:
      return Rare(*window);
    }
  }

  QWidget* AnyWindow() {
    QWidgetList shown = QApplication::topLevelWidgets();
    erase_if(shown, [](const QWidget* window) { return !window->isVisible(); });
    return shown.isEmpty() ? nullptr : AnyOf(shown);
  }
  QWidget* AnyControl(QWidget& window) {
    QWidgetList controls = window.findChildren<QWidget*>();
    erase_if(controls, [](const QWidget* control) { return !control->isVisible(); });
    return controls.isEmpty() ? &window : AnyOf(controls);
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
  void Command() {
    QList<QAction*> actions = m_program->Window().findChildren<QAction*>();
    erase_if(actions, [](const QAction* action) { return !action->isEnabled() || action->menu() != nullptr; });
    QAction* const action = AnyOf(actions);
    static const QRegularExpression transfer(QStringLiteral("(Program|Embed)(Read|Write)|^(Read|Write)$"));
    if (transfer.match(action->objectName()).hasMatch() && Any(8) != 0) return; // takes long
    Log("command", action, action->text());
    QMetaObject::invokeMethod(action, "trigger", Qt::QueuedConnection);
  }

  void Key(QWidget& window) {
    static constexpr Qt::Key keys[] = {Qt::Key_Tab,    Qt::Key_Backtab,  Qt::Key_Return, Qt::Key_Enter,  Qt::Key_Escape,
                                       Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left,   Qt::Key_Right,  Qt::Key_PageUp,
                                       Qt::Key_Home,   Qt::Key_End,      Qt::Key_Menu,   Qt::Key_Delete, Qt::Key_F2,
                                       Qt::Key_Insert, Qt::Key_PageDown, Qt::Key_Space,  Qt::Key_F5,     Qt::Key_F6,
                                       Qt::Key_F10,    Qt::Key_F9,       Qt::Key_Period, Qt::Key_Comma,  Qt::Key_Minus,
                                       Qt::Key_Alt,    Qt::Key_Backspace};
    static constexpr Qt::KeyboardModifier modifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                                         Qt::ControlModifier, Qt::AltModifier};
    const int letter = Any(3);
    const auto key = letter == 0   ? AnyOf(keys)
                     : letter == 1 ? static_cast<Qt::Key>(Qt::Key_0 + Any(10))
                                   : static_cast<Qt::Key>(Qt::Key_A + Any(26));
    const Qt::KeyboardModifiers modifier = AnyOf(modifiers) | (Any(8) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
    QWidget* const focus = QApplication::focusWidget();
    QWidget* const on = focus != nullptr && window.isAncestorOf(focus) ? focus : &window;
    Log("key", on, QKeySequence(modifier | key).toString());
    const QPointer<QWindow> handle = on->window()->windowHandle(); // What's This closes by the press
    if (handle != nullptr) QTest::keyPress(handle, key, modifier);
    if (handle != nullptr) QTest::keyRelease(handle, key, modifier);
  }

  struct Spot {
    QPointer<QWindow> window;
    QPoint at;
  };
  Spot AnySpot(QWidget& window, const char* action) {
    QWidget* const control = AnyControl(window);
    const QPoint at(Any(control->width() + 1), Any(control->height() + 1));
    Log(action, control, QStringLiteral("%1,%2").arg(at.x()).arg(at.y()));
    return {window.windowHandle(), control->mapTo(control->window(), at)};
  }
  void Click(QWidget& window) {
    static constexpr Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton,
                                                  Qt::MiddleButton};
    static constexpr Qt::KeyboardModifier modifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                                         Qt::ControlModifier};
    const auto [handle, at] = AnySpot(window, "click");
    const Qt::MouseButton button = AnyOf(buttons);
    const Qt::KeyboardModifier modifier = AnyOf(modifiers);
    for (int count = Any(4) == 0 ? 2 : 1; count > 0 && handle != nullptr; --count)
      QTest::mouseClick(handle, button, modifier, at);
  }
  void Drag(QWidget& window) {
    const auto [handle, from] = AnySpot(window, "drag from");
    const QPoint to = AnySpot(window, "to").at;
    if (handle != nullptr) QTest::mousePress(handle, Qt::LeftButton, {}, from);
    for (const QPoint at : {(from + to) / 2, to})
      if (handle != nullptr) QTest::mouseMove(handle, at);
    if (handle != nullptr) QTest::mouseRelease(handle, Qt::LeftButton, {}, to);
  }
  void Wheel(QWidget& window) {
    const auto [handle, at] = AnySpot(window, "wheel");
    if (handle == nullptr) return;
    QWheelEvent event(at, handle->mapToGlobal(at), {}, {0, Any(2) == 0 ? 120 : -120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(handle, &event);
  }

  QMimeData* AnyData() {
    static const QStringList formats[] = {{},
                                          {"text/plain"},
                                          {"text/html"},
                                          {"image/png"},
                                          {"text/uri-list"},
                                          {"text/html", "text/plain"},
                                          {"application/x-qrichtext"}};
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
    if (Any(2) == 0) return new OwnersData(AnyOf(formats), Any(2) == 0, Any(8) == 0 ? 40 : 0);
    auto* const data = new QMimeData;
    if (Any(3) == 0)
      data->setUrls({QUrl::fromLocalFile(AnyFile())});
    else if (Any(6) == 0)
      data->setData(QStringLiteral("text/csv"), AnyOf(texts).toUtf8());
    else
      data->setText(AnyOf(texts));
    return data;
  }
  void PutOnClipboard() {
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
    const int action = Any(60);
    if (action < 20) {
      Log("compose", QApplication::focusWidget());
      QInputMethodEvent composed;
      composed.setCommitString(QString::fromUtf16(u"9\u00E4\U0001F600"));
      if (QApplication::focusWidget() != nullptr) QCoreApplication::sendEvent(QApplication::focusWidget(), &composed);
    } else if (action < 40) {
      Log("resize", &window);
      if (window.isWindow() && !window.isFullScreen()) window.resize(100 + Any(1500), 100 + Any(900));
    } else if (action < 50) {
      Log("hide and show", &window);
      m_program->Window().showMinimized();
      m_program->Window().showNormal();
    } else if (action < 54) {
      Log("remove", nullptr);
      std::filesystem::remove(Path("new.K4X"));
      std::filesystem::remove_all(Path("state"));
    } else if (action < 57) {
      Log("close", &m_program->Window());
      m_program->Window().close();
    } else if (action < 59) {
      Log("quit", nullptr); // as the session's end
      QEvent quit(QEvent::Quit);
      QCoreApplication::sendEvent(qApp, &quit);
    } else {
      Log("signal", nullptr);
      m_program->Window().EndBySignal(SIGTERM);
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

// Shows no page of the world's.
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
