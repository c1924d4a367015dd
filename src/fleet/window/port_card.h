// The card of a port, readable from two metres: a colour, a shape and a word.
#pragma once

#include "journal.h"
#include "port_status.h"

#include <QColor>
#include <QFrame>

#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;
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
  // Calls `goOn` when the user lets a stopped port continue, or program a radio that was set aside.
  PortCard(const QString& portName, const std::function<void()>& goOn);

  void Show(const PortStatus& status);
  [[nodiscard]] const QString& PortName() const { return m_portName; }
  [[nodiscard]] PortState State() const { return m_state; }

private:
  class Banner;
  class ElidedLabel;
  QString m_portName;
  PortState m_state = PortState::Waiting;
  Banner* m_banner;
  QLabel* m_who;
  QPushButton* m_goOn;
  QStackedLayout* m_below; // the bar while a radio is underway, else the text
  QProgressBar* m_bar;
  ElidedLabel* m_text;
};

} // namespace mr4500x
