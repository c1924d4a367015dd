// The keys of the frequency editor.
#include "frequency_editor.h"

#include <QKeyEvent>

namespace mr4500x {
namespace {

constexpr int LongestFrequency = 9; // "000.00000"

bool IsSeparator(QChar c) {
  return c == QLatin1Char('.') || c == QLatin1Char(',');
}

} // namespace

FrequencyEditor::FrequencyEditor(char decimalSeparator, QWidget* parent)
    : FilteredEdit(parent), m_decimalSeparator(QLatin1Char(decimalSeparator)) {
  setObjectName("txtChFreq");
  setMaxLength(LongestFrequency);
  setTextMargins(0, 0, 0, 0);
}

std::optional<QChar> FrequencyEditor::Filtered(QChar typed) const {
  if (!IsSeparator(typed)) return FilteredEdit::Filtered(typed);
  if (typed != m_decimalSeparator && !m_keypadDecimal) return std::nullopt;
  return m_decimalSeparator;
}

void FrequencyEditor::keyPressEvent(QKeyEvent* event) {
  // The box's own copy and paste work on the selection, the editor's on the whole text.
  if (event->matches(QKeySequence::Copy)) {
    emit CopyPressed();
    return;
  }
  if (event->matches(QKeySequence::Paste)) {
    emit PastePressed();
    return;
  }
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    emit EnterPressed();
    return;
  case Qt::Key_Escape:
    emit EscapePressed();
    return;
  case Qt::Key_Up:
  case Qt::Key_Down:
    emit StepPressed(event->key() == Qt::Key_Up);
    return;
  case Qt::Key_Period:
  case Qt::Key_Comma:
    if (event->modifiers().testFlag(Qt::KeypadModifier)) m_keypadDecimal = true;
    break;
  default:
    break;
  }
  FilteredEdit::keyPressEvent(event);
}

} // namespace mr4500x
