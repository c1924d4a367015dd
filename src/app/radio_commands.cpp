#include "radio_commands.h"

#include "command_phase.h"
#include "editor_panel.h"
#include "frm_port.h"
#include "port_choice.h"
#include "status_panels.h"
#include "transfer.h"
#include "window_titles.h"

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

void RadioCommands::Read() {
  m_context.panel.CommitOpenEditors();
  const Transfer transfer(m_context);
  const auto showImage = [this] {
    return Succeeds([this] {
      m_context.SetTitle(ReadTitle);
      m_context.panel.Fill();
      BelongToRadio(ReadTitle);
      return true;
    });
  };
  // The exchange tells the user how it ended.
  static_cast<void>(ReadRadio(transfer.Parts(), m_context.image, showImage));
}

void RadioCommands::Write() {
  m_context.panel.CommitOpenEditors();
  m_context.panel.Collect();
  const Transfer transfer(m_context);
  static_cast<void>(
      WriteRadio(transfer.Parts(), m_context.image, m_context.services.now, [this] { BelongToRadio(WriteTitle); }));
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
