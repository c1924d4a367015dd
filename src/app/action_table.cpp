// The menus and the toolbar of frmMain, built from one table.
#include "frm_main.h"

#include "editor_panel.h"
#include "window_parts.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <algorithm>
#include <array>
#include <string_view>

namespace mr4500x {

enum class RowKind { Menu, Item, View, Tick, Separator, Recent, Panel, Hidden, HiddenSeparator, ButtonOnly };

struct FrmMain::ActionRow {
  RowKind kind;
  const char* text = "";
  const char* name = "";
  const char* shortcut = "";
  Handler handler = Command(); // none disables the action
  const char* key = "";        // the key of the toolbar button, and its object name
  const char* tip = "";
  const char* icon = "";
  QAction* FrmMain::*heldItem = nullptr; // members that keep the actions
  QAction* FrmMain::*heldButton = nullptr;

  static const ActionRow Table[];
};

// clang-format off
constexpr FrmMain::ActionRow FrmMain::ActionRow::Table[] = {
  // kind         text                      name                 shortcut  handler                            key        tip                 icon         held item, held button
  {RowKind::Menu,   "&File",                 "mnuFile"},
  {RowKind::Item,   "&Open...",              "mnuFileOpen",       "Ctrl+O", commands::Open,                    "Open",    "Open",             "open"},
  {RowKind::Item,   "&Close",                "mnuFileClose",      "",       commands::Close,                   "",        "",                 "",          &FrmMain::m_mnuFileClose},
  {RowKind::Separator},
  {RowKind::Item,   "&Save",                 "mnuFileSave",       "Ctrl+S", commands::Save,                    "Save",    "Save",             "save"},
  {RowKind::Item,   "Save &As...",           "mnuFileSaveAs",     "",       commands::SaveAs},
  {RowKind::Separator},
  {RowKind::Item,   "&Print...",             "mnuFilePrint",      "",       commands::Print,                   "Print",   "Print",            "print"},
  {RowKind::Separator},
  {RowKind::Recent, "",                             "mnuRecent(%1)"},
  {RowKind::Separator},
  {RowKind::Item,   "E&Xit",                 "mnuFileExit",       "",       &FrmMain::mnuFileExit_Click},
  {RowKind::Separator},
  {RowKind::Item,   "&Import Channels...",   "mnuFileImport",     "",       commands::AskImport},
  {RowKind::Item,   "&Export Channels...",   "mnuFileExport",     "",       commands::AskExport},
  {RowKind::Item,   "Save Sample &List...",  "mnuFileSample",     "",       commands::SaveSample},
  {RowKind::Panel,  "",                      "mnuChannelsCompare"},
  {RowKind::Item,   "Compare with &Radio...", "mnuFileCompareRadio", "",     commands::CompareRadio},
  {RowKind::Item,   "Reco&ver...",           "mnuFileRecover",    "",       commands::Recover},
  {RowKind::Menu,   "&Edit",                 "mnuEdit"},
  {RowKind::Item,   "&Copy",                 "mnuEditCopy",       "Ctrl+C", commands::Copy},
  {RowKind::Item,   "&Paste",                "mnuEditPaste",      "Ctrl+V", commands::Paste},
  {RowKind::Separator},
  {RowKind::Panel,  "",                      "mnuUndo"},
  {RowKind::Panel,  "",                      "mnuRedo"},
  {RowKind::Separator},
  {RowKind::Panel,  "",                      "mnuChannelsCopy"},
  {RowKind::Panel,  "",                      "mnuChannelsCut"},
  {RowKind::Panel,  "",                      "mnuChannelsPaste"},
  {RowKind::Separator},
  {RowKind::Panel,  "",                      "mnuChannelsUp"},
  {RowKind::Panel,  "",                      "mnuChannelsDown"},
  {RowKind::Panel,  "",                      "mnuChannelsFill"},
  {RowKind::Panel,  "",                      "mnuChannelsUse"},
  {RowKind::Panel,  "",                      "mnuChannelsDontUse"},
  {RowKind::Panel,  "",                      "mnuChannelsClear"},
  {RowKind::Menu,   "&Option",               "mnuOption"},
  {RowKind::View,   "&Channels Settings",    "mnuOptionChannels", "F5",     &FrmMain::mnuOptionChannels_Click, "ChanWin", "Channel Windows",  "channels",  &FrmMain::m_mnuOptionChannels, &FrmMain::m_btnChanWin},
  {RowKind::Separator},
  {RowKind::View,   "&Function Settings",    "mnuOptionFunction", "F6",     &FrmMain::mnuOptionFunction_Click, "FuncWin", "Function Windows", "functions", &FrmMain::m_mnuOptionFunction, &FrmMain::m_btnFuncWin},
  {RowKind::Menu,   "&Program",              "mnuProgram"},
  {RowKind::Item,   "&Read",                 "mnuProgramRead",    "Ctrl+R", commands::Read,                    "Read",    "Read",             "read"},
  {RowKind::Separator},
  {RowKind::Item,   " &Write",               "mnuProgramWrite",   "Ctrl+W", commands::Write,                   "Write",   "Write",            "write"},
  {RowKind::Separator},
  {RowKind::Tick,   "&Verify after Writing", "mnuProgramVerify",  "",       commands::ToggleVerify,            "",        "",                 "",          &FrmMain::m_mnuProgramVerify},
  {RowKind::Tick,   "&Back Up before Writing", "mnuProgramBackUp", "",      commands::ToggleBackUp,            "",        "",                 "",          &FrmMain::m_mnuProgramBackUp},
  {RowKind::Menu,   "&Embedded Information", "mnuEmbed"},
  {RowKind::Item,   "Embedded &Info...",     "mnuEmbedInfo",      "F2",     commands::EditInfo},
  {RowKind::Separator},
  {RowKind::Item,   "&Read Embedded Info",   "mnuEmbedRead",      "F3",     commands::ReadInfo},
  {RowKind::Item,   " &Write Embedded Info", "mnuEmbedWrite",     "F4",     commands::WriteInfo},
  {RowKind::HiddenSeparator},
  {RowKind::Hidden, "ID Number",             "mnuEmbedID"},
  {RowKind::Menu,   "&Comm-Port",            "mnuCommPort"},
  {RowKind::Item,   "&Port...     ",         "mnuCommPortPort",   "F9",     commands::Port,                    "Port",    "COM Port",         "port"},
  {RowKind::Menu,   "&Help",                 "mnuHelp"},
  {RowKind::Item,   "&Contents",             "mnuHelpContents",   "",       commands::HelpContents},
  {RowKind::Item,   "&Index...",             "mnuHelpIndex",      "",       commands::HelpIndex},
  {RowKind::Separator},
  {RowKind::Item,   "&About...",             "mnuHelpAbout",      "",       commands::About},
  {RowKind::Separator},
  {RowKind::Item,   "&Help on This Setting", "mnuHelpHere",       "F1",     commands::HelpHere},
  {RowKind::Item,   "&What's This",          "mnuHelpWhatsThis",  "Shift+F1", commands::WhatsThis},
  {RowKind::Tick,   "&Practise with a Simulated Radio", "mnuHelpPractise", "", commands::Practise,           "",        "",                 "",          &FrmMain::m_mnuHelpPractise},
  {RowKind::ButtonOnly, "",                         "",                  "",       commands::New,                     "New",     "new",              "new"},
};
// clang-format on

namespace {

// The keys from left to right; an empty one is a separator.
constexpr std::array<std::string_view, 13> ToolbarOrder = {"New",   "Open", "Save", "", "Print",   "",       "Read",
                                                           "Write", "",     "Port", "", "ChanWin", "FuncWin"};
constexpr int LeastIconSize = 24;
constexpr double IconLines = 1.6; // in line heights

} // namespace

void FrmMain::BuildMenus() {
  QMenu* menu = nullptr;
  for (const ActionRow& row : ActionRow::Table) {
    if (row.kind == RowKind::Menu) {
      menu = menuBar()->addMenu(tr(row.text));
      menu->setObjectName(QLatin1String(row.name));
      m_panel->UpdateWhenShown(*menu);
    } else if (menu != nullptr) {
      AddRow(*menu, row);
    }
  }
  m_mnuFileClose->setEnabled(false);
}

void FrmMain::AddRow(QMenu& menu, const ActionRow& row) {
  if (row.kind == RowKind::ButtonOnly) return;
  if (row.kind == RowKind::Separator || row.kind == RowKind::HiddenSeparator)
    return menu.addSeparator()->setVisible(row.kind == RowKind::Separator);
  if (row.kind == RowKind::Panel) return menu.addAction(m_panel->findChild<QAction*>(QLatin1String(row.name)));
  if (row.kind == RowKind::Recent) {
    for (int number = 0; QAction * &item : m_mnuRecent) {
      item = menu.addAction(QString(), this, [this, &item] { OpenGiven(item->data().toString().toStdString()); });
      item->setObjectName(QString::fromLatin1(row.name).arg(++number));
    }
    return;
  }
  QAction* const item = menu.addAction(tr(row.text));
  item->setObjectName(QLatin1String(row.name));
  item->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
  item->setCheckable(row.kind == RowKind::View || row.kind == RowKind::Tick);
  item->setVisible(row.kind != RowKind::Hidden);
  Connect(*item, row, row.heldItem);
}

void FrmMain::Connect(QAction& action, const ActionRow& row, QAction* FrmMain::*held) {
  if (held != nullptr) this->*held = &action;
  action.setEnabled(row.handler != Handler());
  connect(&action, &QAction::triggered, this, [this, &row] {
    if (const auto* const command = std::get_if<Command>(&row.handler))
      RunCommand(*command);
    else
      (this->*std::get<Event>(row.handler))();
  });
}

void FrmMain::BuildToolbar() {
  auto* const toolbar = new QToolBar;
  toolbar->setObjectName(QStringLiteral("tlbMain"));
  toolbar->setMovable(false);
  const int size = std::max(LeastIconSize, qRound(fontMetrics().height() * IconLines));
  toolbar->setIconSize(QSize(size, size));
  addToolBar(toolbar);
  for (const std::string_view key : ToolbarOrder) {
    if (key.empty()) {
      toolbar->addSeparator();
      continue;
    }
    for (const ActionRow& row : ActionRow::Table) {
      if (key != row.key) continue;
      QAction* const button = toolbar->addAction(ProgramIcon(row.icon), tr(row.tip));
      button->setObjectName(QLatin1String(row.key));
      button->setCheckable(row.kind == RowKind::View);
      Connect(*button, row, row.heldButton);
      toolbar->widgetForAction(button)->setObjectName(QLatin1String(row.key));
    }
  }
}

} // namespace mr4500x
