// The drop-down list.
#include "choice_box.h"

#include "drop_down.h"
#include "focus_moves.h"
#include "frame_parts.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace mr4500x {
namespace {

constexpr qsizetype MostItemsOpen = 20; // of a list that opens as a whole

} // namespace
ChoiceBox::ChoiceBox(const QString& objectName, const QStringList& items, const QString& accessibleName,
                     QWidget* parent)
    : QComboBox(parent) {
  setObjectName(objectName);
  setAccessibleName(accessibleName);
  setFocusPolicy(Qt::StrongFocus);
  addItems(items);
  if (items.size() > MostItemsOpen) KeepDropDownShort(*this);
  connect(this, &QComboBox::currentIndexChanged, this, &ChoiceBox::Selected);
}

void ChoiceBox::SetChoice(const Choice& choice) {
  m_unlisted = choice.unlisted;
  if (choice.position == currentIndex()) {
    emit Selected(choice.position);
  } else {
    setCurrentIndex(choice.position);
  }
}

Choice ChoiceBox::Chosen() const {
  const int position = currentIndex();
  return {position, position < 0 ? m_unlisted : std::uint8_t{0}};
}

void ChoiceBox::ShowPosition(int position) {
  const QSignalBlocker blocked(this);
  setCurrentIndex(position);
}

void ChoiceBox::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  if (MovesBetweenControls(*event) && !HoldsFocus(*this)) emit Left();
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) {
    event->accept();
    emit Finished();
  } else {
    QComboBox::keyPressEvent(event);
  }
}

// Turning the wheel scrolls the panel, not the list under the pointer.
void ChoiceBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

ChoiceBox* NewChoiceBox(const QString& objectName, ChoiceList list, const QString& accessibleName, QWidget* parent) {
  return new ChoiceBox(objectName, ItemTexts(ItemsOf(list)), accessibleName, parent);
}

} // namespace mr4500x
