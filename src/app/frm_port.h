// The port dialog, frmPort: the choice among COM1 to COM16. port_choice.h finds the ports that work.
#pragma once

#include "port_choice.h"

#include <QDialog>
#include <QString>

#include <array>
#include <optional>

class QButtonGroup;

namespace mr4500x {

using PortDeviceTexts = std::array<QString, PortCount>; // device paths of COM1 to COM16; empty for none

class FrmPort final : public QDialog {
  Q_OBJECT

public:
  FrmPort(const PortChoice& choice, const PortDeviceTexts& devices, QWidget* parent);
  [[nodiscard]] int SelectedPort() const;

private:
  QButtonGroup* m_options;
};

// The chosen port; nullopt when cancelled.
[[nodiscard]] std::optional<int> AskPort(const PortChoice& choice, const PortDeviceTexts& devices, QWidget* parent);

} // namespace mr4500x
