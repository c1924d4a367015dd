#include "frm_main.h"

#include "editor_panel.h"
#include "machine.h"
#include "practice_radio.h"
#include "program_title.h"
#include "setting_help.h"
#include "settings.h"
#include "transfer_guard.h"
#include "window_parts.h"
#include "work_keeper.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLocale>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QSessionManager>
#include <QStyle>
#include <QUrl>

#include <csignal>
#include <utility>

namespace mr4500x {
namespace {

// The path without "." and "..", so that a file has one title and one entry among the recent files. A ".." after a link
// to a folder needs the file itself.
std::string PlainPath(const QString& path) {
  const QFileInfo given(path);
  const QString plain = QDir::cleanPath(given.absoluteFilePath());
  return QDir::toNativeSeparators(QFileInfo(plain) == given ? plain : given.canonicalFilePath()).toStdString();
}

bool IsModifier(const QKeyEvent& event) {
  return (event.key() >= Qt::Key_Shift && event.key() <= Qt::Key_ScrollLock) || event.key() == Qt::Key_AltGr;
}

// The command for a dropped data file or list of channels, or none for anything else.
std::function<void(const CommandContext&)> CommandOfDrop(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  const QString path = urls.size() == 1 ? QDir::toNativeSeparators(urls.front().toLocalFile()) : QString();
  const QString extension = QFileInfo(path).suffix().toUpper();
  const auto with = [](auto command, std::string given) {
    return [command, given = std::move(given)](const CommandContext& context) { command(context, given); };
  };
  if (extension == QLatin1String("K4X") || extension == QLatin1String("K4Y"))
    return with(commands::OpenGiven, path.toStdString());
  if (extension == QLatin1String("CSV")) return with(commands::ImportFile, path.toStdString());
  const QString list = QStringLiteral("text/csv");
  if (urls.size() < 2 && data.hasFormat(list)) return with(commands::ImportChannels, data.data(list).toStdString());
  return {};
}

} // namespace

FrmMain::FrmMain(MainServices services)
    : m_services(std::move(services)), m_texts(BuildFieldTexts(DecimalSeparatorOf(QLocale()))) {
  setObjectName(QStringLiteral("frmMain"));
  setWindowIcon(ProgramIcon("program"));
  setAcceptDrops(true);
  setContextMenuPolicy(Qt::NoContextMenu); // Qt's would offer to hide the toolbar
  BuildPanel();
  BuildMenus();
  BuildToolbar();
  ShowSettingHelp(*this);
  new HelpEverywhere([this] { commands::HelpHere(Context()); }, this); // also while a command runs
  Load();
  TakeDesignSize();
  connect(
      qApp, &QGuiApplication::commitDataRequest, this,
      [this](QSessionManager& session) {
        if (!session.allowsInteraction()) return KeepForSession();
        m_endsUnasked = false;
        if (!MayLogOut()) session.cancel();
      },
      Qt::DirectConnection);
  connect(&m_services.practice, &PracticeRadio::Ended, this, [this] {
    commands::EndPractice(Context());
    ShowState();
  });
  qApp->installEventFilter(this);
}

void FrmMain::BuildPanel() {
  m_panel = new EditorPanel(m_image, m_texts, m_services.messages);
  connect(m_panel, &EditorPanel::Changed, this, [this] {
    m_state.ModifiedFlag = true; // after an undo as well: an unnecessary question loses nothing
    m_mayLogOut = false;
  });
  auto* const scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(m_panel);
  auto* const filler = new QWidget;
  filler->setAutoFillBackground(true);
  scroll->setCornerWidget(filler);
  setCentralWidget(scroll);

  ShowTitle(*this, TitleOf(m_state.origin));
  m_status = new StatusPanels(QString::fromUtf8(ProgramTitle), m_services.deviceOfPort);
  setStatusBar(m_status);
  m_keeper = new WorkKeeper(m_services, m_image, *m_panel, m_texts, this);
  connect(m_panel, &EditorPanel::CompareAsked, this, [this] { RunCommand(commands::Compare); });
  connect(m_panel, &EditorPanel::Changed, m_status, &StatusPanels::EndMessage);
  connect(m_panel, &EditorPanel::StatusMessage, m_status, &StatusPanels::ShowBriefly);
  connect(m_keeper, &WorkKeeper::CopyMissing, m_status, [this](bool isMissing) {
    m_status->SetPermanent(StatusPanels::Permanent::NoCopy,
                           isMissing ? tr("No copy of the unsaved work could be written.") : QString());
  });
  m_background = scroll->viewport();
}

CommandContext FrmMain::Context() {
  return {m_services, m_image, m_state, *m_panel, *m_status, *m_keeper, m_mnuRecent, *m_mnuFileClose, *this};
}

void FrmMain::Load() {
  m_state.CommPortNumber = LoadPortSetting(m_services.files, m_services.settingsFile);
  m_state.writeHabits = LoadWriteHabits(m_services.files, m_services.settingsFile);
  m_status->ShowPort(m_state.CommPortNumber);
  m_panel->FillReset(m_services.now());
  m_keeper->Settled(m_state.origin);
  commands::ShowRecentFiles(Context());
  m_state.ModifiedFlag = false;
  ShowView(View::Channel);
  ShowState();
  m_panel->CommitOpenEditors();
  m_panel->ReturnFocus(); // the grid has it at the start
}

// As large as the panel, but not larger than the screen.
void FrmMain::TakeDesignSize() {
  QWidget* const scroll = centralWidget();
  scroll->setMinimumSize(m_panel->size());
  // A multiple of 4 gives whole pixels at a scale of 125 or 150 %. A fraction of a pixel would cause scroll bars.
  const auto whole = [](int length) { return (length + 3) / 4 * 4; };
  const QSize wanted(whole(sizeHint().width()), whole(sizeHint().height()));
  scroll->setMinimumSize(0, 0);
  const QSize border(0, style()->pixelMetric(QStyle::PM_TitleBarHeight)); // the real frame is not known yet
  const QSize room = screen()->availableSize() - border;
  // A scroll bar must not take the room that makes the other one necessary.
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const QSize bars(wanted.height() > room.height() ? bar : 0, wanted.width() > room.width() ? bar : 0);
  resize((wanted + bars).boundedTo(room));
}

void FrmMain::ShowView(View view) {
  const bool isChannel = view == View::Channel;
  if (isChannel)
    m_panel->ShowChannelView();
  else
    m_panel->ShowFunctionView();
  m_mnuOptionChannels->setChecked(isChannel);
  m_mnuOptionFunction->setChecked(!isChannel);
  m_btnChanWin->setChecked(isChannel);
  m_btnFuncWin->setChecked(!isChannel);
  m_btnChanWin->setEnabled(!isChannel);
  m_btnFuncWin->setEnabled(isChannel);
}

void FrmMain::ShowState() {
  m_mnuProgramVerify->setChecked(m_state.writeHabits.verifies);
  m_mnuProgramBackUp->setChecked(m_state.writeHabits.backsUp);
  m_mnuHelpPractise->setVisible(m_services.practice.IsInstalled());
  m_mnuHelpPractise->setChecked(m_services.practice.Port() != 0);
}

void FrmMain::RunCommand(const std::function<void(const CommandContext&)>& command) {
  if (m_running) return;
  struct Ending {
    FrmMain& window;
    ~Ending() {
      window.m_services.progress.Close();
      if (window.m_services.port.IsOpen()) window.m_services.port.Close();
      window.m_panel->ReturnFocus();
      window.m_running = false;
      window.ShowState();
    }
  } const ending{*this};
  m_running = true;
  m_mayLogOut = false;
  command(Context());
}

// Refused while a command runs, for instance one that waits in a message box.
void FrmMain::closeEvent(QCloseEvent* event) {
  event->ignore();
  const bool mayClose = m_mayLogOut;
  RunCommand([&](const CommandContext& context) {
    if (!mayClose && commands::PrepareExit(context) == CloseEnd::Cancelled) return;
    for (QWidget* const window : QApplication::topLevelWidgets())
      if (window != this && window->isVisible()) window->close();
    StoreGeometry();
    event->accept();
  });
}

void FrmMain::dragEnterEvent(QDragEnterEvent* event) {
  event->setDropAction(Qt::CopyAction); // a move would delete what the user has
  event->setAccepted(event->possibleActions().testFlag(Qt::CopyAction) && CommandOfDrop(*event->mimeData()));
}

// Run after the drop, because a question would block the program that the file comes from.
void FrmMain::dropEvent(QDropEvent* event) {
  const auto command = CommandOfDrop(*event->mimeData());
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(command != nullptr); // the program that it comes from may have ended
  if (command) QTimer::singleShot(0, this, [this, command] { RunCommand(command); });
}

void FrmMain::StoreGeometry() {
  if (!isMinimized()) m_services.storeGeometry(GeometryOf(*this));
}

void FrmMain::KeepForSession() {
  m_endsUnasked = true;
  if (m_services.input.IsHeld()) return; // a transfer must not wait for the disk; the work was kept before it
  commands::StoreProgramSettings(Context());
  m_keeper->KeepNow();
  m_keeper->AwaitKept();
  StoreGeometry();
}

void FrmMain::EndBySignal(int signal) {
  m_keeper->End();
  KeepForSession();
  QCoreApplication::exit(128 + signal); // the exit status that a shell reports
}

bool FrmMain::MayLogOut() {
  bool mayLogOut = false; // false while a command runs
  RunCommand([&](const CommandContext& context) { mayLogOut = commands::PrepareExit(context) == CloseEnd::Closed; });
  return m_mayLogOut = mayLogOut;
}

bool FrmMain::eventFilter(QObject* watched, QEvent* event) {
  // A click outside the controls commits an open editor.
  if (event->type() == QEvent::MouseButtonPress && (watched == m_status || watched == m_background))
    m_panel->CommitOpenEditors();
  // A key must not act on what has been scrolled out of sight. Ctrl alone may begin a click elsewhere.
  if (event->type() == QEvent::KeyPress && watched == focusWidget() && !IsModifier(*static_cast<QKeyEvent*>(event)))
    m_panel->ScrollToFocus();
  if (event->type() == QEvent::Quit && m_endsUnasked && isVisible()) { // from the session; without a window from Qt
    EndBySignal(SIGTERM);
    return true;
  }
  return QMainWindow::eventFilter(watched, event);
}

void FrmMain::OpenGiven(const std::string& path) {
  RunCommand([&](const CommandContext& context) { commands::OpenGiven(context, path); });
}

void FrmMain::OpenArgument(const QString& path) {
  OpenGiven(PlainPath(path));
}

bool FrmMain::OpenLeftWork() {
  bool isOpened = false;
  RunCommand([&](const CommandContext& context) { isOpened = commands::OpenLeftWork(context); });
  return isOpened;
}

} // namespace mr4500x
