#include "port_card.h"

#include "shown_text.h"
#include "words.h"

#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedLayout>
#include <QTextLayout>
#include <QVBoxLayout>

namespace mr4500x {
namespace {

const QColor Grey(0x5f, 0x63, 0x68), Blue(0x1a, 0x5f, 0xb4), Green(0x1e, 0x7b, 0x34), Red(0xb3, 0x26, 0x1e),
    Orange(0xa8, 0x4b, 0x08);

} // namespace

StateStyle StyleOf(PortState state) {
  switch (state) {
  case PortState::Identifying:
  case PortState::BackingUp:
  case PortState::Writing:
  case PortState::Verifying:
    return {Sign::Play, Blue};
  case PortState::Done:
  case PortState::AlreadyDone:
    return {Sign::Tick, Green};
  case PortState::Failed:
  case PortState::Stopped:
    return {Sign::Cross, Red};
  case PortState::SetAside:
  case PortState::NoRow:
    return {Sign::Diamond, Orange};
  case PortState::NoPort:
  case PortState::NoJournal:
    return {Sign::Bar, Orange};
  case PortState::Waiting:
    return {Sign::Ring, Grey};
  case PortState::Finished:
    break;
  }
  return {Sign::Bar, Grey};
}

StateStyle StyleOf(RowState state) {
  return state == RowState::Done    ? StateStyle{Sign::Tick, Green}
         : state == RowState::Taken ? StateStyle{Sign::Play, Blue}
                                    : StateStyle{Sign::Ring, Grey};
}

void DrawSign(QPainter& painter, const QRectF& area, Sign sign, const QColor& colour) {
  const auto at = [&](double x, double y) { return area.topLeft() + QPointF(x * area.width(), y * area.height()); };
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, area.width() / 6, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  switch (sign) {
  case Sign::Ring:
    painter.drawEllipse(QRectF(at(0.15, 0.15), at(0.85, 0.85)));
    break;
  case Sign::Tick:
    painter.drawPolyline(QPolygonF({at(0.08, 0.5), at(0.38, 0.82), at(0.92, 0.16)}));
    break;
  case Sign::Cross:
    painter.drawLine(at(0.12, 0.12), at(0.88, 0.88));
    painter.drawLine(at(0.88, 0.12), at(0.12, 0.88));
    break;
  default: {
    const QPolygonF play({at(0.15, 0.02), at(0.95, 0.5), at(0.15, 0.98)}),
        diamond({at(0.5, 0), at(1, 0.5), at(0.5, 1), at(0, 0.5)}),
        bar({at(0, 0.38), at(1, 0.38), at(1, 0.62), at(0, 0.62)});
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(sign == Sign::Play ? play : sign == Sign::Diamond ? diamond : bar);
  }
  }
}

class PortCard::Banner final : public QWidget {
public:
  explicit Banner(QString portName) : m_portName(std::move(portName)) {
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 2);
    large.setBold(true);
    setFont(large);
    setMinimumSize(fontMetrics().horizontalAdvance(QLatin1Char('M')) * 10, fontMetrics().height() * 5 / 4);
  }
  void Show(PortState state) {
    m_state = state;
    update();
  }

protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const auto [sign, colour] = StyleOf(m_state);
    painter.fillRect(rect(), colour);
    const int size = fontMetrics().ascent(), gap = size / 2;
    DrawSign(painter, QRectF(gap, (height() - size) / 2.0, size, size), sign, Qt::white);
    painter.setPen(Qt::white);
    const QRect rest = rect().adjusted(size + 2 * gap, 0, -gap, 0);
    QFont small = font(), large = font();
    small.setPointSizeF(small.pointSizeF() / 2);
    painter.setFont(small);
    painter.drawText(rest, Qt::AlignRight | Qt::AlignVCenter, m_portName);
    const QString word = Shown(WordFor(m_state));
    const int room = rest.width() - painter.fontMetrics().horizontalAdvance(m_portName) - gap;
    large.setPointSizeF(large.pointSizeF() * std::min(1.0, 1.0 * room / fontMetrics().horizontalAdvance(word)));
    painter.setFont(large);
    painter.drawText(rest, Qt::AlignVCenter, word);
  }

private:
  QString m_portName;
  PortState m_state = PortState::Waiting;
};

// Breaks its text into as many lines as fit its height, and elides the last one. The hint has a line of its own below.
class PortCard::ElidedLabel final : public QLabel {
public:
  explicit ElidedLabel(Qt::TextElideMode mode) : m_mode(mode) {}
  void Show(const QString& text, const QString& hint) {
    m_hint = hint;
    setText(text);
    setToolTip(hint.isEmpty() ? text : text + QLatin1Char('\n') + hint);
  }

protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const int high = fontMetrics().lineSpacing(), lines = std::max(1, height() / high - (m_hint.isEmpty() ? 0 : 1));
    int used = 0;
    QTextLayout layout(text(), font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (int i = 0; i < lines; ++i) {
      QTextLine line = layout.createLine();
      if (!line.isValid()) break;
      ++used;
      line.setLineWidth(width());
      // A whole line fits, but its trailing blank may not.
      const QString part = i + 1 < lines ? text().mid(line.textStart(), line.textLength())
                                         : fontMetrics().elidedText(text().mid(line.textStart()), m_mode, width());
      painter.drawText(0, i * high + fontMetrics().ascent(), part);
    }
    layout.endLayout();
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(0, used * high + fontMetrics().ascent(),
                     painter.fontMetrics().elidedText(m_hint, Qt::ElideRight, width()));
  }

private:
  Qt::TextElideMode m_mode;
  QString m_hint;
};

PortCard::PortCard(const QString& portName, const std::function<void()>& goOn)
    : m_portName(portName), m_banner(new Banner(portName)), m_who(new ElidedLabel(Qt::ElideMiddle)),
      m_goOn(new QPushButton(tr("&Go on"))), m_bar(new QProgressBar), m_text(new ElidedLabel(Qt::ElideRight)) {
  setFrameShape(QFrame::StyledPanel);
  setFocusPolicy(Qt::TabFocus); // for screen readers
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(m_banner);
  auto* const lines = new QVBoxLayout;
  lines->setContentsMargins(6, 2, 6, 4);
  layout->addLayout(lines);
  auto* const first = new QHBoxLayout;
  first->addWidget(m_who, 1);
  first->addWidget(m_goOn);
  lines->addLayout(first);
  m_goOn->hide();
  connect(m_goOn, &QPushButton::clicked, this, goOn);
  m_below = new QStackedLayout;
  lines->addLayout(m_below); // before it shows a widget, which would be a window of its own
  m_below->addWidget(m_bar);
  m_below->addWidget(m_text);
  QFont bold = m_who->font();
  bold.setBold(true);
  m_who->setFont(bold);
  m_who->setTextFormat(Qt::PlainText); // a radio's number is not markup
  m_text->setTextFormat(Qt::PlainText);
  m_text->setMinimumHeight(m_text->fontMetrics().lineSpacing() * 3); // two for the text, one for the hint
  // All cards are equally high, with a button or without. A long label has two lines.
  m_who->setMinimumHeight(std::max(m_goOn->sizeHint().height(), m_who->fontMetrics().lineSpacing() * 2));
  m_bar->setMaximumHeight(m_bar->sizeHint().height());
  for (QLabel* const label : {m_who, static_cast<QLabel*>(m_text)})
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  Show({});
}

void PortCard::Show(const PortStatus& status) {
  // The result of the last radio stays visible when the port has nothing more to do.
  if (status.state == PortState::Finished && (IsGood(m_state) || IsBad(m_state))) {
    m_goOn->hide();
    m_text->Show(m_text->text(), {});
    setAccessibleDescription(m_who->text() + QLatin1Char(' ') + m_text->text());
    return;
  }
  m_state = status.state;
  m_banner->Show(status.state);
  QStringList who{Shown(status.label), Shown(status.idNumber)};
  if (status.row > 0) who.prepend(tr("Row %1").arg(status.row));
  who.prepend(Shown(LineForNext(status, m_portName.toStdString())));
  who.removeAll(QString());
  m_who->setText(who.join(QStringLiteral("  ")));
  m_who->setToolTip(m_who->text());
  m_goOn->setVisible(IsByClick(status.remedy));
  m_goOn->setText(status.state == PortState::SetAside ? tr("Pro&gram it") : tr("&Go on"));
  m_text->Show(Shown(status.text), Shown(HintFor(status.remedy)));
  m_bar->setValue(status.percent);
  m_below->setCurrentIndex(IsUnderway(status.state) ? 0 : 1);
  setAccessibleName(m_portName + QStringLiteral(": ") + Shown(WordFor(status.state)));
  setAccessibleDescription(m_who->text() + QLatin1Char(' ') + m_text->toolTip());
}

} // namespace mr4500x
