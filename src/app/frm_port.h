// The port dialog, frmPort: which of COM1 to COM16 the radio is connected to. Finding the ports that work is left to
// port_choice.h.
#pragma once

#include "port_choice.h"

#include <QDialog>
#include <QString>

#include <array>
#include <optional>

class QButtonGroup;

namespace mr4500x {

using PortDeviceTexts = std::array<QString, PortCount>; // what stands for COM1 to COM16; empty for none

class FrmPort final : public QDialog {
  Q_OBJECT

public:
  FrmPort(const PortChoice& choice, const PortDeviceTexts& devices, QWidget* parent);
  [[nodiscard]] int SelectedPort() const;

private:
  QButtonGroup* m_options;
};

// The port that the user confirmed.
[[nodiscard]] std::optional<int> AskPort(const PortChoice& choice, const PortDeviceTexts& devices, QWidget* parent);

} // namespace mr4500x
