#pragma once

#include "editor_state.h"
#include "main_services.h"
#include "radio_image.h"

#include <QAction>
#include <QWidget>

#include <utility>

namespace mr4500x {

class EditorPanel;
class RecentMenu;
class StatusPanels;

// What the commands work on, all owned by the main window.
struct CommandContext {
  MainServices& services;
  RadioImage& image;
  EditorState& state;
  EditorPanel& panel;
  RecentMenu& recent;
  StatusPanels& status;
  QAction& closeItem;
  QWidget& window;

  void SetOrigin(Origin origin) const {
    state.origin = std::move(origin);
    window.setWindowTitle(QString::fromStdString(TitleOf(state.origin)));
  }
};

} // namespace mr4500x
