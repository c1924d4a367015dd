// A text box that takes typed characters through a filter. What is pasted is not filtered.
#pragma once

#include <QFocusEvent>
#include <QLineEdit>

#include <optional>

namespace mr4500x {

class FilteredEdit : public QLineEdit {
  Q_OBJECT

public:
  explicit FilteredEdit(QWidget* parent);

signals:
  void FocusLeft(Qt::FocusReason reason);

protected:
  // What a typed printable character puts into the box.
  [[nodiscard]] virtual std::optional<QChar> Filtered(QChar typed) const;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

} // namespace mr4500x
