// The list of tones.
#include "tone_editor.h"

#include "drop_down.h"
#include "focus_moves.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QStringListModel>
#include <QStyleOptionComboBox>

#include <algorithm>

namespace mr4500x {

ToneEditor::ToneEditor(const FieldTexts& texts, QWidget* parent) : QComboBox(parent) {
  setObjectName("cboCTCDCS");
  KeepDropDownShort(*this);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon); // else each measure walks the whole list
  QStringList entries;
  for (const std::string& choice : ToneChoiceList(texts)) {
    entries.append(QString::fromStdString(choice));
  }
  setModel(new QStringListModel(entries, this));
}

void ToneEditor::Show(const QString& text) {
  setCurrentIndex(findText(text));
  setPlaceholderText(text);
  show();
}

int ToneEditor::WidthNeeded() const {
  int widest = 0;
  for (const char* const text : {"CTC200.0", "-DCS000"}) {
    widest = std::max(widest, fontMetrics().horizontalAdvance(QLatin1String(text)));
  }
  QStyleOptionComboBox option;
  initStyleOption(&option);
  return style()->sizeFromContents(QStyle::CT_ComboBox, &option, QSize(widest, fontMetrics().height()), this).width();
}

void ToneEditor::showPopup() {
  // The list's window is made with its first use.
  view()->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("CTC99999.999")));
  QComboBox::showPopup();
}

void ToneEditor::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    emit EnterPressed();
    return;
  case Qt::Key_Escape:
    emit EscapePressed();
    return;
  default:
    QComboBox::keyPressEvent(event);
  }
}

void ToneEditor::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  if (MovesBetweenControls(*event) && !HoldsFocus(*this)) emit FocusLeft();
}

} // namespace mr4500x
