// The main window: the commands of its menus and buttons, the views, the start and the end.
#include "program_fixture.h"

namespace mr4500x {
namespace {

TEST_F(ProgramTest, RunsTheCommandThatTheManualNamesForEachKey) {
  SomePorts ports;
  serialPort = &ports;
  Start();
  std::string ran;
  int actions = 0;
  for (QAction* const action : window->findChildren<QAction*>()) {
    if (action->shortcut().isEmpty() || qobject_cast<QMenu*>(action->parent()) == nullptr) continue;
    ++actions;
    QObject::connect(action, &QAction::triggered,
                     [&ran, action] { ran += action->text().remove('&').trimmed().toStdString(); });
  }
  QTimer user; // leaves the dialogs of F2 and F9
  user.callOnTimeout([] {
    if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->reject();
  });
  user.start(1);
  QFile manual(MANUAL "/menus.html");
  ASSERT_TRUE(manual.open(QIODevice::ReadOnly));
  const QRegularExpression row("<tr><td>([^<]+)</td><td>(Ctrl\\+[A-Z]|(?:Shift\\+)?F\\d+)</td>");
  for (auto rows = row.globalMatch(QString::fromUtf8(manual.readAll())); rows.hasNext(); --actions) {
    const QRegularExpressionMatch command = rows.next();
    ran.clear();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::keySequence(window.get(), QKeySequence(command.captured(2)));
    EXPECT_EQ(ran, command.captured(1).toStdString()) << command.captured(2).toStdString();
  }
  Choose("mnuHelpWhatsThis");
  EXPECT_TRUE(QWhatsThis::inWhatsThisMode());
  QWhatsThis::leaveWhatsThisMode();
  EXPECT_EQ(actions, 0) << "keys that the manual does not name";
}

TEST_F(ProgramTest, ItsStatusBarHasTheTimeAndSomeMessagesForAWhile) {
  const auto textOf = [](qint64 time) { return QDateTime::fromMSecsSinceEpoch(time).toString("HH:mm").toStdString(); };
  const qint64 before = QDateTime::currentMSecsSinceEpoch();
  Start();
  const qint64 after = QDateTime::currentMSecsSinceEpoch();
  EXPECT_TRUE(Status(3) == textOf(before) || Status(3) == textOf(after)) << Status(3);
  const auto timers = window->findChild<QStatusBar*>()->findChildren<QTimer*>();
  ASSERT_EQ(timers.size(), 2);
  const auto end = [](QTimer* timer) {
    timer->start(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return timer->remainingTime() != 0; }));
  };
  constexpr qint64 minute = 60'000; // ms
  const qint64 earliest = before + timers[0]->interval(), latest = after + timers[0]->interval();
  EXPECT_TRUE(timers[0]->isActive() && (earliest - 1) / minute < latest / minute) << "not when a minute begins";
  window->findChild<QLabel*>("stbMain.Panels(3)")->clear();
  end(timers[0]);
  EXPECT_EQ(Status(3).size(), 5U);
  EXPECT_GT(timers[0]->remainingTime(), 0) << "and so on";

  for (const bool byTime : {true, false}) {
    emit window->Panel().StatusMessage("A message");
    EXPECT_EQ(Status(1), "A message");
    EXPECT_TRUE(timers[1]->isActive() && timers[1]->interval() > 9'000);
    byTime ? end(timers[1]) : Edit();
    EXPECT_EQ(Status(1), ProgramTitle) << byTime;
    EXPECT_FALSE(timers[1]->isActive());
  }
}

TEST_F(ProgramTest, KeysActOnTheFramedCellAfterEveryCommand) {
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  EXPECT_EQ(window->focusWidget()->objectName(), "gridChannel") << "at the start";
  EXPECT_EQ(window->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0) << "lower than its panel";
  PutDataFile("a.K4X");
  OpenFile("a.K4X");
  radio.openFailure = "gone";
  for (const char* const name : {"gridChannel", "chkTx(0)", "txtFreqBandU"})
    for (const char* const command : {"mnuFileSave", "mnuFileOpen", "mnuProgramRead", "mnuHelpContents"}) {
      window->findChild<QWidget*>(name)->setFocus();
      Choose(command);
      EXPECT_EQ(window->focusWidget()->objectName(), name) << command;
    }
  window->findChild<QWidget*>("chkTx(0)")->setFocus();
  Choose("mnuOptionFunction");
  window->findChild<QCheckBox*>("chkCH(0)")->setChecked(true); // disables it
  Choose("mnuOptionChannels");
  EXPECT_EQ(window->focusWidget()->objectName(), "gridChannel") << "not on the view that is hidden";
  QTest::mouseClick(&window->Panel(), Qt::LeftButton, {}, QPoint(window->Panel().width() - 2, 2));
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Space}) {
    QTest::keyClick(window->focusWidget(), key);
    EXPECT_EQ(window->focusWidget()->objectName(), "Command1") << key;
  }
  window->findChild<QWidget*>("gridChannel")->setFocus();
  QWidget& background = *window->Panel().parentWidget();
  QTest::mouseClick(&background, Qt::LeftButton, {}, background.rect().bottomRight());
  EXPECT_EQ(window->focusWidget()->objectName(), "Command1") << "beside the panel";

  window->resize(400, 400);
  auto* const grid = window->findChild<QTableWidget*>("gridChannel");
  grid->setFocus();
  grid->setCurrentCell(15, 13);
  auto* const scrollBar = window->findChild<QScrollArea*>()->verticalScrollBar();
  const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {
      {Qt::Key_Space, {}}, {Qt::Key_U, Qt::ControlModifier}, {Qt::Key_Control, {}}};
  for (const auto& [key, modifiers] : keys) {
    scrollBar->setValue(0);
    QTest::keyClick(grid, key, modifiers);
    EXPECT_EQ(scrollBar->value() > 0, key != Qt::Key_Control) << "acts out of sight: " << key;
  }
}

TEST_F(ProgramTest, StoresItsSettingsBeforeTheQuestionAndItsGeometryAtTheEnd) {
  // name, answer, minimized, ends, effect
  const std::tuple<const char*, Answer, bool, bool, Lines> cases[] = {
      {"cancelled", Answer::Cancel, false, false, {question}},
      {"minimized", Answer::No, true, true, {question}},
      {"not saved", Answer::No, false, true, {question, "geometry"}},
      {"saved, whatever comes of it", Answer::Yes, false, true, {question, "dialog Save", "geometry"}},
  };
  PutDataFile("a.K4X");
  for (const auto& [name, answer, minimized, ends, effect] : cases) {
    SCOPED_TRACE(name);
    Start();
    OpenFile("a.K4X");
    Choose("mnuFileClose");
    Edit();
    std::string settings;
    desktop.beforeAnswer = [&] { settings = Content("MR4500X.ini"); };
    desktop.answers = {answer};
    QWidget other;
    other.show();
    if (minimized) window->showMinimized();
    std::filesystem::remove(Path("MR4500X.ini"));
    Choose("mnuFileExit");
    EXPECT_EQ(Happened(), effect);
    EXPECT_NE(settings.find("Common Port=3\n"), std::string::npos) << settings;
    EXPECT_NE(settings.find("Default File=" + Path("a.K4X")), std::string::npos) << settings;
    EXPECT_EQ(window->isHidden(), ends);
    EXPECT_EQ(other.isHidden(), ends);
  }
}

TEST_F(ProgramTest, AsksAtTheLogoutAsExitDoesAndOnceOnly) {
  Edit();
  desktop.answers = {Answer::Cancel, Answer::No};
  desktop.beforeAnswer = [&] { // while a command runs, as a desktop's own menu or task list can
    EXPECT_FALSE(window->MayLogOut());
    Choose("mnuFileOpen");
    window->close();
  };
  EXPECT_FALSE(window->MayLogOut());
  EXPECT_TRUE(window->MayLogOut());
  EXPECT_EQ(Happened(), (Lines{question, question}));
  Edit(); // the logout was cancelled elsewhere
  desktop.answers = {Answer::Cancel, Answer::No};
  window->close();
  EXPECT_TRUE(window->MayLogOut());
  window->close(); // called by Qt when the session continues
  EXPECT_EQ(Happened(), (Lines{question, question, "geometry"}));
}

} // namespace
} // namespace mr4500x
