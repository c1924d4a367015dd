// The adapters to the desktop: message boxes, file names, and the guard of a transfer.
#include "child_process.h"
#include "machine_files.h"
#include "modal_dialog.h"
#include "open_windows.h"
#include "qt_dialogs.h"
#include "qt_printers.h"
#include "rows.h"
#include "transfer_guard.h"
#include "wheel.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <fstream>

#include <sys/wait.h>
#include <unistd.h>

namespace mr4500x {
namespace {

TEST(QtMessageView, AnswersAsTheKeySays) {
  const std::tuple<const char*, MessageButtons, Qt::Key, Answer> cases[] = {
      {"left", MessageButtons::Ok, Qt::Key_Escape, Answer::Ok},
      {"no is the default of two", MessageButtons::YesNo, Qt::Key_Return, Answer::No},
      {"yes is the default of three", MessageButtons::YesNoCancel, Qt::Key_Return, Answer::Yes},
      {"cancel is the default without a copy", MessageButtons::YesNoOrCancel, Qt::Key_Return, Answer::Cancel},
      {"cancel is the way out", MessageButtons::YesNoCancel, Qt::Key_Escape, Answer::Cancel},
  };
  for (const auto& [name, buttons, key, answer] : cases) {
    SCOPED_TRACE(name);
    WhenDialogOpens([key = key](QWidget* dialog) {
      const auto* const box = qobject_cast<QMessageBox*>(dialog);
      EXPECT_EQ(box->windowTitle() + box->text(), "Titlea <b> & c");
      EXPECT_EQ(box->textFormat(), Qt::PlainText);
      QTest::keyClick(dialog, key);
    });
    UserInput input;
    EXPECT_EQ(QtMessageView(input).Show(MessageIcon::None, "Title", "a <b> & c", buttons), answer);
  }
  QDialog dialog;
  QMainWindow window;
  dialog.show();
  EXPECT_EQ(OwnerWindow(), nullptr) << "neither a hidden window nor a dialog that is not modal";
  window.show();
  EXPECT_EQ(OwnerWindow(), &window);
  dialog.hide();
  dialog.open();
  EXPECT_EQ(OwnerWindow(), &dialog);
}

TEST(ProgramStyle, ShowsBoxesAndPlaceholdersOnADarkWindowAndTheFocusEverywhere) {
  UseProgramStyle();
  const QPalette dark(QColor(50, 54, 58), QColor(34, 32, 32));
  QPalette placeholder = dark;
  placeholder.setColor(QPalette::PlaceholderText, Qt::black);
  QApplication::style()->polish(placeholder);
  EXPECT_EQ(placeholder.color(QPalette::PlaceholderText).value(), 255);
  const QStyle& style = *QApplication::style();
  QImage picture(4 * 16, 4 * 16, QImage::Format_RGB32); // on a dark and a light window, each enabled and grey
  QPainter painter(&picture);
  painter.setBrush(Qt::red); // that the edge of a box does not take over
  for (int cell = 0; cell < 16; ++cell) {
    static constexpr std::array elements = {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton,
                                            QStyle::PE_IndicatorItemViewItemCheck, QStyle::PE_IndicatorArrowDown};
    QStyleOptionButton option;
    option.palette = cell < 8 ? dark : QPalette(Qt::lightGray);
    option.state = QStyle::State_Off | (cell % 8 < 4 ? QStyle::State_Enabled : QStyle::State_None);
    option.rect = QRect(cell % 4 * 16, cell / 4 * 16, 16, 16);
    painter.fillRect(option.rect, option.palette.window());
    style.drawPrimitive(elements[static_cast<std::size_t>(cell % 4)], &option, &painter);
  }
  if (qEnvironmentVariableIsSet("MR4500X_WRITE_WINDOWS")) picture.save(STATES "indicators.png");
  EXPECT_EQ(picture, QImage(STATES "indicators.png").convertToFormat(picture.format()));
  EXPECT_EQ(style.styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons), 0);
  EXPECT_NE(style.styleHint(QStyle::SH_ComboBox_ListMouseTracking), 0);
  QWidget window;
  auto* const list = new QComboBox(&window);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  list->setFocus(); // not by Tab
  EXPECT_TRUE(window.testAttribute(Qt::WA_KeyboardFocusChange)) << "the control that keys act on has no frame";
  QApplication::setStyle("Fusion");
}

TEST(QtFileDialogs, GivesANameTheExtensionOfTheChosenFilter) {
  const QTemporaryDir folder;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path()); // Qt keeps the columns
  const FileQuestion question = {"Save", "Data Files(*.K4X)|*.K4X|Data Files(*.K4Y)|*.K4Y", folder.path().toStdString(),
                                 "proposed.K4X", "K4X"};
  const char* const filters[] = {"Data Files(*.K4X) (*.K4X *.k4x)", "Data Files(*.K4Y) (*.K4Y *.k4y)"};
  for (const Row& row : RowsOf(STATES "extensions.txt", "\"(.*)\" as K4([XY]) -> (.*)")) {
    const std::string whole = row[3] == "cancelled" ? "" : row[3];
    WhenDialogOpens([&, filter = row[2] == "X" ? 0 : 1](QWidget* widget) {
      EXPECT_EQ(qobject_cast<QFileDialog*>(widget)->nameFilters().at(filter), filters[filter]);
      auto* const box = widget->findChild<QLineEdit*>("fileNameEdit");
      EXPECT_EQ(widget->windowTitle() + widget->findChild<QComboBox*>("fileTypeCombo")->currentText() + box->text(),
                "SaveData Files(*.K4X)proposed.K4X");
      const QHeaderView& details = *widget->findChild<QTreeView*>("treeView")->header();
      EXPECT_EQ(details.sectionResizeMode(1), QHeaderView::ResizeToContents) << "sizes and dates may be truncated";
      QTest::keyClick(widget->findChild<QComboBox*>("fileTypeCombo"), filter == 0 ? Qt::Key_Home : Qt::Key_End);
      box->setText(QString::fromStdString(row[1]));
      whole.empty() ? qobject_cast<QDialog*>(widget)->reject() : QTest::keyClick(box, Qt::Key_Return);
    });
    EXPECT_EQ(QtFileDialogs().AskSave(question).value_or(question.folder + "/"), question.folder + "/" + whole)
        << row[0];
  }
}

// Whether the user has typed the extension or the program adds it. The default answer is no.
TEST(QtFileDialogs, AskBeforeAFileIsReplaced) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("a.K4X");
  ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly));
  for (const char* const typed : {"a", "a.K4X"}) {
    SCOPED_TRACE(typed);
    QStringList asked;
    int namesGiven = 0;
    QObject user;
    std::function<void()> act = [&] {
      QTimer::singleShot(1, &user, [&] { act(); });
      QWidget* const dialog = QApplication::activeModalWidget();
      if (const auto* const box = qobject_cast<QMessageBox*>(dialog)) {
        asked.append(box->text().section('\n', 0, 0));
        asked.size() < 3 ? QTest::keyClick(dialog, Qt::Key_Return) : box->button(QMessageBox::Yes)->click();
      } else if (dialog != nullptr && namesGiven == asked.size()) {
        ++namesGiven;
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(namesGiven == 1 ? "none/a" : typed);
        QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
      }
    };
    act();
    const FileQuestion question = {"Save As", "Data Files(*.K4X)|*.K4X", folder.path().toStdString(), "", "K4X"};
    EXPECT_EQ(QtFileDialogs().AskSave(question), file.toStdString());
    EXPECT_EQ(asked, QStringList({folder.filePath("none"), "a.K4X already exists.", "a.K4X already exists."}));
  }
}

TEST(QtFontDialog, ReturnsWhatIsChosenAndKeepsTheNameOfAFontThatIsMissing) {
  const FontDescription preset{"No such font", 9, false, true};
  for (const bool isCancelled : {true, false}) {
    WhenDialogOpens([isCancelled](QWidget* widget) {
      auto* const dialog = qobject_cast<QFontDialog*>(widget);
      QFont font = dialog->currentFont();
      EXPECT_TRUE(font.pointSize() == 9 && font.italic() && !font.bold());
      EXPECT_TRUE(std::ranges::none_of(dialog->findChildren<QCheckBox*>(), &QWidget::isVisible)) << "unused effects";
      font.setPointSize(12);
      dialog->setCurrentFont(font);
      isCancelled ? dialog->reject() : dialog->accept();
    });
    const auto chosen = QtFontDialog().AskFont(preset);
    EXPECT_EQ(chosen, isCancelled ? std::nullopt : std::optional(FontDescription{preset.name, 12, false, true}));
  }
}

TEST(WindowGeometry, IsStoredInTwips) {
  const QTemporaryDir folder;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
  QWidget window;
  window.setGeometry(20, 40, 400, 300);
  StoreWindowGeometry(GeometryOf(window));
  std::ifstream file(folder.filePath("MR4500X/MR4500X.conf").toStdString());
  const std::string stored{std::istreambuf_iterator<char>(file), {}};
  EXPECT_EQ(stored, "[Settings]\nMainHeight=4500\nMainLeft=300\nMainTop=600\nMainWidth=6000\n");
}

// The program ends as in a crash, without a signal to its child.
TEST(ChildProcess, EndsWithTheProgram) {
  int ends[2] = {};
  ASSERT_EQ(pipe(ends), 0);
  const pid_t program = fork();
  if (program == 0) {
    QProcess child;
    EndWithProgram(child);
    child.start("sleep", {"1000"});
    const qint64 id = child.waitForStarted() ? child.processId() : 0;
    _exit(write(ends[1], &id, sizeof id) == sizeof id ? 0 : 1);
  }
  qint64 id = 0;
  ASSERT_EQ(read(ends[0], &id, sizeof id), static_cast<ssize_t>(sizeof id));
  waitpid(program, nullptr, 0);
  ASSERT_NE(id, 0);
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return std::ifstream("/proc/" + std::to_string(id) + "/cmdline").get() == EOF; }, 5000));
}

TEST(QtPrinters, AreSetUpWithoutAnyPrinting) {
  const QTemporaryDir folder;
  const QString pdf = folder.filePath("a.pdf");
  QtPrinters printers([](const auto&, auto) { return false; });
  WhenDialogOpens([&](QWidget* dialog) {
    dialog->findChild<QComboBox*>("printers")->setCurrentText("Print to File (PDF)");
    dialog->findChild<QLineEdit*>("filename")->setText(pdf);
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
  });
  printers.SetUpPrinter("Printer Setup");
  EXPECT_EQ(printers.PdfFile(), pdf.toStdString());
  printers.SetPdfFile("/b.pdf");
  EXPECT_EQ(printers.PdfFile(), "/b.pdf");
  const std::unique_ptr<Printer> printer = printers.CurrentPrinter();
  EXPECT_EQ(printer->BeginJob("title"), std::nullopt);
  EXPECT_EQ(printer->EndJob(), "The PDF file /b.pdf can't be written.");
  EXPECT_FALSE(QFile::exists(pdf));
}

TEST(TransferGuard, LetsTheUserActOnlyInMessageBoxes) {
  UserInput input;
  QLineEdit line;
  line.show();
  QSpinBox wheel;
  const auto typed = [&] {
    line.clear();
    wheel.setValue(0);
    QTest::keyClick(&line, Qt::Key_X);
    TurnWheel(wheel, 1);
    EXPECT_EQ(wheel.value() == 1, line.text() == "x");
    return line.text() == "x";
  };
  const auto isBusy = [] { return QGuiApplication::overrideCursor() != nullptr; };
  for (const auto pointer : {HeldPointer::Busy, HeldPointer::Unchanged}) {
    EXPECT_TRUE(typed());
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
