// A port of the bench, to be read from two metres: a colour, a shape and a word.
#pragma once

#include "journal.h"
#include "port_status.h"

#include <QColor>
#include <QFrame>

class QLabel;
class QProgressBar;
class QStackedLayout;

namespace mr4500x {

enum class Sign : std::uint8_t { Ring, Play, Tick, Cross, Diamond, Bar };

struct StateStyle {
  Sign sign;
  QColor colour; // white can be read on it
};

[[nodiscard]] StateStyle StyleOf(PortState state);
[[nodiscard]] StateStyle StyleOf(RowState state);
void DrawSign(QPainter& painter, const QRectF& area, Sign sign, const QColor& colour);

class PortCard final : public QFrame {
public:
  explicit PortCard(const QString& portName);

  void Show(const PortStatus& status);
  [[nodiscard]] PortState State() const { return m_state; }

private:
  class Banner;
  QString m_portName;
  PortState m_state = PortState::Waiting;
  Banner* m_banner;
  QLabel* m_who;
  QStackedLayout* m_below; // the bar while a radio is underway, else the text
  QProgressBar* m_bar;
  QLabel* m_text;
};

} // namespace mr4500x
