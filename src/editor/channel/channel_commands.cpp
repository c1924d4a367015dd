#include "channel_commands.h"

#include "edit_history.h"
#include "editor_panel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>

namespace mr4500x {

// A row without a text is a separator of the menu.
struct ChannelCommands::Row {
  const char* text = "";
  const char* name = "";
  const char* keys = ""; // several are separated by semicolons
  void (ChannelCommands::*run)() = nullptr;
  bool isEverywhere = false; // otherwise it belongs to the grid

  static std::span<const Row> Table();
};

// clang-format off
std::span<const ChannelCommands::Row> ChannelCommands::Row::Table() {
  static constexpr Row rows[] = {
    {"Cop&y Channels",  "mnuChannelsCopy",  "Ctrl+Shift+C",         &ChannelCommands::CopyChannels},
    {"Cu&t Channels",   "mnuChannelsCut",   "Ctrl+Shift+X",         &ChannelCommands::CutChannels},
    {"Paste Cha&nnels", "mnuChannelsPaste", "Ctrl+Shift+V",         &ChannelCommands::PasteChannels},
    {},
    {"&Move Up",        "mnuChannelsUp",    "Alt+Up",               &ChannelCommands::MoveUp},
    {"Move &Down",      "mnuChannelsDown",  "Alt+Down",             &ChannelCommands::MoveDown},
    {"&Fill Down",      "mnuChannelsFill",  "Ctrl+D",               &ChannelCommands::FillDown},
    {"U&se",            "mnuChannelsUse",   "Ctrl+U",               &ChannelCommands::Use},
    {"D&on't Use",      "mnuChannelsDontUse", "Ctrl+Shift+U",       &ChannelCommands::DontUse},
    {"C&lear Channels", "mnuChannelsClear", "",                     &ChannelCommands::Clear},
    {},
    {"Compare &with File...", "mnuChannelsCompare", "",             &ChannelCommands::Compare, true},
    {"",                "",                 "",                     nullptr, true},
    {"&Undo",           "mnuUndo",          "Ctrl+Z",               &ChannelCommands::Undo, true},
    {"&Redo",           "mnuRedo",          "Ctrl+Shift+Z; Ctrl+Y", &ChannelCommands::Redo, true},
  };
  return rows;
}
// clang-format on

ChannelCommands::ChannelCommands(EditorPanel& panel, ChannelGrid& grid, EditHistory& history, RadioImage& image,
                                 const FieldTexts& texts, MessageView& messages)
    : QObject(&panel), m_panel(panel), m_grid(grid), m_history(history), m_image(image), m_texts(texts),
      m_messages(messages) {
  for (const Row& row : Row::Table()) {
    auto* const action = new QAction(tr(row.text), this);
    m_actions.push_back(action);
    if (row.run == nullptr) {
      action->setSeparator(true);
      continue;
    }
    action->setObjectName(QLatin1String(row.name));
    action->setShortcuts(QKeySequence::listFromString(QLatin1String(row.keys)));
    action->setShortcutContext(row.isEverywhere ? Qt::WindowShortcut : Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
    (row.isEverywhere ? static_cast<QWidget&>(panel) : grid).addAction(action);
    connect(action, &QAction::triggered, this, [this, &row] { Run(row); });
  }
  connect(&grid, &ChannelGrid::MenuAsked, this, [this](const QPoint& at) { ShowMenu(at, Menu::Whole); });
  connect(&panel, &EditorPanel::MenuAsked, this, [this](const QPoint& at) { ShowMenu(at, Menu::OutsideGrid); });
  connect(&panel, &EditorPanel::Changed, &grid, &ChannelGrid::UnselectRows);
}

void ChannelCommands::ShowMenu(const QPoint& at, Menu which) {
  m_panel.CommitCells();
  auto* const menu = new QMenu(&m_panel);
  menu->setObjectName(QStringLiteral("mnuChannels"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (std::size_t i = 0; i < m_actions.size(); ++i)
    if (which == Menu::Whole || Row::Table()[i].isEverywhere) menu->addAction(m_actions[i]);
  UpdateWhenShown(*menu);
  menu->popup(at);
}

void ChannelCommands::UpdateWhenShown(QMenu& menu) {
  connect(&menu, &QMenu::aboutToShow, this, &ChannelCommands::UpdateActions);
  connect(&menu, &QMenu::aboutToHide, this, [this] {
    for (QAction* const action : m_actions)
      action->setEnabled(true);
  });
}

// A command that can't be used is grey while a menu is open. At other times its keys work, and it reports why it does
// nothing. Paste is never grey, because the owner of the clipboard may take a long time to answer.
void ChannelCommands::UpdateActions() {
  m_history.TakeStep();
  const QUndoStack& stack = m_history.Stack();
  const bool areChannels = m_panel.ShowsChannels();
  for (std::size_t i = 0; i < m_actions.size(); ++i) {
    const Row& row = Row::Table()[i];
    const bool isUndo = row.run == &ChannelCommands::Undo, isRedo = row.run == &ChannelCommands::Redo;
    m_actions[i]->setEnabled(isUndo   ? stack.canUndo()
                             : isRedo ? stack.canRedo()
                                      : row.isEverywhere || (areChannels && (row.run != &ChannelCommands::FillDown ||
                                                                             !m_grid.SelectedRows().empty())));
    if (!isUndo && !isRedo) continue;
    QString step = isUndo ? stack.undoText() : stack.redoText();
    m_actions[i]->setText((tr(row.text) + ' ' + step.replace('&', QLatin1String("&&"))).trimmed());
  }
}

void ChannelCommands::Run(const Row& row) {
  m_running = tr(row.text).remove('&');
  if (m_grid.currentRow() < 0) m_grid.setCurrentCell(0, 0); // the grid has never had the focus
  if (!row.isEverywhere) m_grid.ScrollToCurrent();
  (this->*row.run)();
}

Channels ChannelCommands::ChosenChannels() const {
  std::set<int> rows = m_grid.SelectedRows();
  if (rows.empty()) rows.insert(m_grid.currentRow());
  return {rows.begin(), rows.end()};
}

void ChannelCommands::Finish(const Configuration& changed, const std::vector<RefusedCell>& refused) {
  if (!refused.empty()) {
    m_messages.Show(MessageIcon::Exclamation, m_running.toStdString(), MessageOf(WordsForPasted(refused)),
                    MessageButtons::Ok);
    return;
  }
  const std::set<int> rows = m_grid.SelectedRows();
  const Configuration before = m_panel.Shown();
  m_panel.Change(changed, m_running);
  m_grid.SelectRows(rows); // for the next command
  int unseen = 0;
  for (std::size_t i = 0; i < ChannelCount; ++i)
    if (changed.channels[i].noCh && before.channels[i].noCh && changed.channels[i] != before.channels[i]) ++unseen;
  emit m_panel.StatusMessage(unseen == 0
                                 ? tr("Done: %1").arg(m_running)
                                 : tr("Done: %1 (channels that are not in use: %2)").arg(m_running).arg(unseen));
}

void ChannelCommands::CopyChannels() {
  const Channels channels = ChosenChannels();
  QGuiApplication::clipboard()->setText(QString::fromStdString(TextOfChannels(m_panel.Shown(), channels)));
  emit m_panel.StatusMessage(tr("Channels copied: %1").arg(channels.size()));
}

void ChannelCommands::CutChannels() {
  CopyChannels();
  Clear();
}

void ChannelCommands::PasteChannels() {
  const QString text = QGuiApplication::clipboard()->text();
  if (text.trimmed().isEmpty()) return emit m_panel.StatusMessage(tr("There is nothing to paste."));
  Configuration values = m_panel.Shown();
  const auto first = static_cast<std::size_t>(m_grid.currentRow());
  const ChannelList list = TakeChannels(values, first, text.toStdString(), m_texts);
  Finish(values, list.bad);
  if (list.bad.empty() && !list.leftOut.empty())
    m_messages.Show(MessageIcon::Information, m_running.toStdString(), MessageOf(list.leftOut, LeftOutText),
                    MessageButtons::Ok);
}

void ChannelCommands::Move(int by) {
  Configuration values = m_panel.Shown();
  Channels channels = ChosenChannels();
  RadioImage image = m_image;
  if (!MoveChannels(values, image, channels, by)) return;
  const std::set<int> rows = m_grid.SelectedRows();
  const bool areSelected = !rows.empty();
  const bool isCurrentAmong = !areSelected || rows.contains(m_grid.currentRow());
  m_panel.Change(values, image, m_running);
  if (isCurrentAmong) m_grid.setCurrentCell(m_grid.currentRow() + by, m_grid.currentColumn());
  if (areSelected) m_grid.SelectRows({channels.begin(), channels.end()});
}

void ChannelCommands::FillDown() {
  const std::set<int> rows = m_grid.SelectedRows();
  if (rows.empty()) return;
  Configuration values = m_panel.Shown();
  const auto column = static_cast<GridColumn>(m_grid.currentColumn() + 1);
  const std::string value = m_grid.Text(m_grid.currentRow(), column).toStdString();
  Finish(values, FillChannels(values, column, value, {rows.begin(), rows.end()}, m_texts));
}

void ChannelCommands::SetInUse(bool isInUse) {
  Configuration values = m_panel.Shown();
  for (const std::size_t channel : ChosenChannels())
    values.channels[channel].noCh = !isInUse;
  Finish(values);
}

void ChannelCommands::Clear() {
  Configuration values = m_panel.Shown();
  ClearChannels(values, ChosenChannels(), m_texts);
  Finish(values);
}

void ChannelCommands::Compare() {
  emit m_panel.CompareAsked();
}

// Ctrl+Y in a text box also arrives here, because Qt supports it only on other systems.
void ChannelCommands::Undo() {
  m_panel.CommitCells();
  m_history.Undo();
}

void ChannelCommands::Redo() {
  if (auto* const box = qobject_cast<EntryBox*>(QApplication::focusWidget())) return box->redo();
  m_panel.CommitCells();
  m_history.Redo();
}

} // namespace mr4500x
