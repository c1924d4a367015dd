// What the commands of the main window work on. The window owns all of it.
#pragma once

#include "editor_state.h"
#include "main_services.h"
#include "radio_image.h"

#include <QAction>
#include <QWidget>

#include <string>
#include <string_view>

namespace mr4500x {

class EditorPanel;
class RecentMenu;
class StatusPanels;

struct CommandContext {
  MainServices& services;
  RadioImage& image;
  EditorState& state;
  EditorPanel& panel;
  RecentMenu& recent;
  StatusPanels& status;
  QAction& closeItem;
  QWidget& window;
  std::string& title;

  [[nodiscard]] std::string Title() const { return title; }
  void SetTitle(std::string_view text) const {
    title = text;
    window.setWindowTitle(QString::fromUtf8(text));
  }
};

} // namespace mr4500x
