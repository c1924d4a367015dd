// Unsaved work is kept, and offered once at the next start.
#include "embedded_info.h"
#include "program_fixture.h"
#include "wheel.h"

#include <atomic>
#include <csignal>
#include <semaphore>
#include <thread>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;

constexpr int LongWait = 20'000; // ms; on a busy machine

class KeptWorkTest : public ProgramTest {
protected:
  // Changes a number that ModifiedFlag does not know of, as a user types it.
  void TypeAni(const char* digits) { window->findChild<QLineEdit*>("txtANI")->setText(QLatin1String(digits)); }
  std::string Ani() { return window->findChild<QLineEdit*>("txtANI")->text().toStdString(); }
  Lines Kept(std::string_view prefix) {
    Lines names;
    for (const std::string& name : files.List(Path("kept")).value_or(Lines{}))
      if (name.ends_with(".K4X") && name.starts_with(prefix)) names.push_back(name);
    return names;
  }
  // The signal arrives while `work` runs, or when nothing runs.
  void EndBySignal(const std::function<void()>& work = {}) {
    const auto end = [&] { window->EndBySignal(SIGTERM); };
    if (work) desktop.beforeAnswer = end;
    QTimer::singleShot(0, window.get(), work ? work : end);
    EXPECT_EQ(QApplication::exec(), 128 + SIGTERM);
    EXPECT_TRUE(work || std::ranges::count(Happened(), "geometry") > 0);
  }
  void AwaitCopies() { window->KeepForSession(); } // another thread writes them
  // The copy that is made a while after a change.
  bool AwaitCopy() {
    return QTest::qWaitFor([this] { return !Kept("session-").empty(); }, LongWait);
  }
  void NextStart() {
    window.reset();
    Start();
    Happened();
  }
  bool OpensLeftWork(Answer answer) {
    desktop.answers = {answer};
    return window->OpenLeftWork();
  }
  std::string Question(const std::string& source) {
    return "!|Unsaved Work|Unsaved work was kept on 2004-11-04 09:05:07. It came from " + source +
           ". Differences:\n\nEmerge ANI: ---------------- -> 4711\n\nDo you want to open it? No keeps it under File, "
           "Recover...|YN";
  }
};

TEST_F(KeptWorkTest, OffersOnceWhatEndedWithoutASave) {
  const struct {
    const char* name;
    std::function<void()> end;
  } cases[] = {
      {"exit", [&] { window->close(); }},
      {"signal", [&] { EndBySignal(); }},
      {"crash", [&] { EXPECT_TRUE(AwaitCopy()); }},
  };
  PutDataFile("a.K4X");
  for (const auto& [name, end] : cases)
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      SCOPED_TRACE(name + std::string(answer == Answer::Yes ? ", yes" : ", no"));
      OpenFile("a.K4X");
      TypeAni("4711");
      auto* const box = window->findChild<QLineEdit*>("txtANI");
      answer == Answer::Yes ? TurnWheel(*box, 1) : QTest::keyClick(box, Qt::Key_Left); // any input
      end();
      NextStart();
      EXPECT_EQ(OpensLeftWork(answer), answer == Answer::Yes);
      EXPECT_EQ(Happened(), Lines{Question(Path("a.K4X"))});
      EXPECT_EQ(Ani(), answer == Answer::Yes ? "4711" : "----------------");
      EXPECT_EQ(window->State().ModifiedFlag, answer == Answer::Yes);
      EXPECT_EQ(Title(), ProgramTitle);
      EXPECT_FALSE(window->OpenLeftWork()) << "asked twice";
      Choose("mnuFileSave", {Answer::Yes}, "b.K4X");
      AwaitCopies();
      EXPECT_EQ(Kept("session-"), Lines()) << "the work was saved";
      NextStart();
      EXPECT_FALSE(window->OpenLeftWork()) << "nothing was lost";
    }
}

TEST_F(KeptWorkTest, KeepsWhatIsBeingTypedButNoUncheckedLimit) {
  auto* const lower = window->findChild<QLineEdit*>("txtFreqBandL");
  lower->setFocus();
  lower->setText("4");
  EndBySignal();
  NextStart();
  EXPECT_FALSE(window->OpenLeftWork()) << "the limit";
  const auto type = [&] {
    desktop.happened.clear();
    OpenFile("a.K4X");
    QTest::keyClick(window->findChild<QTableView*>("gridChannel"), Qt::Key_Space);
    QTest::keyClicks(window->findChild<QLineEdit*>("txtChFreq"), "450.1");
  };
  PutDataFile("a.K4X");
  type();
  Choose("mnuFileClose", {Answer::Yes});
  AwaitCopies();
  EXPECT_EQ(Kept("2004-").size(), 1U) << "given up with the window's data";
  type();
  auto& mode = *window->findChild<QComboBox*>("cboRadio(0)");
  mode.setCurrentIndex(1 - mode.currentIndex()); // 5-tone, whose standard then stays
  window->findChild<QComboBox*>("cboFive")->setCurrentIndex(2);
  Choose("mnuFileSaveAs"); // cancelled
  mode.setCurrentIndex(1 - mode.currentIndex());
  EndBySignal();
  NextStart();
  desktop.answers = {Answer::Yes};
  EndBySignal([&] { EXPECT_FALSE(window->OpenLeftWork()) << "ended before an answer"; });
  NextStart();
  EXPECT_TRUE(OpensLeftWork(Answer::Yes));
  EXPECT_NE(Happened().back().find("CH1 Rx Freq (MHz): 440.00000 -> 450.10000"), std::string::npos);
  EXPECT_EQ(window->Panel().Collected().FiveToneStandard, 3);
}

TEST_F(KeptWorkTest, StaysUnsavedAfterItWasTaken) {
  PutDataFile("a.K4X");
  OpenFile("a.K4X");
  TypeAni("4711");
  window->close();
  NextStart();
  EXPECT_TRUE(OpensLeftWork(Answer::Yes));
  EndBySignal();
  NextStart();
  EXPECT_FALSE(OpensLeftWork(Answer::No));
  EXPECT_EQ(Happened(), Lines{Question(Path("a.K4X"))}) << "with the first differences";
  Choose("mnuFileOpen", {}, "kept/" + Kept("2004-").front());
  EXPECT_EQ(Title(), ProgramTitle) << "it will go, so that Save must ask for a name";
  EXPECT_TRUE(window->State().ModifiedFlag);
  PutDataFile("a.K4X");
  desktop.happened.clear();
  for (const std::string command : {"mnuFileOpen", "mnuFileClose"}) {
    EXPECT_EQ(HappenedAt(command, {Answer::Cancel}, "a.K4X").back(), question) << command;
    EXPECT_EQ(Ani(), "4711") << command;
  }
}

TEST_F(KeptWorkTest, IsNotAskedAboutAfterNoAtTheEndButCanBeRecovered) {
  Choose("mnuFileRecover");
  EXPECT_EQ(Status(1), "No unsaved work is kept.");
  TypeAni("4711");
  Edit();
  desktop.answers = {Answer::No};
  window->close();
  NextStart();
  EXPECT_FALSE(window->OpenLeftWork());
  ASSERT_EQ(Kept("2004-").size(), 1U);
  Put("kept/2004-11-03_09-05-07_0.K4X", "damaged");
  WhenDialogOpens([](QWidget* dialog) {
    std::string rows;
    auto* const list = dialog->findChild<QTreeWidget*>();
    for (int row = 0; row < list->topLevelItemCount(); ++row)
      for (int column = 0; column < 3; ++column)
        rows += list->topLevelItem(row)->text(column).toStdString() + '|';
    EXPECT_EQ(rows, "2004-11-04 09:05:07|a new configuration|Emerge ANI: ---------------- -> 4711|"
                    "2004-11-03 09:05:07||can't be opened: damaged, or from a newer version|");
    EXPECT_EQ(dialog->focusWidget(), list);
    emit list->itemActivated(list->currentItem(), 0); // as by a double click
    if (dialog->isVisible()) dialog->close();
  });
  EXPECT_EQ(HappenedAt("mnuFileRecover"), Lines());
  EXPECT_EQ(Ani(), "4711");
  Choose("mnuFileSave");
  EXPECT_EQ(desktop.lastQuestion.proposedName, "") << "it would go with the copy";
}

TEST_F(KeptWorkTest, KeepsTheEmbeddedInformationThatIsInNoRadioYet) {
  const auto enter = [this] {
    WhenDialogOpens([](QWidget* dialog) {
      dialog->findChild<QPlainTextEdit*>("rtxtbEmbed")->setPlainText("Fleet\n7");
      dialog->findChild<QPushButton*>("cmdOK")->click();
    });
    Choose("mnuEmbedInfo");
  };
  enter();
  Choose("mnuFileSave", {}, "a.K4X"); // holds no such text
  for (int start = 0; start < 3; ++start) {
    if (start == 2) Choose("mnuFileSaveAs");
    EndBySignal();
    NextStart();
    desktop.paths = {Path("a.K4X")};
    EXPECT_TRUE(OpensLeftWork(Answer::Yes));
    EXPECT_NE(Happened().back().find("Differences:\n\nEmbedded Information: \"\" -> \"Fleet 7\"\n\nDo"),
              std::string::npos);
    EXPECT_EQ(EmbeddedText(window->Image().EmbeddedInfoBlock), u"Fleet\r\n7");
  }
  Choose("mnuFileSave");
  Choose("mnuEmbedWrite");
  NextStart();
  EXPECT_FALSE(window->OpenLeftWork()) << "a radio has it";
  TypeAni("4711");
  AwaitCopies();
  enter(); // alone, after a copy without it
  Choose("mnuEmbedRead");
  AwaitCopies();
  ASSERT_EQ(Kept("2004-").size(), 1U) << "replaced";
  EXPECT_EQ(Kept("session-").size(), 1U) << "the settings are still unsaved";
  EXPECT_NE(Content("kept/" + Kept("2004-").front()).find("-> \"Fleet 7\"\n"), std::string::npos);
  Choose("mnuEmbedRead");
  AwaitCopies();
  EXPECT_EQ(Kept("2004-").size(), 1U) << "nothing was entered that it replaces";
}

TEST_F(KeptWorkTest, PutsAsideWhatOtherDataReplaces) {
  image.ChannelBlock(4, 0) = 0x81; // which new data has not
  PutDataFile("a.K4X");
  const struct {
    const char* name;
    std::function<void()> replace;
    std::size_t kept;
  } cases[] = {
      {"close", [&] { Choose("mnuFileClose"); }, 1},
      {"read", [&] { Choose("mnuProgramRead"); }, 1},
      {"open under the bare title",
       [&] {
         Choose("mnuFileClose");
         TypeAni("99");
         OpenFile("a.K4X");
       },
       2},
      {"write", [&] { Choose("mnuProgramWrite"); }, 0},
      {"save", [&] { Choose("mnuFileSave"); }, 0},
  };
  for (const auto& [name, replace, kept] : cases) {
    SCOPED_TRACE(name);
    window.reset();
    std::filesystem::remove_all(Path("kept"));
    Start();
    OpenFile("a.K4X");
    TypeAni("4711");
    replace();
    AwaitCopies();
    desktop.happened.clear();
    EXPECT_EQ(Kept("2004-11-04_09-05-07_").size(), kept);
    EXPECT_EQ(Kept("session-"), Lines());
    PutDataFile("a.K4X");
  }
}

TEST_F(KeptWorkTest, AsksBeforeDataIsStoredWhoseUnshownPartWasLost) {
  PutDataFile("a.K4X");
  OpenFile("a.K4X");
  const std::string before = Content("a.K4X");
  radio.spoil = [](std::size_t frame, LineBytes& reply) {
    if (frame == 9) reply.clear();
  };
  TypeAni("4711");
  Choose("mnuProgramRead");
  EXPECT_TRUE(AwaitCopy()) << "kept before the transfer";
  desktop.happened.clear();
  const std::string lost =
      "!|Data Lost|The read was interrupted, or the file could not be opened. The editor still shows the settings, but "
      "data that it doesn't show was lost. To get it back, answer No, then read the radio again or open the file "
      "again. "
      "Write sends no embedded information, so the radio keeps its own. Do you want to continue?|YN";
  for (const char* command : {"mnuFileSave", "mnuFileSaveAs", "mnuProgramWrite"}) {
    SCOPED_TRACE(command);
    radio.frames.clear();
    EXPECT_EQ(HappenedAt(command, {Answer::No}), Lines{lost});
    EXPECT_EQ(Content("a.K4X"), before);
    EXPECT_TRUE(radio.frames.empty());
  }
  EXPECT_TRUE(HappenedAt("mnuEmbedWrite", {Answer::No})
                  .at(0)
                  .starts_with("!|Data Lost|The read was interrupted, and the embedded information was lost."));
  WhenDialogOpens([](QWidget* dialog) { dialog->findChild<QPushButton*>("cmdOK")->click(); });
  for (const char* const command : {"mnuEmbedInfo", "mnuEmbedWrite"})
    Choose(command);
  EXPECT_TRUE(Happened().at(0).starts_with("!|Information Error|")) << "the user has seen the text, and no question";
  Edit();
  EXPECT_EQ(HappenedAt("mnuFileOpen", {Answer::No}, "a.K4X"), (Lines{"dialog Open", question}))
      << "the open file has what was lost";
  EXPECT_EQ(HappenedAt("mnuFileSave"), Lines());
  radio.frames.clear();
  Choose("mnuProgramRead");
  desktop.happened.clear();
  Choose("mnuFileSave", {Answer::Yes});
  EXPECT_NE(Content("a.K4X"), before);
  EXPECT_EQ(HappenedAt("mnuFileSave"), Lines{lost}) << "asked again after a save";
  for (const char* const command : {"mnuProgramRead", "mnuFileClose", "mnuFileSave"}) {
    radio.frames.clear();
    desktop.happened.clear();
    Choose(command);
  }
  EXPECT_EQ(Happened(), Lines{"dialog Save"}) << "nothing of new data is lost";
  WhenDialogOpens([](QWidget* dialog) { dialog->findChild<QPushButton*>("cmdOK")->click(); });
  for (const char* const command : {"mnuProgramRead", "mnuFileRecover", "mnuFileSave"}) {
    radio.frames.clear();
    desktop.happened.clear();
    Choose(command);
  }
  EXPECT_EQ(Happened(), Lines{"dialog Save"}) << "nor of a kept copy";
}

TEST_F(KeptWorkTest, NamesACopyThatCannotBeOpened) {
  TypeAni("4711");
  window->close();
  window.reset();
  std::filesystem::resize_file(Path("kept/" + Kept("session-").front()), 300);
  NextStart();
  EXPECT_FALSE(window->OpenLeftWork());
  ASSERT_EQ(Kept("20").size(), 1U);
  EXPECT_EQ(Happened(),
            Lines{"!|Unsaved Work|Unsaved work was kept, but can't be opened: it is damaged or was made by a newer "
                  "version.\n\n" +
                  Path("kept/" + Kept("20").front())});
  EXPECT_FALSE(window->OpenLeftWork());
  EXPECT_EQ(Happened(), Lines());
}

TEST_F(KeptWorkTest, TheStatusBarReportsAMissingCopyUntilThereIsOne) {
  auto* const ani = window->findChild<QLineEdit*>("txtANI");
  const std::string title = Status(1);
  files.canCreate = false;
  TypeAni("4711");
  QTest::keyClick(ani, Qt::Key_Left);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Status(1) != title; }, LongWait));
  const std::string missing = Status(1);
  EXPECT_TRUE(missing.starts_with("No copy of the unsaved work")) << missing;
  emit window->Panel().StatusMessage("Done");
  emit window->Panel().Changed();
  EXPECT_EQ(Status(1), missing) << "ended with the next passing message";
  desktop.answers = {Answer::Cancel};
  window->close();
  EXPECT_EQ(Happened(), Lines{question + "(C)"}) << "an answer given too early can lose the work";
  files.canCreate = true;
  QTest::keyClick(ani, Qt::Key_Left);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Status(1) == title; }, LongWait));
  files.canCreate = files.canWrite = false;
  TypeAni("99");
  AwaitCopies(); // the window hears that it failed after the save
  files.canCreate = files.canWrite = true;
  Choose("mnuFileSave", {}, "a.K4X");
  QCoreApplication::processEvents();
  EXPECT_EQ(Status(1), "Saved to " + Path("a.K4X"));
}

TEST_F(KeptWorkTest, IsWrittenByAnotherThreadAndNeverDuringATransfer) {
  std::atomic<bool> isHere = false;
  files.beforeSync = [&, here = std::this_thread::get_id()] { isHere = isHere || std::this_thread::get_id() == here; };
  TypeAni("4711");
  QTest::keyClick(window->findChild<QLineEdit*>("txtANI"), Qt::Key_Left);
  input.Hold(HeldPointer::Busy);
  QTest::qWait(1300); // the copy is due after a second
  window->KeepForSession();
  EXPECT_EQ(Kept("session-"), Lines()) << "in the middle of a transfer";
  input.Release();
  EXPECT_TRUE(AwaitCopy());
  EXPECT_FALSE(isHere) << "the window waits for the disk";

  PutDataFile("a.K4X");
  std::counting_semaphore opened(0);
  std::atomic<bool> isSyncing = false, isLate = false;
  files.beforeSync = [&, here = std::this_thread::get_id()] {
    if (std::this_thread::get_id() == here) return;
    isSyncing = true;
    if (!opened.try_acquire_for(20s)) isLate = true;
  };
  TypeAni("42");
  QTest::keyClick(window->findChild<QLineEdit*>("txtANI"), Qt::Key_Left);
  EXPECT_TRUE(QTest::qWaitFor([&] { return isSyncing.load(); }, LongWait));
  OpenFile("a.K4X");
  opened.release(8);
  AwaitCopies();
  EXPECT_FALSE(isLate) << "to open a file, the window waits for the disk";
}

// The session saves what is open, and asks the program to quit or lets it go on.
TEST_F(KeptWorkTest, ASessionThatAllowsNoQuestionEndsTheProgramAsASignalDoes) {
  const auto quit = [&] {
    QEvent event(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &event);
  };
  const struct {
    const char* name;
    std::function<void()> end;
  } cases[] = {
      {"idle", quit},
      {"a question is open",
       [&] {
         desktop.beforeAnswer = quit;
         desktop.answers = {Answer::Cancel};
         window->close();
       }},
      {"a transfer runs",
       [&] {
         input.Hold(HeldPointer::Busy);
         quit();
         input.Release();
         QEventLoop().exec(); // of the transfer's message
       }},
  };
  for (const auto& [name, end] : cases) {
    SCOPED_TRACE(name);
    TypeAni("4711");
    Edit();
    window->KeepForSession();
    EXPECT_EQ(Kept("session-").size(), 1U);
    desktop.happened.clear();
    QTimer::singleShot(0, window.get(), end);
    QTimer::singleShot(LongWait, window.get(), [] { QCoreApplication::exit(0); });
    EXPECT_EQ(QApplication::exec(), 128 + SIGTERM);
    NextStart();
    desktop.answers = {Answer::Yes, Answer::No};
    desktop.beforeAnswer = [&] { window->KeepForSession(); }; // a checkpoint
    EXPECT_TRUE(window->OpenLeftWork()) << "the checkpoint answered No";
    EXPECT_EQ(Ani(), "4711");
    window->close();
    window.reset();
    std::filesystem::remove_all(Path("kept"));
    Start();
  }
}

TEST_F(KeptWorkTest, ASaveAsksWhereTheFileOrItsDriveIsNotTheOneThatWasOpened) {
  const std::string drive = "!|Save|The folder of " + Path("a.K4X") +
                            " is on another drive than when the file was opened. The drive may have been unplugged. "
                            "Do you want to save there?|YN",
                    file = "!|Save|Another program has changed the file " + Path("a.K4X") +
                           " since it was opened. Do you want to replace it?|YN";
  for (const bool isOtherDrive : {true, false}) {
    PutDataFile("a.K4X");
    OpenFile("a.K4X");
    const std::string asked = isOtherDrive ? drive : file;
    if (isOtherDrive) files.alter = [](const std::string&, FileStatus& status) { ++status.device; };
    Put("a.K4X", "other");
    for (const char* const command : {"mnuFileSave", "mnuFileSaveAs"}) {
      EXPECT_EQ(HappenedAt(command, {Answer::No}, "a.K4X").back(), asked) << command;
      EXPECT_EQ(Content("a.K4X"), "other");
    }
    desktop.paths.clear();
    Choose("mnuFileSave", {Answer::Yes, Answer::Yes}); // also about the file on the other drive
    EXPECT_EQ(HappenedAt("mnuFileSave"), isOtherDrive ? (Lines{drive, file}) : Lines{file})
        << "asked again after a save";
    EXPECT_NE(Content("a.K4X"), "other");
    files.alter = [](const std::string&, FileStatus&) {};
    Choose("mnuFileClose");
  }
}

TEST_F(KeptWorkTest, WarnsAboutAFileThatAnotherWindowHasOpen) {
  PutDataFile("a.K4X");
  OpenFile("a.K4X");
  const auto first = std::move(window);
  Start();
  EXPECT_EQ(HappenedAt("mnuFileOpen", {}, "a.K4X"),
            (Lines{"dialog Open", "i|Open Twice|The file " + Path("a.K4X") +
                                      " is also open in another window. Each save replaces what the other "
                                      "window has saved."}));
  EXPECT_EQ(HappenedAt("mnuFileSave"), Lines());
}

} // namespace
} // namespace mr4500x
