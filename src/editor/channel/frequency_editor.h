// The text box over a frequency cell: its keys and its filter. What its text becomes is the frame's.
#pragma once

#include "filtered_edit.h"

namespace mr4500x {

class FrequencyEditor : public FilteredEdit {
  Q_OBJECT

public:
  FrequencyEditor(char decimalSeparator, QWidget* parent);

signals:
  void EnterPressed();
  void EscapePressed();
  void StepPressed(bool up);
  void CopyPressed();
  void PastePressed();

protected:
  [[nodiscard]] std::optional<QChar> Filtered(QChar typed) const override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  QChar m_decimalSeparator;
  bool m_keypadDecimal = false; // the keypad's decimal key has been pressed: either separator is meant as the right one
};

} // namespace mr4500x
