#include "dialogs.h"

#include "frame_parts.h"
#include "window_parts.h"

#include <QButtonGroup>
#include <QDialog>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace mr4500x {
namespace {

constexpr int PortRows = 4; // the options are laid out column by column
constexpr int HintLines = 2;

// The hint of the port that the user points at, else of the chosen one.
class HintLabel final : public QLabel {
public:
  explicit HintLabel(const QButtonGroup& options) : m_options(options) {
    setObjectName(QStringLiteral("lblHint"));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setMinimumHeight(HintLines * fontMetrics().lineSpacing());
    connect(&options, &QButtonGroup::idToggled, this, [this] { ShowHint(m_options.checkedButton()); });
  }
  void ShowHint(const QWidget* option) {
    if (option != nullptr) setText(option->accessibleDescription());
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Enter) ShowHint(static_cast<QWidget*>(watched)); // also for a grey port
    if (event->type() == QEvent::Leave) ShowHint(m_options.checkedButton());
    return QLabel::eventFilter(watched, event);
  }

private:
  const QButtonGroup& m_options;
};

QRadioButton* NewOption(int number, const PortChoice& choice, const std::string& hintText) {
  auto* const option = new QRadioButton(QDialog::tr("COM%1").arg(number));
  option->setObjectName(QStringLiteral("optPort(%1)").arg(number));
  option->setEnabled(!choice.failures[static_cast<std::size_t>(number - 1)]);
  option->setChecked(number == choice.preselected);
  const QString hint = QString::fromStdString(hintText);
  option->setToolTip(hint);
  option->setAccessibleDescription(hint);
  return option;
}

} // namespace

std::optional<int> AskPort(const PortChoice& choice, const std::function<std::string(int)>& hintOf, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("frmPort"));
  dialog.setWindowTitle(QDialog::tr("Port"));
  auto* const frame = new QGroupBox(QDialog::tr("Communication Port"));
  frame->setObjectName(QStringLiteral("fraPort"));
  auto* const grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(dialog.fontMetrics().averageCharWidth() * 3);
  QButtonGroup options;
  auto* const hint = new HintLabel(options);
  for (int number = 1; number <= PortCount; ++number) {
    QRadioButton* const option = NewOption(number, choice, hintOf(number));
    option->installEventFilter(hint);
    options.addButton(option, number);
    grid->addWidget(option, (number - 1) % PortRows, (number - 1) / PortRows);
  }
  const OkCancel buttons = NewOkCancel(dialog);
  QObject::connect(buttons.ok, &QPushButton::clicked, &dialog, &QDialog::accept);
  auto* const layout = new QVBoxLayout(&dialog);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(frame);
  layout->addWidget(hint);
  layout->addLayout(buttons.row);
  QAbstractButton* const preselected = options.checkedButton();
  hint->ShowHint(preselected);
  (preselected->isEnabled() ? preselected : buttons.ok)->setFocus();
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return options.checkedId();
}

} // namespace mr4500x
