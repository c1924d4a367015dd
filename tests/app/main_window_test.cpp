// The main window: what its menus and buttons run, the views, the start and the end.
#include "machine.h"
#include "program_fixture.h"

namespace mr4500x {
namespace {

TEST_F(ProgramTest, RunsACommandFromTheToolbar) {
  radio.openFailure = "gone";
  for (const char* const button : {"New", "Open", "Save", "Read", "Write"})
    Button(button)->click();
  EXPECT_EQ(Happened(), (Lines{"dialog Open", "dialog Save", "X|Error|COM3: gone", "X|Error|COM3: gone"}));
}

TEST_F(ProgramTest, OpensTheHelp) {
  Choose("mnuHelpContents");
  Choose("mnuHelpIndex");
  EXPECT_EQ(Happened(), (Lines{"help contents", "help index"}));
}

TEST_F(ProgramTest, ShowsOneOfItsTwoViews) {
  for (const std::string command : {"mnuOptionFunction", "ChanWin", "FuncWin", "mnuOptionChannels"}) {
    SCOPED_TRACE(command);
    const bool function = command.find("Func") != std::string::npos;
    Choose(command);
    EXPECT_EQ(Item("mnuOptionChannels")->isChecked(), !function);
    EXPECT_EQ(Item("mnuOptionFunction")->isChecked(), function);
    EXPECT_EQ(Button("ChanWin")->isEnabled(), function);
    EXPECT_EQ(Button("FuncWin")->isEnabled(), !function);
    EXPECT_EQ(window->findChild<QWidget*>("fraChannel")->isVisible(), !function);
  }
}

TEST_F(ProgramTest, HasAScrollBarOnlyWhereTheScreenIsTooSmall) {
  auto* const area = window->findChild<QScrollArea*>();
  const QSize screen = window->screen()->availableSize(),
              needed = window->sizeHint() - area->sizeHint() + area->widget()->size();
  QCoreApplication::processEvents();
  EXPECT_EQ(area->horizontalScrollBar()->isVisible(), needed.width() > screen.width());
  EXPECT_EQ(area->verticalScrollBar()->isVisible(), needed.height() > screen.height());
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
    desk.beforeAnswer = [&] { settings = Content("MR4500X.ini"); };
    desk.answers = {answer};
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
  desk.answers = {Answer::Cancel, Answer::No};
  desk.beforeAnswer = [&] { EXPECT_FALSE(window->MayLogOut()) << "while a command runs"; };
  EXPECT_FALSE(window->MayLogOut());
  EXPECT_TRUE(window->MayLogOut());
  EXPECT_EQ(Happened(), (Lines{question, question}));
  Edit(); // the logout was cancelled elsewhere
  desk.answers = {Answer::Cancel, Answer::No};
  window->close();
  EXPECT_TRUE(window->MayLogOut());
  window->close(); // by Qt, when the desktop goes on
  EXPECT_EQ(Happened(), (Lines{question, question, "geometry"}));
}

TEST_F(ProgramTest, RunsOneCommandAtATime) {
  Edit();
  desk.answers = {Answer::Cancel};
  desk.beforeAnswer = [&] { // as a desktop's own menu or task list can
    Choose("mnuFileOpen");
    window->close();
  };
  Choose("mnuFileExit");
  EXPECT_EQ(Happened(), Lines{question});
  EXPECT_TRUE(window->isVisible());
}

TEST_F(ProgramTest, AboutTellsTheVersionAndOpensTheMakersPage) {
  WhenDialogOpens([](QWidget* about) {
    const QString version = about->findChild<QLabel*>("lblVersion")->text();
    EXPECT_TRUE(version.contains(QRegularExpression("^Version \\d+\\.\\d+\\.\\d+, on .+$"))) << version.toStdString();
    auto* const link = about->findChild<QLabel*>("lblLink");
    QTest::mouseClick(link, Qt::LeftButton, {}, QPoint(link->fontMetrics().averageCharWidth() * 3, link->height() / 2));
    about->findChild<QPushButton*>("cmdClose")->click();
  });
  Choose("mnuHelpAbout");
  EXPECT_EQ(Happened(), Lines{"link https://www.calvorne-vtr.example/"});
}

TEST(DecimalSeparator, IsTheOneInWhichTheLocaleReadsFractions) {
  EXPECT_EQ(DecimalSeparatorOf(QLocale(QLocale::English, QLocale::UnitedStates)), '.');
  EXPECT_EQ(DecimalSeparatorOf(QLocale(QLocale::German, QLocale::Germany)), ',');
}

} // namespace
} // namespace mr4500x
