// The whole panel in a window, filled with a new configuration.
#pragma once

#include "editor_fixture.h"
#include "editor_panel.h"

#include <QTableWidget>

namespace mr4500x {

struct EditorPanelTest : testing::Test {
  EditorPanelTest() { panel.FillReset({2026, 1, 2, 3, 4, 5}); }

  static QString Cell(const QTableWidget& grid, int row, int column) { return grid.item(row, column)->text(); }
  static void Click(const QTableWidget& grid, int row, int column) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualItemRect(grid.item(row, column)).center());
  }

  RadioImage image;
  FieldTexts texts = BuildFieldTexts('.');
  ScriptedMessages messages;
  EditorPanel& panel = *new EditorPanel(image, texts, messages);
  FrameWindow window{&panel};
  QTableWidget& channels = window.Get<QTableWidget>("gridChannel");
  QSignalSpy changed{&panel, &EditorPanel::Changed};
};

} // namespace mr4500x
