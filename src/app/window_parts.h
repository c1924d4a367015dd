// Small parts of the main window: its icons and its status bar.
#pragma once

#include <QIcon>
#include <QStatusBar>
#include <QTimer>

#include <functional>
#include <string>

class QLabel;

namespace mr4500x {

[[nodiscard]] QIcon ProgramIcon(const char* name); // icons/NAME.svg

// Also handles a path with "[*]", which Qt would treat as a placeholder.
void ShowTitle(QWidget& window, const std::string& title);

[[nodiscard]] QString DeviceToolTip(const std::string& device); // for a port's device; empty if it has none

// The status bar: the program's title or a temporary message, the port and the time of day.
class StatusPanels final : public QStatusBar {
public:
  StatusPanels(const QString& title, std::function<std::string(int)> deviceOfPort);
  void ShowPort(int number);
  void ShowBriefly(const QString& message);
  void EndMessage(); // its message no longer applies
  // Shown instead of the title until it is empty. The first of several takes precedence.
  enum class Permanent { NoCopy, Practice };
  void SetPermanent(Permanent which, const QString& message);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void ShowTime();
  void Show(const QString& message); // elided if there is not enough room

  QString m_programTitle;
  std::array<QString, 2> m_standing;
  std::function<std::string(int)> m_deviceOfPort;
  int m_number = 0;
  QLabel* m_title;
  QLabel* m_port;
  QLabel* m_time;
  QTimer m_minute{this}, m_passing{this};
};

} // namespace mr4500x
