// Help at each setting: its lines in the manual's page "The settings at a glance" as tool tip and What's This text, and
// the manual's page about it by F1.
#pragma once

#include <QObject>

#include <functional>
#include <map>
#include <string>

class QWidget;

namespace mr4500x {

struct SettingHelp {
  QString lines; // what it does, what it is at first, when it is grey
  QString page;  // of the manual
};
// By the identifier of a setting without the number of its entry, or the name of a control.
[[nodiscard]] const std::map<QString, SettingHelp>& SettingHelps();

// Gives the controls of a window and the headings of its tables their texts.
void ShowSettingHelp(QWidget& window);
// The page about a control, in a table about its current column; "index.html" if it has none.
[[nodiscard]] QString HelpPageOf(const QWidget* control);

// Brings the texts to all dialogs as well, and F1 to all windows without a menu.
class HelpEverywhere final : public QObject {
public:
  HelpEverywhere(std::function<void()> openHelp, QObject* parent);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  std::function<void()> m_openHelp;
};

} // namespace mr4500x
