// The adapters to the desktop: message boxes, file names, fonts, progress window, and the guard of a transfer.
#include "event_clock.h"
#include "modal_dialog.h"
#include "qt_file_dialogs.h"
#include "qt_font_dialog.h"
#include "qt_message_view.h"
#include "qt_progress_view.h"
#include "transfer_guard.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;

TEST(QtMessageView, AsksWithTheFirstButtonAsDefault) {
  const struct {
    MessageIcon icon;
    MessageButtons buttons;
    QMessageBox::Icon shownIcon;
    QString names; // the default button first
    Qt::Key key;
    Answer answer;
  } cases[] = {
      {MessageIcon::None, MessageButtons::Ok, QMessageBox::NoIcon, "cmdOk", Qt::Key_Return, Answer::Ok},
      {MessageIcon::Information, MessageButtons::Ok, QMessageBox::Information, "cmdOk", Qt::Key_Escape, Answer::Ok},
      {MessageIcon::Critical, MessageButtons::Ok, QMessageBox::Critical, "cmdOk", Qt::Key_Return, Answer::Ok},
      {MessageIcon::Exclamation, MessageButtons::YesNo, QMessageBox::Warning, "cmdYes cmdNo", Qt::Key_Return,
       Answer::Yes},
      {MessageIcon::Exclamation, MessageButtons::YesNo, QMessageBox::Warning, "cmdYes cmdNo", Qt::Key_Escape,
       Answer::No},
      {MessageIcon::Exclamation, MessageButtons::YesNoCancel, QMessageBox::Warning, "cmdYes cmdNo cmdCancel",
       Qt::Key_Escape, Answer::Cancel},
  };
  for (const auto& [icon, buttons, shownIcon, names, key, answer] : cases) {
    WhenDialogOpens([&, shownIcon = shownIcon, names = names, key = key](QWidget* dialog) {
      auto* const box = qobject_cast<QMessageBox*>(dialog);
      EXPECT_EQ(box->icon(), shownIcon);
      EXPECT_EQ(box->windowTitle(), "Title");
      EXPECT_EQ(box->text(), "a <b> & c");
      EXPECT_EQ(box->textFormat(), Qt::PlainText);
      EXPECT_EQ(box->buttons().size(), names.split(' ').size());
      for (const QString& name : names.split(' '))
        EXPECT_NE(box->findChild<QPushButton*>(name), nullptr) << name.toStdString();
      EXPECT_EQ(box->defaultButton()->objectName(), names.section(' ', 0, 0));
      QTest::keyClick(box, key);
    });
    UserInput input;
    EXPECT_EQ(QtMessageView(input).Show(icon, "Title", "a <b> & c", buttons), answer);
  }
}

TEST(QtFileDialogs, TakesFiltersAndExtensionsAsTheCommandsGiveThem) {
  EXPECT_EQ(NameFilters("Data Files(*.K4X)|*.K4X|Data Files(*.K4Y)|*.K4Y"),
            (QStringList{"Data Files(*.K4X) (*.K4X *.k4x)", "Data Files(*.K4Y) (*.K4Y *.k4y)"}));
  const std::pair<const char*, const char*> cases[] = {
      {"/d/a", "/d/a.K4X"},         {"/d/a.", "/d/a.K4X"},    {"/d/a.K4Y", "/d/a.K4Y"},
      {"/d/a.b.txt", "/d/a.b.txt"}, {"/d.e/a", "/d.e/a.K4X"},
  };
  for (const auto& [given, whole] : cases)
    EXPECT_EQ(WithExtension(given, "K4X"), whole);
}

TEST(QtProgressView, KeepsItsBarWithinItsRange) {
  QtProgressView view("The program");
  const auto window = [] {
    for (QWidget* const each : QApplication::topLevelWidgets())
      if (each->objectName() == "frmProgress") return each;
    return static_cast<QWidget*>(nullptr);
  };
  view.SetValue(5); // nothing is open yet
  view.Close();
  view.Open("Read", "Reading", 505);
  ASSERT_NE(window(), nullptr);
  EXPECT_EQ(window()->windowTitle(), "Read");
  EXPECT_FALSE(window()->isModal());
  const auto* bar = window()->findChild<QProgressBar*>();
  for (const auto& [value, shown] : {std::pair{250, 250}, {506, 505}, {-1, 0}}) {
    view.SetValue(value);
    EXPECT_EQ(bar->value(), shown);
  }
  view.Open("Write", "", 330);
  EXPECT_EQ(window()->findChild<QLabel*>()->text(), "The program");
  view.Close();
  EXPECT_EQ(window(), nullptr);
}

TEST(TransferGuard, LetsTheUserActOnlyInMessageBoxes) {
  UserInput input;
  QLineEdit line;
  line.show();
  const auto typed = [&] {
    line.clear();
    QTest::keyClick(&line, Qt::Key_X);
    return line.text() == "x";
  };
  EXPECT_TRUE(typed());
  const auto isBusy = [] { return QGuiApplication::overrideCursor() != nullptr; };
  for (const auto pointer : {HeldPointer::Busy, HeldPointer::Unchanged}) {
    const TransferGuard guard(input, pointer);
    EXPECT_FALSE(typed());
    EXPECT_FALSE(line.close());
    EXPECT_EQ(isBusy(), pointer == HeldPointer::Busy);
    WhenDialogOpens([&](QWidget* dialog) {
      EXPECT_FALSE(isBusy());
      QTest::mouseClick(dialog->findChild<QPushButton*>("cmdYes"), Qt::LeftButton);
    });
    EXPECT_EQ(QtMessageView(input).Show(MessageIcon::None, "", "", MessageButtons::YesNo), Answer::Yes);
    EXPECT_FALSE(typed());
    EXPECT_EQ(isBusy(), pointer == HeldPointer::Busy);
  }
  EXPECT_TRUE(typed());
  EXPECT_FALSE(isBusy());
}

TEST(TransferGuard, LetsASignalEndTheProgramOnlyAfterTheTransfer) {
  const auto transfer = [] {
    UserInput input;
    const TransferGuard guard(input);
    std::raise(SIGTERM);
    std::fputs("transferred", stderr);
  };
  EXPECT_EXIT(transfer(), testing::KilledBySignal(SIGTERM), "transferred");
}

} // namespace
} // namespace mr4500x
