#include "window_parts.h"

#include <QEvent>
#include <QLabel>
#include <QLocale>
#include <QStyle>
#include <QTime>

// A static library's resources need this call, and the macro only works outside of namespaces.
static void LoadIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace mr4500x {
namespace {

constexpr char PortText[] = "COM %1";
constexpr int PassingMilliseconds = 10'000;
constexpr int BarInset = 1; // the inset of the first and last panel, less the width of a frame's line

// Without seconds, as the clock is updated once a minute.
QString TimeText(const QTime& time) {
  const QLocale locale;
  return locale.toString(time, locale.timeFormat(QLocale::ShortFormat).remove(QStringLiteral(":ss")));
}

} // namespace

void ShowTitle(QWidget& window, const std::string& title) {
  window.setWindowTitle(QString::fromStdString(title).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

QString DeviceToolTip(const std::string& device) {
  return device.empty() ? QStatusBar::tr("This port has no device") : QString::fromStdString(device);
}

QIcon ProgramIcon(const char* name) {
  LoadIcons();
  return QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
}

StatusPanels::StatusPanels(const QString& title, std::function<std::string(int)> deviceOfPort)
    : m_programTitle(title), m_deviceOfPort(std::move(deviceOfPort)), m_title(new QLabel(title)), m_port(new QLabel),
      m_time(new QLabel) {
  setObjectName(QStringLiteral("stbMain"));
  // The panels begin and end where the frames above them do.
  setSizeGripEnabled(false);
  const int margin = style()->pixelMetric(QStyle::PM_LayoutLeftMargin) - BarInset;
  setContentsMargins(margin, 0, margin, 0);
  int number = 0;
  for (QLabel* const panel : {m_title, m_port, m_time}) {
    panel->setObjectName(QStringLiteral("stbMain.Panels(%1)").arg(++number));
    panel->setTextFormat(Qt::PlainText);
    panel->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    panel->setMargin(2);
    addPermanentWidget(panel, number == 1 ? 1 : 0);
  }
  const int room = fontMetrics().averageCharWidth() * 3;
  m_port->setMinimumWidth(fontMetrics().horizontalAdvance(QString::fromUtf8(PortText).arg(16)) + room);
  m_time->setMinimumWidth(fontMetrics().horizontalAdvance(TimeText(QTime(22, 58))) + room);

  m_port->installEventFilter(this);
  m_minute.setSingleShot(true);
  m_minute.setTimerType(Qt::PreciseTimer); // a coarse timer may fire early, and so twice
  m_minute.callOnTimeout(this, &StatusPanels::ShowTime);
  ShowTime();
  m_passing.setSingleShot(true);
  m_passing.callOnTimeout(this, &StatusPanels::EndMessage);
}

void StatusPanels::ShowPort(int number) {
  m_number = number;
  m_port->setText(QString::fromUtf8(PortText).arg(number));
}

void StatusPanels::Show(const QString& message) {
  const int room = m_title->contentsRect().width() - 2 * m_title->margin();
  m_title->setText(fontMetrics().elidedText(message, Qt::ElideMiddle, room));
}

void StatusPanels::ShowBriefly(const QString& message) {
  Show(message);
  m_passing.start(PassingMilliseconds);
}

void StatusPanels::EndMessage() {
  m_passing.stop();
  for (const QString& message : m_standing)
    if (!message.isEmpty()) return Show(message);
  m_title->setText(m_programTitle);
}

void StatusPanels::SetPermanent(Permanent which, const QString& message) {
  m_standing[static_cast<std::size_t>(which)] = message;
  EndMessage();
}

// The device is looked up when the user points at the port, because adapters are plugged in and out.
bool StatusPanels::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ToolTip) m_port->setToolTip(DeviceToolTip(m_deviceOfPort(m_number)));
  return QStatusBar::eventFilter(watched, event);
}

void StatusPanels::ShowTime() {
  constexpr int minute = 60'000; // ms
  const QTime now = QTime::currentTime();
  m_time->setText(TimeText(now));
  m_minute.start(minute - now.msecsSinceStartOfDay() % minute);
}

} // namespace mr4500x
