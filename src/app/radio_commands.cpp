#include "radio_commands.h"

#include "editor_panel.h"
#include "exchange.h"
#include "frm_port.h"
#include "port_choice.h"
#include "status_panels.h"
#include "transfer_guard.h"
#include "window_titles.h"

#include <QGuiApplication>

#include <exception>

namespace mr4500x {
namespace {

PortChoice TestPorts(SerialPort& port, int commPortNumber) {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const PortChoice choice = ChoosePort(commPortNumber, [&](int number) { return TestPort(port, number); });
  QGuiApplication::restoreOverrideCursor();
  return choice;
}

} // namespace

void RadioCommands::Read() {
  m_context.panel.CommitOpenEditors();
  m_context.window.repaint();
  const MainServices& services = m_context.services;
  const TransferGuard guard(services.input);
  SerialLine line(services.port, services.clock, m_context.state.CommPortNumber);
  const auto showImage = [&] {
    try {
      m_context.SetTitle(ReadTitle);
      m_context.panel.Fill();
      BelongToRadio(ReadTitle);
      return true;
    } catch (const std::exception&) {
      return false;
    }
  };
  // The exchange has told the user how it ended.
  static_cast<void>(ReadRadio({line, services.progress, services.messages}, m_context.image, showImage));
}

void RadioCommands::Write() {
  m_context.panel.CommitOpenEditors();
  m_context.panel.Collect();
  const MainServices& services = m_context.services;
  const TransferGuard guard(services.input);
  m_context.window.repaint();
  SerialLine line(services.port, services.clock, m_context.state.CommPortNumber);
  static_cast<void>(WriteRadio({line, services.progress, services.messages}, m_context.image, services.now,
                               [&] { BelongToRadio(WriteTitle); }));
}

// ModifiedFlag stays as it is: what a radio holds is in no file.
void RadioCommands::BelongToRadio(std::string_view title) {
  m_context.SetTitle(title);
  m_context.closeItem.setEnabled(true);
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
