#include "dialogs.h"

#include "frame_parts.h"
#include "window_parts.h"

#include <QButtonGroup>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace mr4500x {
namespace {

constexpr int PortRows = 4; // the options are laid out column by column

QRadioButton* NewOption(int number, const PortChoice& choice, const std::string& deviceOfPort) {
  auto* const option = new QRadioButton(QDialog::tr("COM%1").arg(number));
  option->setObjectName(QStringLiteral("optPort(%1)").arg(number));
  option->setEnabled(choice.enabled[static_cast<std::size_t>(number - 1)]);
  option->setChecked(number == choice.preselected);
  const QString device = DeviceToolTip(deviceOfPort);
  option->setToolTip(device);
  option->setAccessibleDescription(device);
  return option;
}

} // namespace

std::optional<int> AskPort(const PortChoice& choice, const std::function<std::string(int)>& deviceOfPort,
                           QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("frmPort"));
  dialog.setWindowTitle(QDialog::tr("Port"));
  auto* const frame = new QGroupBox(QDialog::tr("Communication Port"));
  frame->setObjectName(QStringLiteral("fraPort"));
  auto* const grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(dialog.fontMetrics().averageCharWidth() * 3);
  QButtonGroup options;
  for (int number = 1; number <= PortCount; ++number) {
    QRadioButton* const option = NewOption(number, choice, deviceOfPort(number));
    options.addButton(option, number);
    grid->addWidget(option, (number - 1) % PortRows, (number - 1) / PortRows);
  }
  const OkCancel buttons = NewOkCancel(dialog);
  QObject::connect(buttons.ok, &QPushButton::clicked, &dialog, &QDialog::accept);
  auto* const layout = new QVBoxLayout(&dialog);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(frame);
  layout->addLayout(buttons.row);
  QAbstractButton* const preselected = options.checkedButton();
  (preselected->isEnabled() ? preselected : buttons.ok)->setFocus();
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return options.checkedId();
}

} // namespace mr4500x
