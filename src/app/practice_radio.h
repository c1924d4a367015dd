// Runs lr7200-simulator as a child process, with its own port number.
#pragma once

#include <QObject>
#include <QProcess>

#include <optional>
#include <string>

namespace mr4500x {

class PracticeRadio : public QObject {
  Q_OBJECT
public:
  explicit PracticeRadio(std::string simulator); // path of the program, or ""
  ~PracticeRadio() override;

  // Returns as soon as it serves its device: nullopt, or the reason why it does not run.
  [[nodiscard]] std::optional<std::string> Start(int port);
  void Stop();
  [[nodiscard]] bool IsInstalled() const { return !m_simulator.empty(); }
  [[nodiscard]] int Port() const { return m_port; } // 0 while it does not run
  [[nodiscard]] const std::string& Device() const { return m_device; }

signals:
  void Ended(); // emitted when it ends, also by Stop

private:
  std::string m_simulator;
  std::string m_device;
  int m_port = 0;
  QProcess m_process;
};

} // namespace mr4500x
