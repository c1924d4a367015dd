// The splash window, shown while the main window loads.
#pragma once

#include "clock.h"

#include <QWidget>

#include <functional>

namespace mr4500x {

class FrmSplash final : public QWidget {
  Q_OBJECT

public:
  static constexpr Clock::Moment LeastTime{1'200'000};

  FrmSplash();

  // Returns once the window is on the screen.
  void ShowPainted();

protected:
  void paintEvent(QPaintEvent* event) override;

signals:
  void Painted();
};

} // namespace mr4500x
