// The menu of the channels, and their commands in a grid that never had the focus.
#include "editor_fixture.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>

namespace mr4500x {
namespace {

TEST_F(ChannelTest, AMenuOpensAtThePointerInTheOtherViewAlso) {
  for (QWidget* const over : {grid.verticalHeader()->viewport(), static_cast<QWidget*>(&panel)}) {
    QContextMenuEvent asked(QContextMenuEvent::Mouse, {3, 3}, over->mapToGlobal(QPoint(3, 3)));
    QCoreApplication::sendEvent(over, &asked);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().size(), over == &panel ? 4 : 15);
    EXPECT_EQ(menu->pos(), asked.globalPos());
    menu->close();
    panel.ShowFunctionView();
  }
}

TEST(ChannelCommands, BeginAtTheFirstChannelInAGridThatNeverHadTheFocus) {
  ScriptedMessages messages;
  RadioImage image;
  const FieldTexts texts = BuildFieldTexts('.');
  EditorPanel panel(image, texts, messages);
  panel.FillReset({2026, 1, 2, 3, 4, 5});
  QApplication::clipboard()->setText("446.00625");
  for (const char* const command : {"Paste", "Fill", "Copy", "Clear", "Up", "Down"})
    panel.findChild<QAction*>(QLatin1String("mnuChannels") + command)->trigger();
  EXPECT_EQ(QApplication::clipboard()->text().count('\n'), 2) << "the heading and one channel";
  EXPECT_EQ(panel.Shown().channels[15][GridColumn::RxFreq], "440.00000");
}

} // namespace
} // namespace mr4500x
