#include "choice_box.h"

#include "focus_moves.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QProxyStyle>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace mr4500x {
namespace {

constexpr qsizetype MostItemsOpen = 20; // longer lists scroll
constexpr int VisibleItems = 16;        // of a list that scrolls

// Some styles open a long list as a menu as tall as the screen, and not at the current item.
class ShortDropDown : public QProxyStyle {
public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returnData) const override {
    return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, returnData);
  }
};

} // namespace

ChoiceBox::ChoiceBox(const QString& objectName, const QStringList& items, const QString& accessibleName,
                     QWidget* parent)
    : QComboBox(parent) {
  setObjectName(objectName);
  setAccessibleName(accessibleName);
  setFocusPolicy(Qt::StrongFocus);
  addItems(items);
  if (items.size() > MostItemsOpen) {
    auto* const style = new ShortDropDown;
    style->setParent(this);
    setStyle(style);
    setMaxVisibleItems(VisibleItems);
  }
  connect(this, &QComboBox::currentIndexChanged, this, &ChoiceBox::Selected);
}

void ChoiceBox::SetChoice(const Choice& choice) {
  m_unlisted = choice.unlisted;
  if (choice.position == currentIndex())
    emit Selected(choice.position);
  else
    setCurrentIndex(choice.position);
}

Choice ChoiceBox::Chosen() const {
  const int position = currentIndex();
  return {position, position < 0 ? m_unlisted : std::uint8_t{0}};
}

void ChoiceBox::ShowPosition(int position) {
  const QSignalBlocker blocked(this);
  setCurrentIndex(position);
}

void ChoiceBox::ShowText(const QString& text) {
  ShowPosition(findText(text));
  setPlaceholderText(text);
}

void ChoiceBox::showPopup() {
  // Not earlier: view() creates the popup.
  if (!m_popupText.isEmpty()) view()->setMinimumWidth(fontMetrics().horizontalAdvance(m_popupText));
  QComboBox::showPopup();
}

void ChoiceBox::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  if (MovesBetweenControls(*event) && !HoldsFocus(*this)) emit Left();
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
  event->accept();
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    emit Confirmed();
    break;
  case Qt::Key_Escape:
    emit Escaped();
    break;
  default:
    QComboBox::keyPressEvent(event);
  }
}

// Without the focus, the wheel scrolls the panel instead of changing the selection.
void ChoiceBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) return QComboBox::wheelEvent(event);
  event->ignore();
}

} // namespace mr4500x
