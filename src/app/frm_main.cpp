#include "frm_main.h"

#include "editor_panel.h"
#include "embed_commands.h"
#include "file_commands.h"
#include "frm_about.h"
#include "locale_texts.h"
#include "print_command.h"
#include "program_icons.h"
#include "program_title.h"
#include "radio_commands.h"
#include "recent_menu.h"
#include "settings.h"
#include "status_panels.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLocale>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

#include <utility>

namespace mr4500x {

FrmMain::FrmMain(MainServices services)
    : m_services(std::move(services)), m_texts(BuildFieldTexts(DecimalSeparatorOf(QLocale()))) {
  setObjectName(QStringLiteral("frmMain"));
  setWindowIcon(ProgramIcon("program"));
  setContextMenuPolicy(Qt::NoContextMenu); // Qt's would offer to hide the toolbar
  BuildMenus();
  BuildToolbar();
  BuildPanel();
  BuildCommands();
  Load();
  TakeDesignSize();
}

FrmMain::~FrmMain() = default;

void FrmMain::BuildPanel() {
  m_panel = new EditorPanel(m_image, m_texts, m_services.messages);
  connect(m_panel, &EditorPanel::Changed, this, [this] { m_state.ModifiedFlag = true; });
  auto* const scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(m_panel);
  auto* const filler = new QWidget;
  filler->setAutoFillBackground(true);
  scroll->setCornerWidget(filler);
  setCentralWidget(scroll);

  setWindowTitle(QString::fromStdString(TitleOf(m_state.origin)));
  m_status = new StatusPanels(QString::fromUtf8(ProgramTitle));
  setStatusBar(m_status);
  // A click outside the controls commits an open editor.
  m_status->installEventFilter(this);
  scroll->viewport()->installEventFilter(this);
}

void FrmMain::BuildCommands() {
  m_recent = std::make_unique<RecentMenu>(m_mnuRecent, m_services.files, m_services.settingsFile,
                                          [this](const std::string& path) { OpenGiven(path); });
  const CommandContext context = {m_services, m_image, m_state, *m_panel, *m_recent, *m_status, *m_mnuFileClose, *this};
  m_fileCommands = std::make_unique<FileCommands>(context);
  m_radioCommands = std::make_unique<RadioCommands>(context);
  m_embedCommands = std::make_unique<EmbedCommands>(context);
}

void FrmMain::Load() {
  m_state.CommPortNumber = LoadPortSetting(m_services.files, m_services.settingsFile);
  m_status->ShowPort(m_state.CommPortNumber);
  m_panel->FillReset(m_services.now());
  m_recent->Rebuild();
  m_state.ModifiedFlag = false;
  ShowView(View::Channel);
  m_panel->CommitOpenEditors(); // no field has the focus at the start
}

// As large as the panel, but not larger than the screen.
void FrmMain::TakeDesignSize() {
  QWidget* const scroll = centralWidget();
  scroll->setMinimumSize(m_panel->size());
  const QSize wanted = sizeHint();
  scroll->setMinimumSize(0, 0);
  const QSize border(0, style()->pixelMetric(QStyle::PM_TitleBarHeight)); // the real frame is not known yet
  resize(wanted.boundedTo(screen()->availableSize() - border));
}

void FrmMain::ShowView(View view) {
  const bool isChannel = view == View::Channel;
  if (isChannel)
    m_panel->ShowChannelView();
  else
    m_panel->ShowFunctionView();
  m_mnuOptionChannels->setChecked(isChannel);
  m_mnuOptionFunction->setChecked(!isChannel);
  m_btnChanWin->setEnabled(!isChannel);
  m_btnFuncWin->setEnabled(isChannel);
}

void FrmMain::RunCommand(const std::function<void()>& command) {
  if (m_running) return;
  struct Ending {
    FrmMain& window;
    ~Ending() {
      window.m_services.progress.Close();
      if (window.m_services.port.IsOpen()) window.m_services.port.Close();
      window.m_running = false;
    }
  } const ending{*this};
  m_running = true;
  command();
}

// Refused while a command runs, for instance one that waits in a message box.
void FrmMain::closeEvent(QCloseEvent* event) {
  event->ignore();
  RunCommand([&] {
    if (m_fileCommands->PrepareExit() == CloseEnd::Cancelled) return;
    for (QWidget* const window : QApplication::topLevelWidgets())
      if (window != this && window->isVisible()) window->close();
    if (!isMinimized()) m_services.storeGeometry(GeometryOf(*this));
    event->accept();
  });
}

bool FrmMain::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) m_panel->CommitOpenEditors();
  return QMainWindow::eventFilter(watched, event);
}

void FrmMain::OpenGiven(const std::string& path) {
  RunCommand([&] { m_fileCommands->OpenGiven(path); });
}
void FrmMain::mnuFileOpen_Click() {
  RunCommand([this] { m_fileCommands->Open(); });
}
void FrmMain::mnuFileClose_Click() {
  RunCommand([this] { m_fileCommands->Close(); });
}
void FrmMain::mnuFileSave_Click() {
  RunCommand([this] { m_fileCommands->Save(); });
}
void FrmMain::mnuFileSaveAs_Click() {
  RunCommand([this] { m_fileCommands->SaveAs(); });
}
void FrmMain::mnuFilePrint_Click() {
  RunCommand([this] { PrintChosenReports(m_services, *m_panel, m_image, this); });
}
void FrmMain::mnuFileExit_Click() {
  close();
}
void FrmMain::mnuEditCopy_Click() {
  RunCommand([this] { m_panel->Copy(); });
}
void FrmMain::mnuEditPaste_Click() {
  RunCommand([this] { m_panel->Paste(); });
}
void FrmMain::mnuOptionChannels_Click() {
  ShowView(View::Channel);
}
void FrmMain::mnuOptionFunction_Click() {
  ShowView(View::Function);
}
void FrmMain::mnuProgramRead_Click() {
  RunCommand([this] { m_radioCommands->Read(); });
}
void FrmMain::mnuProgramWrite_Click() {
  RunCommand([this] { m_radioCommands->Write(); });
}
void FrmMain::mnuEmbedInfo_Click() {
  RunCommand([this] { m_embedCommands->Info(); });
}
void FrmMain::mnuEmbedRead_Click() {
  RunCommand([this] { m_embedCommands->Read(); });
}
void FrmMain::mnuEmbedWrite_Click() {
  RunCommand([this] { m_embedCommands->Write(); });
}
void FrmMain::mnuCommPortPort_Click() {
  RunCommand([this] { m_radioCommands->Port(); });
}

void FrmMain::mnuHelpContents_Click() {
  RunCommand([this] {
    m_panel->CommitOpenEditors();
    m_services.help.OpenContents();
  });
}

void FrmMain::mnuHelpIndex_Click() {
  RunCommand([this] {
    m_panel->CommitOpenEditors();
    m_services.help.OpenIndex();
  });
}

void FrmMain::mnuHelpAbout_Click() {
  RunCommand([this] { FrmAbout(m_services.openLink, this).exec(); });
}

} // namespace mr4500x
