#include "reset_time_frame.h"

#include "field_rules.h"
#include "frame_parts.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSpinBox>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace mr4500x {
namespace {

// A spin box without a number. Each click on an arrow is one step, however long the button is held. The step is made on
// the release, because a message box inside the press would swallow the release.
class ArrowPair : public QSpinBox {
public:
  ArrowPair(std::function<void(int by)> step, QWidget* parent) : QSpinBox(parent), m_step(std::move(step)) {
    lineEdit()->hide();
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // A click must not take the focus, which would end an unfinished entry.
    setFocusPolicy(Qt::TabFocus);
  }

  void stepBy(int steps) override {
    m_by = std::clamp(steps, -1, 1);
    if (!m_pressed) Step();
  }
  // The arrows and their frame only.
  [[nodiscard]] QSize sizeHint() const override {
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    option.rect = QRect(QPoint(0, 0), QSpinBox::sizeHint());
    const QRect up = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
    const int frame = style()->pixelMetric(QStyle::PM_SpinBoxFrameWidth, &option, this);
    return {up.width() + frame, option.rect.height()};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  [[nodiscard]] StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) return QSpinBox::keyPressEvent(event);
    event->ignore();
  }
  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus()) return QSpinBox::wheelEvent(event);
    event->ignore();
  }
  void mousePressEvent(QMouseEvent* event) override {
    m_pressed = true;
    QSpinBox::mousePressEvent(event);
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    QSpinBox::mouseReleaseEvent(event);
    m_pressed = false;
    Step();
  }
  void timerEvent(QTimerEvent* /*event*/) override {} // no repetition

private:
  void Step() {
    if (const int by = std::exchange(m_by, 0); by != 0) m_step(by);
  }

  int m_by = 0;
  bool m_pressed = false;
  std::function<void(int by)> m_step;
};

} // namespace

ResetTimeFrame::ResetTimeFrame(MessageView& messages)
    : SettingsFrame(QStringLiteral("fraResetTime"), tr("Auto Reset Time")), m_messages(messages) {
  m_seconds = new EntryBox(QStringLiteral("txtResetTime"), 3, DigitFilter, tr("Auto Reset Time in seconds"), this);
  m_seconds->IgnoreEditingKeys();
  m_seconds->setText(QStringLiteral("5"));
  m_spinner = new ArrowPair([this](int by) { vsbResetTime_Change(by); }, this);
  m_spinner->setObjectName(QStringLiteral("vsbResetTime"));
  m_spinner->setAccessibleName(tr("Auto Reset Time up or down"));
  m_off = new QCheckBox(tr("OFF"), this);
  m_off->setObjectName(QStringLiteral("chkResetTimeOFF"));
  m_off->setAccessibleName(tr("Auto Reset Time OFF"));
  for (QWidget* const control : std::initializer_list<QWidget*>{m_seconds, m_spinner, m_off})
    NameSetting(*control, Box::AutoResetTime);
  auto* const label = new QLabel(tr("Auto Reset Time(s)"), this);
  label->setBuddy(m_seconds);

  auto* const layout = new QHBoxLayout(this);
  layout->setSpacing(8);
  layout->addWidget(label);
  auto* const time = new QHBoxLayout;
  time->setSpacing(0); // joins the arrows to the box
  time->addWidget(m_seconds);
  time->addWidget(m_spinner);
  layout->addLayout(time);
  layout->addWidget(m_off);
  layout->addStretch(1);

  connect(m_seconds, &EntryBox::Stepped, this, &ResetTimeFrame::txtResetTime_Step);
  connect(m_seconds, &EntryBox::Confirmed, this, &ResetTimeFrame::txtResetTime_Validate);
  connect(m_seconds, &EntryBox::Left, this, &ResetTimeFrame::txtResetTime_Validate);
  connect(m_seconds, &QLineEdit::textChanged, this, &ResetTimeFrame::Changed);
  connect(m_off, &QCheckBox::toggled, this, &ResetTimeFrame::chkResetTimeOFF_Click);
}

void ResetTimeFrame::Take(const ResetTimeCheck& check) {
  m_seconds->setText(QString::fromUtf8(check.text));
  if (check.off) m_off->setChecked(true);
}

void ResetTimeFrame::txtResetTime_Step(int by) {
  const auto stepped = StepResetTime(m_seconds->text().toStdString(), by);
  if (!stepped) ShowEntryError(m_messages, "Auot Reset Time Invalid!");
  Take(stepped.value_or(ResetTimeCheck{"1", false}));
}

void ResetTimeFrame::txtResetTime_Validate() {
  Take(LimitResetTime(m_seconds->text().toStdString()));
}

void ResetTimeFrame::vsbResetTime_Change(int by) {
  const auto spun = SpinResetTime(m_seconds->text().toStdString(), by);
  if (!spun) ShowEntryError(m_messages, "Auto Reset Time Invalid!");
  m_seconds->setText(QString::fromUtf8(spun.value_or("1")));
}

void ResetTimeFrame::chkResetTimeOFF_Click(bool off) {
  m_seconds->setEnabled(!off);
  m_spinner->setEnabled(!off);
  emit Changed();
}

void ResetTimeFrame::Fill(const Configuration& values) {
  m_off->setChecked(values.autoResetOff);
  // With OFF, the box keeps its text.
  if (!values.autoResetOff) m_seconds->setText(QString::fromUtf8(values.autoResetTime));
}

void ResetTimeFrame::Collect(Configuration& values) const {
  values.autoResetOff = m_off->isChecked();
  values.autoResetTime = m_seconds->text().toStdString();
}

} // namespace mr4500x
