#include "frm_port.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace mr4500x {
namespace {

constexpr int Rows = 4; // the options are laid out column by column

QRadioButton* MakeOption(int number, const PortChoice& choice, const PortDeviceTexts& devices) {
  const auto index = static_cast<std::size_t>(number - 1);
  auto* const option = new QRadioButton(FrmPort::tr("COM%1").arg(number));
  option->setObjectName(QStringLiteral("optPort(%1)").arg(number));
  option->setEnabled(choice.enabled[index]);
  option->setChecked(number == choice.preselected);
  const QString device = devices[index].isEmpty() ? FrmPort::tr("No device stands for this port") : devices[index];
  option->setToolTip(device);
  option->setAccessibleDescription(device);
  return option;
}

} // namespace

FrmPort::FrmPort(const PortChoice& choice, const PortDeviceTexts& devices, QWidget* parent)
    : QDialog(parent), m_options(new QButtonGroup(this)) {
  setObjectName(QStringLiteral("frmPort"));
  setWindowTitle(tr("Port"));

  auto* const frame = new QGroupBox(tr("Communication Port"));
  frame->setObjectName(QStringLiteral("fraPort"));
  auto* const grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(fontMetrics().averageCharWidth() * 3);
  for (int number = 1; number <= PortCount; ++number) {
    QRadioButton* const option = MakeOption(number, choice, devices);
    m_options->addButton(option, number);
    grid->addWidget(option, (number - 1) % Rows, (number - 1) / Rows);
  }

  auto* const buttons = new QDialogButtonBox;
  QPushButton* const ok = buttons->addButton(tr("&OK"), QDialogButtonBox::AcceptRole);
  QPushButton* const cancel = buttons->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole);
  ok->setObjectName(QStringLiteral("cmdOK"));
  ok->setDefault(true);
  cancel->setObjectName(QStringLiteral("cmdCancel"));
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* const layout = new QVBoxLayout(this);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(frame);
  layout->addWidget(buttons);
  QAbstractButton* const preselected = m_options->checkedButton();
  (preselected->isEnabled() ? preselected : ok)->setFocus();
}

int FrmPort::SelectedPort() const {
  return m_options->checkedId();
}

std::optional<int> AskPort(const PortChoice& choice, const PortDeviceTexts& devices, QWidget* parent) {
  FrmPort dialog(choice, devices, parent);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.SelectedPort();
}

} // namespace mr4500x
