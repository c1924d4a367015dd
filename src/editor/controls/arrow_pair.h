// A spin box without a number: each click on an arrow emits one step up or down.
#pragma once

#include <QSpinBox>

namespace mr4500x {

class ArrowPair : public QSpinBox {
  Q_OBJECT
public:
  ArrowPair(const QString& objectName, const QString& accessibleName, QWidget* parent);

  void stepBy(int steps) override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

signals:
  void Stepped(int by);

protected:
  [[nodiscard]] StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
};

} // namespace mr4500x
