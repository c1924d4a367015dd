#include "radio_commands.h"

#include "editor_panel.h"
#include "frm_port.h"
#include "port_choice.h"
#include "status_panels.h"
#include "transfer.h"

#include <QGuiApplication>

namespace mr4500x {
namespace {

PortChoice TestPorts(SerialPort& port, int commPortNumber) {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const PortChoice choice = ChoosePort(commPortNumber, [&](int number) { return TestPort(port, number); });
  QGuiApplication::restoreOverrideCursor();
  return choice;
}

} // namespace

// Neither changes ModifiedFlag: what a radio holds is in no file.
void RadioCommands::Read() {
  m_context.panel.CommitOpenEditors();
  const auto exchange = [this](SerialLine& line, ExchangeObserver& observer) {
    return ReadRadio(line, m_context.image, observer);
  };
  RunTransfer(m_context, HeldPointer::Busy, exchange, [this] {
    m_context.SetOrigin(RadioOrigin{Transfer::Read});
    m_context.panel.Fill();
    m_context.closeItem.setEnabled(true);
  });
}

void RadioCommands::Write() {
  m_context.panel.CommitOpenEditors();
  m_context.panel.Collect();
  const auto exchange = [this](SerialLine& line, ExchangeObserver& observer) {
    return WriteRadio(line, m_context.image, m_context.services.now, observer);
  };
  RunTransfer(m_context, HeldPointer::Busy, exchange, [this] {
    m_context.SetOrigin(RadioOrigin{Transfer::Write});
    m_context.closeItem.setEnabled(true);
  });
}

void RadioCommands::Port() {
  const MainServices& services = m_context.services;
  const PortChoice choice = TestPorts(services.port, m_context.state.CommPortNumber);
  PortDeviceTexts devices;
  for (int number = 1; number <= PortCount; ++number)
    devices[static_cast<std::size_t>(number - 1)] = QString::fromStdString(services.deviceOfPort(number));
  // Only a confirmed choice counts: the port that the status bar shows stays the one that is used.
  const std::optional<int> chosen = AskPort(choice, devices, &m_context.window);
  if (!chosen) return;
  m_context.state.CommPortNumber = *chosen;
  m_context.status.ShowPort(*chosen);
}

} // namespace mr4500x
