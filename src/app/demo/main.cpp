// mr4500x-demo FOLDER: drives the real window through its menus and dialogs and takes a screenshot of each step. It
// reads the radio, shows both views and the embedded information, saves the configuration and writes the radio. Exits
// with 0 if the radio was written.
#include "channel_record.h"
#include "open_windows.h"
#include "program.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <iostream>
#include <vector>

namespace {

using namespace mr4500x;

constexpr int PollMilliseconds = 100;
constexpr int MostPolls = 1200; // two minutes; a transfer takes seconds, so the window must hang

QString DataFile(const QString& folder) {
  return folder + QStringLiteral("/radio.K4X");
}

class Demo : public QObject {
public:
  // Pictures and the data file "radio.K4X" go to `folder`.
  Demo(FrmMain& window, QString folder);

  void Start() { m_poll.start(); }

private:
  struct Step {
    std::string text;           // printed on standard output unless empty
    std::string picture;        // taken after the step
    std::function<void()> work; // Poll answers the dialogs and message boxes that it opens
  };

  void Poll(); // answers an open dialog, else runs the next step
  void CheckProgress();
  bool AnswerDialog();
  void RunNextStep();
  void Trigger(const char* action);
  void OpenCell(GridColumn column);
  void PictureFrames();
  void Picture(QWidget& window, const std::string& name);

  FrmMain& m_window;
  QString m_folder;
  std::vector<Step> m_steps;
  std::size_t m_next = 0;
  QTimer m_poll;
  bool m_isWorking = false;
  bool m_progressPictured = false;
  int m_patience = MostPolls;
};

Demo::Demo(FrmMain& window, QString folder) : m_window(window), m_folder(std::move(folder)) {
  m_steps = {
      {"The window is open.", "01-start", [] {}},
      {"Choosing the port.", "", [this] { Trigger("mnuCommPortPort"); }},
      {"Reading the radio on COM1 ...", "04-channels", [this] { Trigger("mnuProgramRead"); }},
      {"Looking at the function settings.", "05-functions", [this] { Trigger("mnuOptionFunction"); }},
      {"", "", [this] { PictureFrames(); }},
      {"", "", [this] { Trigger("mnuOptionChannels"); }},
      {"", "", [this] { OpenCell(GridColumn::RxSelCall); }},
      {"", "", [this] { OpenCell(GridColumn::GroupCall); }},
      {"Reading the embedded information ...", "", [this] { Trigger("mnuEmbedRead"); }},
      {"Looking at it.", "", [this] { Trigger("mnuEmbedInfo"); }},
      {"Looking at what can be printed.", "", [this] { Trigger("mnuFilePrint"); }},
      {"Saving the configuration as " + DataFile(m_folder).toStdString() + ".", "08-saved",
       [this] { Trigger("mnuFileSave"); }},
      {"Writing it to the radio ...", "10-written", [this] { Trigger("mnuProgramWrite"); }},
  };
  m_poll.setInterval(PollMilliseconds);
  connect(&m_poll, &QTimer::timeout, this, &Demo::Poll);
}

void Demo::Poll() {
  if (--m_patience <= 0) {
    std::cout << "The window does not go on; giving up." << std::endl;
    m_poll.stop();
    QApplication::exit(1);
    return;
  }
  CheckProgress();
  if (!AnswerDialog() && !m_isWorking) RunNextStep();
}

// Once, halfway through the transfer.
void Demo::CheckProgress() {
  if (m_progressPictured) return;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    const auto* const bar = window->findChild<QProgressBar*>();
    if (bar == nullptr || bar->window() != window || !window->isVisible() || bar->value() < bar->maximum() / 2)
      continue;
    Picture(*window, "02-progress");
    m_progressPictured = true;
  }
}

bool Demo::AnswerDialog() {
  QWidget* const dialog = QApplication::activeModalWidget();
  if (dialog == nullptr) return false;
  if (auto* const box = qobject_cast<QMessageBox*>(dialog)) {
    std::cout << "  " << box->text().toStdString() << std::endl;
    Picture(*box, m_next == 3 ? "03-message" : "09-message");
    box->defaultButton()->click();
  } else if (auto* const files = qobject_cast<QFileDialog*>(dialog)) {
    files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(DataFile(m_folder));
    Picture(*files, "07-save-dialog");
    files->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
  } else { // changes nothing
    if (auto* const hint = dialog->findChild<QLabel*>(QStringLiteral("lblHint")))
      hint->setText(QStringLiteral("/dev/ttyUSB0")); // as with a cable; the simulated radio's path is the user's
    Picture(*dialog, dialog->objectName().toStdString());
    dialog->findChild<QPushButton*>(QStringLiteral("cmdCancel"))->click();
  }
  return true;
}

void Demo::RunNextStep() {
  if (m_next > 0 && !m_steps[m_next - 1].picture.empty()) Picture(m_window, m_steps[m_next - 1].picture);
  if (m_next == m_steps.size()) {
    const bool isWritten = m_window.State().origin == Origin(RadioOrigin{Transfer::Write});
    m_poll.stop();
    QApplication::exit(isWritten && QFileInfo::exists(DataFile(m_folder)) ? 0 : 1);
    return;
  }
  const Step& step = m_steps[m_next++];
  if (!step.text.empty()) std::cout << step.text << std::endl;
  m_isWorking = true;
  // Queued: a timer does not fire while its own handler waits in a dialog.
  QMetaObject::invokeMethod(
      this,
      [this, &step] {
        step.work();
        m_isWorking = false;
      },
      Qt::QueuedConnection);
}

void Demo::Trigger(const char* action) {
  m_window.findChild<QAction*>(QLatin1String(action))->trigger();
}

// Moves to the cell of the first channel, which is in use, and presses Space.
void Demo::OpenCell(GridColumn column) {
  auto* const grid = m_window.findChild<QAbstractItemView*>(QStringLiteral("gridChannel"));
  grid->setCurrentIndex(grid->model()->index(0, static_cast<int>(column) - 1));
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
  QApplication::sendEvent(grid, &press);
}

void Demo::PictureFrames() {
  for (const char* frame : {"fraRadio", "fraScan", "fraKey", "fraTTS", "fraResetTime"})
    if (auto* const shown = m_window.findChild<QWidget*>(QLatin1String(frame))) Picture(*shown, frame);
}

void Demo::Picture(QWidget& window, const std::string& name) {
  const QString file = m_folder + QLatin1Char('/') + QString::fromStdString(name) + QStringLiteral(".png");
  if (!window.grab().save(file)) std::cout << "  The picture " << file.toStdString() << " could not be saved.\n";
}

} // namespace

int main(int argc, char** argv) {
  ScaleByWholeFactors();
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); // whose controls it could not find
  const QApplication application(argc, argv);
  if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
    std::cerr << "usage: mr4500x-demo FOLDER\n";
    return 2;
  }
  UseProgramStyle();
  Program program;
  program.Window().show();
  Demo demo(program.Window(), QDir(QString::fromLocal8Bit(argv[1])).absolutePath());
  demo.Start();
  return QApplication::exec();
}
