// The program's windows in many states, compared as a whole with their descriptions. See window_states.txt.
#include "changes.h"
#include "frm_splash.h"
#include "program_fixture.h"
#include "qt_dialogs.h"
#include "qt_progress_view.h"
#include "rows.h"
#include "wheel.h"
#include "window_states.h"

#include <QAbstractItemModelTester>

#include <iterator>
#include <optional>
#include <sstream>

namespace mr4500x {
namespace {

struct ProgramStates : ProgramTest, testing::WithParamInterface<std::string> {
  ProgramStates() : ProgramTest(/*starts*/ false) {
    QApplication::clipboard()->clear();
    messageView = &view;
    progressView = &progress;
    PutInRadio();
    PutDataFile("taxi.K4X");
    RadioImage zero = image;
    image.ChannelBlock(4, 0) = 0; // not in use
    PutDataFile("other.K4X");
    image = zero;
    zero.ResetTimeBlock[StandardByte] = 0; // is refused
    EXPECT_TRUE(SaveDataFile(files, Path("zero.K4X"), zero));
    states.main = [this] { return window.get(); };
    states.happened = [this] {
      QStringList lines = QApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
      for (QString& line : lines)
        line.prepend("clipboard: ");
      for (const std::string& line : desktop.happened)
        lines.append("happened: " + QString::fromStdString(line));
      if (const auto& [title, filter, folder, name, extension, chosen] = desktop.lastQuestion; !title.empty())
        lines.append(QString::fromStdString("asked in " + folder + " for " + name + " of " + filter));
      return lines;
    };
    states.replaced = {
        {QRegularExpression(QRegularExpression::escape(QString::fromStdString(Path(""))) + '?'), "FOLDER/"},
        {QRegularExpression("\"Version [0-9][^\"]*"), "\"VERSION"},
        {QRegularExpression("Qt [0-9.]+"), "Qt VERSION"},
        {QRegularExpression("installed in[^\"]*"), "installed in FOLDER"},
        {QRegularExpression("\"\\d\\d:\\d\\d\""), "\"TIME\""}};
    const auto word = [this](const char* name, auto act) {
      states.words[name] = [act](const QString& rest) { return act(rest.toStdString()), true; };
    };
    word("start", [this](const auto&) { Start(); });
    word("splash", [this](const auto&) {
      window.reset(), splash.emplace().ShowPainted();
      EXPECT_EQ(splash->geometry().center(), splash->screen()->availableGeometry().center());
    });
    word("tip", [this](const std::string& name) {
      QHelpEvent tip(QEvent::ToolTip, {}, {});
      QCoreApplication::sendEvent(states.Find<QWidget>(QString::fromStdString(name)), &tip);
    });
    word("file", [this](const std::string& name) { desktop.paths.emplace_back(Path(name)); });
    word("put", [this](const std::string& name) {
      Put(name,
          name == "a_list_that_is_too_large.csv" ? "number\n" + std::string(std::size_t{1} << 20, '\n') : "LR7200");
    });
    word("kept", [this](const auto&) {
      std::filesystem::create_directory(Path("kept"));
      Put("kept/2004-11-03_09-05-07_0.K4X", "");
    });
    word("unwritable", [this](const std::string& name) { files.unwritable = {Path(name)}; });
    word("filter", [this](const std::string& number) { desktop.filter = std::stoul(number); });
    word("content", [this](const std::string& name) {
      desktop.happened.push_back(name + " begins " + Content(name).substr(0, 60));
    });
    word("crash", [this](const auto&) {
      window->KeepForSession();
      window.reset();
      Start();
      static_cast<void>(window->OpenLeftWork());
    });
    word("list", [this](const std::string& lines) {
      for (const char* const name : {"list.csv", "LIST.CSV"})
        Put(name, Unescaped(lines));
    });
    word("drop", [this](const std::string& what) {
      QMimeData data;
      const QMimeData gone; // the program that it comes from has ended
      QList<QUrl> urls;
      for (const QString& name : QString::fromStdString(what).split(' '))
        urls.append(QUrl::fromLocalFile(QString::fromStdString(Path(name.toStdString()))));
      if (what.starts_with("text "))
        data.setData("text/csv", QByteArray::fromStdString(Unescaped(what.substr(5))));
      else
        data.setUrls(urls);
      if (urls.size() == 2 && data.hasUrls()) data.setData("text/csv", "no list"); // what file managers add to them
      const Qt::DropActions offered = what == "moved.K4X" ? Qt::MoveAction : Qt::CopyAction | Qt::MoveAction;
      const QPoint onABox = window->findChild<QWidget*>("txtFreqBandL")->mapTo(window.get(), QPoint(3, 3));
      QDragEnterEvent enter(onABox, offered, &data, Qt::LeftButton, {});
      QCoreApplication::sendEvent(window->windowHandle(), &enter);
      QDropEvent drop(onABox, offered, what == "gone.K4X" ? &gone : &data, Qt::LeftButton, Qt::ShiftModifier);
      if (enter.isAccepted()) QCoreApplication::sendEvent(window->windowHandle(), &drop);
      desktop.happened.emplace_back(!enter.isAccepted()                                       ? "drag refused"
                                    : !drop.isAccepted()                                      ? "drop refused"
                                    : enter.dropAction() & drop.dropAction() & Qt::CopyAction ? "copied"
                                                                                              : "moved");
    });
    word("silent", [this](const auto&) { radio.openFailure = "gone"; });
    word("ports", [this](const std::string& numbers) {
      std::istringstream in(numbers);
      ports.working = {std::istream_iterator<int>(in), {}};
      serialPort = &ports;
      Start();
    });
    word("change", [this](const std::string& name) {
      const QString rest = QString::fromStdString(name);
      std::vector<Assignment> changes;
      for (const QString& change : rest.section(' ', 1).split(", ")) {
        const std::string field = change.section('=', 0, 0).toStdString(), value = change.section('=', 1).toStdString();
        if (field.starts_with("byte "))
          image.ChannelBlock(std::stoul(field.substr(5)), 12) = static_cast<std::uint8_t>(std::stoul(value, {}, 16));
        else
          changes.push_back({*FindField(field), value, /*asStored*/ true});
      }
      EXPECT_TRUE(ApplyChanges(image, changes, BuildFieldTexts('.')).empty());
      PutDataFile(rest.section(' ', 0, 0).toStdString());
    });
    word("become", [this](const std::string& names) {
      std::filesystem::remove(Path(names.substr(0, names.find(' '))));
      if (const std::string from = Path(names.substr(names.find(' ') + 1)); std::filesystem::exists(from))
        std::filesystem::copy_file(from, Path(names.substr(0, names.find(' '))));
    });
    states.words["activate"] = [this](const QString& name) {
      QWidget* const which = name == "frmMain" ? static_cast<QWidget*>(window.get()) : states.Find<QDialog>(name);
      if (which != nullptr) which->activateWindow();
      return which != nullptr && QApplication::activeWindow() == which;
    };
    word("double", [this](const std::string& row) {
      auto* const table = states.Find<QTableView>("tblDifferences");
      const QPoint at = table->visualRect(table->model()->index(std::stoi(row) - 1, 2)).center();
      QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, at);
      QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, at);
    });
    word("heading", [this](const std::string& column) {
      auto* const headings = states.Find<QTableView>("tblDifferences")->horizontalHeader();
      const QPoint at(headings->sectionViewportPosition(std::stoi(column) - 1) + 20, 5);
      QTest::mouseClick(headings->viewport(), Qt::LeftButton, {}, at);
    });
    word("wheel",
         [this](const std::string& turns) { TurnWheel(*states.Find<QComboBox>("cboTuneSwitch"), std::stoi(turns)); });
    word("models", [this](const auto&) {
      const auto fatal = QAbstractItemModelTester::FailureReportingMode::Fatal;
      for (auto* const table : {states.Find<QTableView>("tblDifferences"), states.Find<QTableView>("gridChannel")}) {
        new QAbstractItemModelTester(table->model(), fatal, table); // also of what follows
        EXPECT_FALSE(table->model()->data({}, Qt::DisplayRole).isValid());
      }
    });
    word("pdf", [this](const std::string& name) { desktop.pdfFile = Path(name); });
    word("frame", [this](const std::string& number) {
      states.CaptureLater();
      radio.spoil = [this, at = std::stoul(number)](std::size_t frame, LineBytes& /*reply*/) {
        if (frame == at) states.Capture();
      };
    });
  }

  QtMessageView view{input};
  QtProgressView progress{std::string(ProgramTitle)};
  SomePorts ports;
  std::optional<FrmSplash> splash;
  WindowStates states;
};

constexpr char Table[] = STATES "window_states.txt";

TEST_P(ProgramStates, AreAsDescribed) {
  states.Check(Table, STATES "window_states/", GetParam());
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  if (window == nullptr) return;
  EXPECT_TRUE(std::ranges::all_of(window->findChildren<QDialog*>(), &QWidget::isVisible)) << "a closed one is left";
}
INSTANTIATE_TEST_SUITE_P(, ProgramStates, testing::ValuesIn(WindowStates::NamesIn(Table)),
                         [](const auto& state) { return state.param; });

} // namespace
} // namespace mr4500x
