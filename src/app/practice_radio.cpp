#include "practice_radio.h"

#include "child_process.h"

#include <utility>

namespace mr4500x {

constexpr int StartMilliseconds = 3000, EndMilliseconds = 1000;

PracticeRadio::PracticeRadio(std::string simulator) : m_simulator(std::move(simulator)) {
  EndWithProgram(m_process);
  connect(&m_process, &QProcess::finished, this, [this] {
    if (std::exchange(m_port, 0) != 0) emit Ended();
  });
}

PracticeRadio::~PracticeRadio() {
  m_process.disconnect(this);
  Stop();
}

std::optional<std::string> PracticeRadio::Start(int port) {
  m_process.start(QString::fromStdString(m_simulator), {"--pace", "9600"});
  while (m_process.state() != QProcess::NotRunning && !m_process.canReadLine())
    if (!m_process.waitForReadyRead(StartMilliseconds)) break;
  m_device = m_process.readLine().trimmed().toStdString();
  if (m_device.empty()) {
    const std::string reason = m_process.errorString().toStdString();
    Stop();
    return m_simulator + " can't be started: " + reason;
  }
  m_port = port;
  return std::nullopt;
}

void PracticeRadio::Stop() {
  m_process.terminate();
  if (m_process.state() == QProcess::NotRunning || m_process.waitForFinished(EndMilliseconds)) return;
  m_process.kill();
  m_process.waitForFinished(EndMilliseconds);
}

} // namespace mr4500x
