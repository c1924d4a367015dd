// Takes a window through the steps of a table, as its user does, and compares the windows that are then shown with a
// file. MR4500X_WRITE_WINDOWS=1 in the environment writes the files instead: read what has changed before you commit
// it.
#pragma once

#include "window_description.h"

#include <QAction>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace mr4500x {

// The rows "NAME: STEP; STEP" and "NAME (FROM): STEP; STEP" of a table. A state that comes from another one begins with
// its steps, and its file has only the difference. "look" also describes the windows between two steps.
class WindowStates {
public:
  using Word = std::function<bool(const QString& rest)>; // false if the step has to wait
  std::map<QString, Word> words;                         // the first words of the steps, in addition to those below
  std::function<QWidget*()> main;
  std::function<QStringList()> happened = [] { return QStringList(); };
  std::vector<std::pair<QRegularExpression, QString>> replaced; // what differs from run to run
  std::function<bool()> isLate = [] { return false; };          // a radio was, on a busy machine: nothing is compared

  static std::vector<std::string> NamesIn(const char* table) {
    std::vector<std::string> names;
    for (const QString& row : Rows(table))
      names.push_back(row.section(QRegularExpression("[ :]"), 0, 0).toStdString());
    return names;
  }

  // False if a radio was late.
  bool Check(const char* table, const std::string& folder, const std::string& name) {
    AddSteps(Rows(table), QString::fromStdString(name));
    m_clock.start();
    Next();
    while (!m_isAtEnd)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (m_wasLate) return false;
    if (!m_looks.isEmpty()) Look(m_after);
    const QStringList found = !m_looks.isEmpty()   ? m_looks
                              : m_before.isEmpty() ? m_after
                                                   : ChangedLines(m_before, m_after);
    const std::string path = folder + name + ".txt", text = (found.join('\n') + '\n').toStdString();
    if (qEnvironmentVariableIsSet("MR4500X_WRITE_WINDOWS")) std::ofstream(path) << text;
    std::ifstream file(path);
    const std::string expected{std::istreambuf_iterator<char>(file), {}};
    if (expected == text) return true;
    const QStringList lines = QString::fromStdString(expected).chopped(1).split('\n');
    ADD_FAILURE() << "not as in " << path << ":\n" << ChangedLines(lines, found).join('\n').toStdString();
    return true;
  }
  // Takes the description at a later moment instead of at the end, for instance during a transfer.
  void CaptureLater() { m_isCapturing = true; }
  void Capture() { m_captured = Describe(); }
  template<class Object>
  [[nodiscard]] Object* Find(const QString& name) const {
    QObjectList from{QApplication::activePopupWidget(), QApplication::activeModalWidget(), main()};
    for (QWidget* const window : QApplication::topLevelWidgets())
      if (window->isVisible()) from.append(window);
    for (const QObject* const each : from)
      for (Object* const object : each == nullptr ? QList<Object*>() : each->findChildren<Object*>())
        if (Is(*object, name)) return object;
    return nullptr;
  }

private:
  static bool Is(const QObject& object, const QString& name) {
    return object.objectName() == name || object.property("text").toString().remove('&') == name ||
           object.metaObject()->className() == name;
  }
  static QStringList Rows(const char* table) {
    QFile file(table);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << table;
    return QString(file.readAll()).split('\n').filter(QRegularExpression("^[a-z]"));
  }
  void AddSteps(const QStringList& rows, const QString& name) {
    const QString row = rows.filter(QRegularExpression('^' + name + "[ :]")).value(0);
    const QString from = row.section(':', 0, 0).section('(', 1).chopped(row.section(':', 0, 0).contains('(') ? 1 : 0);
    if (!from.isEmpty()) AddSteps(rows, from);
    m_own = from.isEmpty() ? -1 : m_steps.size();
    m_looked = std::max(m_own, qsizetype(0));
    m_steps += row.section(':', 1).trimmed().split("; ");
  }
  // A step may open a dialog and return only when that is closed. The next step is then taken in the dialog's loop.
  void Next() {
    QCoreApplication::processEvents(); // finishes what the last step has begun
    if (m_next == m_own && m_before.isEmpty()) m_before = Describe();
    const bool isLast = m_next == m_steps.size(), isOver = m_clock.elapsed() > 60'000;
    if (isOver) ADD_FAILURE() << "step " << m_next << ":\n" << Describe().join('\n').toStdString();
    m_wasLate = isLate();
    if (isOver || m_wasLate || (isLast && (!m_isCapturing || !m_captured.isEmpty()))) {
      m_after = m_captured.isEmpty() ? Describe() : m_captured;
      return CloseDialogs();
    }
    QTimer::singleShot(1, &m_user, [this] { Next(); });
    if (isLast) return;
    if (m_steps[m_next] == "look") return Look(Describe());
    const QString step = m_steps[m_next++].trimmed(), word = step.section(' ', 0, 0), rest = step.section(' ', 1);
    ++m_running;
    if (!(words.contains(word) ? words[word](rest) : Do(word, rest))) --m_next;
    --m_running;
  }
  void Look(const QStringList& now) {
    m_looks += "after " + m_steps.mid(m_looked, m_next - m_looked).join("; ") + ':';
    m_looks += ChangedLines(m_before, now);
    m_before = now;
    m_looked = ++m_next;
  }
  void CloseDialogs() {
    QWidget *const menu = QApplication::activePopupWidget(), *const dialog = QApplication::activeModalWidget();
    m_isAtEnd = m_running == 0 && menu == nullptr && dialog == nullptr;
    if (m_isAtEnd) return;
    QTimer::singleShot(1, &m_user, [this] { CloseDialogs(); });
    if (menu != nullptr) return static_cast<void>(menu->close());
    if (dialog != nullptr) qobject_cast<QDialog*>(dialog)->reject();
  }
  bool Do(const QString& word, const QString& rest) {
    if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        menu != nullptr && word == "choose") {
      for (QAction* const action : menu->actions())
        if (Is(*action, rest)) return menu->setActiveAction(action), QTest::keyClick(menu, Qt::Key_Return), true;
    }
    if (word == "choose") {
      auto* const action = Find<QAction>(rest);
      if (action != nullptr) action->trigger();
      return action != nullptr;
    }
    QWidget* const focus = QApplication::focusWidget();
    if (focus == nullptr && (word == "key" || word == "type")) { // a window manager would activate it
      main()->activateWindow();
      return false;
    }
    if (word == "key") {
      const QKeyCombination keys = QKeySequence(rest)[0];
      QTest::keyClick(focus, keys.key(), keys.keyboardModifiers());
      return true;
    }
    if (word == "type") return QTest::keyClicks(focus, rest), true;
    if (word == "copy")
      return QApplication::clipboard()->setText(QString(rest).replace("\\t", "\t").replace("\\n", "\n")), true;
    auto* const widget = Find<QWidget>(rest.section(' ', 0, 0));
    if (widget == nullptr || !widget->isVisible()) return false;
    if (word == "click" || word == "await") { // a text, or that it can be used
      const QString text = widget->property("text").toString(), expected = rest.section(' ', 1);
      if (!widget->isEnabled() || (word == "await" && !text.contains(expected))) return false;
    }
    if (word == "menu") { // by its key
      QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
      QCoreApplication::sendEvent(widget, &event);
    }
    if (word == "focus") widget->setFocus();
    QEvent pointer(word == "point" ? QEvent::Enter : QEvent::Leave);
    if (word == "point" || word == "leave") QCoreApplication::sendEvent(widget, &pointer);
    if (word == "click") QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(9, widget->height() / 2));
    if (auto* const table = qobject_cast<QTableView*>(widget); QStringList({"cell", "label", "drag"}).contains(word)) {
      const int row = rest.section(' ', 1, 1).toInt() - 1, column = std::max(rest.section(' ', 2).toInt() - 1, 0);
      const QPoint place = table->visualRect(table->model()->index(row, column)).center();
      const bool isLabel = word != "cell";
      QTest::mouseEvent(word == "drag"          ? QTest::MouseMove
                        : rest.contains("held") ? QTest::MousePress
                                                : QTest::MouseClick,
                        isLabel ? table->verticalHeader()->viewport() : table->viewport(), Qt::LeftButton,
                        rest.endsWith("Shift")  ? Qt::ShiftModifier
                        : rest.endsWith("Ctrl") ? Qt::ControlModifier
                                                : Qt::NoModifier,
                        isLabel ? QPoint(9, row < 0 ? -9 : place.y()) : place);
    }
    return QStringList({"wait", "await", "menu", "focus", "point", "leave", "click", "cell", "label", "drag"})
        .contains(word);
  }
  QStringList Describe() const {
    QString text = (DescribeWindows(main()) + happened()).join('\n');
    for (const auto& [changing, by] : replaced)
      text.replace(changing, by);
    return text.split('\n');
  }

  QStringList m_steps, m_before, m_after, m_captured, m_looks;
  qsizetype m_next = 0, m_own = -1, m_looked = 0;
  int m_running = 0; // steps
  bool m_isAtEnd = false, m_wasLate = false, m_isCapturing = false;
  QElapsedTimer m_clock;
  QObject m_user;
};

} // namespace mr4500x
