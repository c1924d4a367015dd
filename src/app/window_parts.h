// Small parts of the main window: its icons and its status bar.
#pragma once

#include <QIcon>
#include <QStatusBar>
#include <QTimer>

class QLabel;

namespace mr4500x {

[[nodiscard]] QIcon ProgramIcon(const char* name); // icons/NAME.svg

// The program's title, now and then a passing message in its place, the port and the time of day.
class StatusPanels final : public QStatusBar {
public:
  explicit StatusPanels(const QString& title);
  void ShowPort(int number);
  void ShowPassing(const QString& message);

private:
  void ShowTime();

  QString m_programTitle;
  QLabel* m_title;
  QLabel* m_port;
  QLabel* m_time;
  QTimer m_minute, m_passing;
};

} // namespace mr4500x
