// A text box that takes typed characters through a filter. What is pasted is not filtered.
#pragma once

#include <QFocusEvent>
#include <QLineEdit>

#include <optional>

namespace mr4500x {

// Whether the focus goes to another control. A menu, a drop-down list and another window only borrow it.
[[nodiscard]] bool LeavesForAnotherControl(const QFocusEvent& event);

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
