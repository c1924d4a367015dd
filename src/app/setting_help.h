// Help for each setting. The manual's page "The settings at a glance" provides the tool tip and the What's This text.
// F1 opens the manual's page about the setting.
#pragma once

#include <QObject>

#include <functional>
#include <map>
#include <string>

class QWidget;

namespace mr4500x {

struct SettingHelp {
  QString lines; // what it does, its default, when it is grey
  QString page;  // page of the manual
};
// By the identifier of a setting without the number of its entry, or the name of a control.
[[nodiscard]] const std::map<QString, SettingHelp>& SettingHelps();

// Sets the texts of the controls of a window and of the headings of its tables.
void ShowSettingHelp(QWidget& window);
// The page about a control, or in a table about its current column. "index.html" if there is none.
[[nodiscard]] QString HelpPageOf(const QWidget* control);

// Adds the texts to all dialogs, and F1 to all windows without a menu.
class HelpEverywhere final : public QObject {
public:
  HelpEverywhere(std::function<void()> openHelp, QObject* parent);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  std::function<void()> m_openHelp;
};

} // namespace mr4500x
