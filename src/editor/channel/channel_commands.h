// The commands for whole channels, with undo and redo: by keys, in the window's menus, and in a context menu on the
// channel grid. Elsewhere the context menu has only the commands that do not concern channels. They apply to the
// selected rows or else to the current one. Each is an action: a child of the panel, found by its name.
#pragma once

#include "channel_grid.h"
#include "channel_text.h"
#include "message_view.h"

#include <vector>

class QAction;
class QMenu;

namespace mr4500x {

class EditHistory;
class EditorPanel;

class ChannelCommands final : public QObject {
  Q_OBJECT
public:
  ChannelCommands(EditorPanel& panel, ChannelGrid& grid, EditHistory& history, RadioImage& image,
                  const FieldTexts& texts, MessageView& messages);

  void UpdateWhenShown(QMenu& menu); // each time it opens, greys what can't be used

private:
  struct Row;

  enum class Menu { Whole, OutsideGrid };
  void ShowMenu(const QPoint& at, Menu menu);
  void UpdateActions();
  void Run(const Row& row);
  void CopyChannels();
  void CutChannels();
  void PasteChannels();
  void MoveUp() { Move(-1); }
  void MoveDown() { Move(1); }
  void Move(int by);
  void FillDown();
  void Use() { SetInUse(true); }
  void DontUse() { SetInUse(false); }
  void SetInUse(bool isInUse);
  void Clear();
  void Compare();
  void Undo();
  void Redo();

  [[nodiscard]] Channels ChosenChannels() const;
  // Shows the refused values, or the changed configuration as a step of the history.
  void Finish(const Configuration& changed, const std::vector<RefusedCell>& refused = {});

  EditorPanel& m_panel;
  ChannelGrid& m_grid;
  EditHistory& m_history;
  RadioImage& m_image;
  const FieldTexts& m_texts;
  MessageView& m_messages;
  std::vector<QAction*> m_actions; // indexed by row of the table
  QString m_running;               // the name of the command
};

} // namespace mr4500x
