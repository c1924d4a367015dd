// The main window: its menus and buttons and what they run, the views, the start and the end.
#include "locale_texts.h"
#include "modal_dialog.h"
#include "program_fixture.h"

#include <QLocale>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>

namespace mr4500x {
namespace {

TEST_F(ProgramTest, HasItsMenus) {
  Lines menus;
  for (const QAction* menu : window->menuBar()->actions()) {
    std::string text = menu->text().toStdString();
    for (const QAction* item : menu->menu()->actions()) {
      if (!item->isVisible()) continue;
      text.append("/").append(item->isSeparator() ? "-" : item->text().toStdString());
      if (!item->shortcut().isEmpty()) text.append("[").append(item->shortcut().toString().toStdString()).append("]");
      if (!item->isEnabled()) text += "*";
      if (item->isChecked()) text += "+";
    }
    menus.push_back(text);
  }
  EXPECT_EQ(menus,
            (Lines{
                "&File/&Open...[Ctrl+O]/&Close*/-/&Save[Ctrl+S]/Save &As.../-/&Print.../-/-/E&Xit",
                "&Edit/&Copy[Ctrl+C]/&Paste[Ctrl+V]",
                "&Option/&Channels Settings[F5]+/-/&Function Settings[F6]",
                "&Program/&Read[Ctrl+R]/-/ &Write[Ctrl+W]",
                "&Embedded Information/Embedded &Info...[F2]/-/&Read Embedded Info[F3]/ &Write Embedded Info[F4]",
                "&Comm-Port/&Port...     [F9]",
                "&Help/&Contents/&Index.../-/&About...",
            }));
}

TEST_F(ProgramTest, RunsTheSameCommandFromMenuAndToolbar) {
  radio.openFailure = "gone";
  const struct {
    std::string item, key, tip;
    Lines effect;
  } cases[] = {
      {"", "New", "new", {}},
      {"mnuFileOpen", "Open", "Open", {"dialog Open"}},
      {"mnuFileSave", "Save", "Save", {"dialog Save"}},
      {"mnuFileSaveAs", "", "", {"dialog Save As"}},
      {"mnuProgramRead", "Read", "Read", {"X|Error|COM3: gone"}},
      {"mnuProgramWrite", "Write", "Write", {"X|Error|COM3: gone"}},
      {"mnuHelpContents", "", "", {"help contents"}},
      {"mnuHelpIndex", "", "", {"help index"}},
      {"mnuFileClose", "", "", {}},
  };
  for (const auto& [item, key, tip, effect] : cases) {
    SCOPED_TRACE(item + key);
    if (!item.empty()) {
      Choose(item);
      EXPECT_EQ(Happened(), effect);
    }
    if (!key.empty()) {
      EXPECT_EQ(Button(key)->toolTip().toStdString(), tip);
      EXPECT_FALSE(Button(key)->icon().isNull());
      Button(key)->click();
      EXPECT_EQ(Happened(), effect);
    }
    EXPECT_EQ(Title(), ProgramTitle);
    EXPECT_FALSE(window->State().ModifiedFlag);
  }
}

TEST_F(ProgramTest, ShowsOneOfItsTwoViews) {
  const auto view = [&] {
    return std::array{Item("mnuOptionChannels")->isChecked(), Item("mnuOptionFunction")->isChecked(),
                      Button("ChanWin")->isEnabled(), Button("FuncWin")->isEnabled(),
                      window->findChild<QWidget*>("fraChannel")->isVisible()};
  };
  constexpr std::array channel = {true, false, false, true, true};
  constexpr std::array function = {false, true, true, false, false};
  EXPECT_EQ(view(), channel);
  Button("FuncWin")->click();
  EXPECT_EQ(view(), function);
  Choose("mnuOptionFunction"); // once more
  EXPECT_EQ(view(), function);
  Button("ChanWin")->click();
  EXPECT_EQ(view(), channel);
  Choose("mnuOptionFunction");
  Choose("mnuOptionChannels");
  EXPECT_EQ(view(), channel);
}

TEST_F(ProgramTest, StartsOnItsStoredPortWithNothingToSave) {
  EXPECT_EQ(Status(1), "MR4500X Programming Software");
  EXPECT_EQ(Status(2), "COM 3");
  EXPECT_EQ(Status(3).size(), 5U) << Status(3); // hours and minutes
  EXPECT_EQ(Title(), ProgramTitle);
  EXPECT_FALSE(window->State().ModifiedFlag);
  EXPECT_EQ(window->focusWidget()->objectName(), "Command1");

  const auto* area = window->findChild<QScrollArea*>();
  for (const auto& [size, scrolls] : {std::pair(QSize(2000, 1200), false), std::pair(QSize(500, 300), true)}) {
    window->resize(size);
    QCoreApplication::processEvents();
    EXPECT_EQ(area->horizontalScrollBar()->isVisible(), scrolls);
    EXPECT_EQ(area->verticalScrollBar()->isVisible(), scrolls);
  }
}

TEST_F(ProgramTest, StoresItsSettingsBeforeTheQuestionAndItsGeometryAtTheEnd) {
  const struct {
    Answer answer;
    bool minimized, ends;
    Lines effect;
  } cases[] = {
      {Answer::Cancel, false, false, {question}},
      {Answer::No, true, true, {question}},
      {Answer::No, false, true, {question, "geometry"}},
      {Answer::Yes, false, true, {question, "dialog Save", "geometry"}}, // whatever comes of the saving
  };
  PutDataFile("a.K4X");
  for (const auto& [answer, minimized, ends, effect] : cases) {
    SCOPED_TRACE(effect.size());
    Start();
    desk.paths.emplace_back(Path("a.K4X"));
    Choose("mnuFileOpen");
    Choose("mnuFileClose");
    Edit();
    Happened();
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
  EXPECT_EQ(stored->width, window->frameGeometry().width() * 15); // at 96 dots an inch
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

TEST_F(ProgramTest, AboutTellsVersionAndLicencesAndOpensTheMakersPage) {
  WhenDialogOpens([](QWidget* about) {
    EXPECT_EQ(about->windowTitle(), "About MR4500X Programming Software");
    EXPECT_EQ(about->findChild<QLabel*>("lblText")->text(), "MR4500X Programming Software  For Windows 98/NT/2000");
    EXPECT_NE(
        about->findChild<QLabel*>("lblVersion")->text().indexOf(QRegularExpression("^Version \\d+\\.\\d+\\.\\d+$")),
        -1);
    auto* const licences = about->findChild<QLabel*>("lblLicences");
    for (const bool unfolded : {true, false}) {
      about->findChild<QToolButton*>("cmdLicences")->click();
      EXPECT_EQ(licences->isVisible(), unfolded);
    }
    auto* const link = about->findChild<QLabel*>("lblLink");
    QTest::mouseClick(link, Qt::LeftButton, {}, QPoint(link->fontMetrics().averageCharWidth() * 3, link->height() / 2));
    about->findChild<QPushButton*>("cmdClose")->click();
  });
  Choose("mnuHelpAbout");
  EXPECT_EQ(Happened(), Lines{"link https://www.calvorne-vtr.example/"});
}

TEST(DecimalSeparator, IsTheOneInWhichTheLocaleReadsFractions) {
  EXPECT_EQ(DecimalSeparatorOf(QLocale::c()), '.');
  EXPECT_EQ(DecimalSeparatorOf(QLocale(QLocale::English, QLocale::UnitedStates)), '.');
  EXPECT_EQ(DecimalSeparatorOf(QLocale(QLocale::German, QLocale::Germany)), ',');
  EXPECT_EQ(DecimalSeparatorOf(QLocale(QLocale::French, QLocale::France)), ',');
}

} // namespace
} // namespace mr4500x
