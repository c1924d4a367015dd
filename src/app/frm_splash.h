#pragma once

#include "clock.h"

#include <QWidget>

namespace mr4500x {

// Shown while the main window loads.
class FrmSplash final : public QWidget {
  Q_OBJECT

public:
  static constexpr Clock::Moment LeastTime{1'200'000}; // us on the screen

  FrmSplash();

  void ShowPainted(); // returns once the window has been painted

protected:
  void paintEvent(QPaintEvent* event) override;

signals:
  void Painted();
};

} // namespace mr4500x
