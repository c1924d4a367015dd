// The drop-down list over a tone cell.
#pragma once

#include "field_texts.h"

#include <QComboBox>

namespace mr4500x {

class ToneEditor : public QComboBox {
  Q_OBJECT

public:
  ToneEditor(const FieldTexts& texts, QWidget* parent);

  // Selects the entry of this text. A text that is no entry is shown with nothing selected.
  void Show(const QString& text);
  [[nodiscard]] int WidthNeeded() const; // for its widest entry

  void showPopup() override;

signals:
  void EnterPressed();
  void EscapePressed();
  void FocusLeft();

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

} // namespace mr4500x
