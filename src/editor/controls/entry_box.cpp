#include "entry_box.h"

#include "focus_moves.h"

#include <QClipboard>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace mr4500x {

std::optional<char> DigitFilter(char typed, bool /*onKeypad*/) {
  if (typed >= '0' && typed <= '9') return typed;
  return std::nullopt;
}

EntryBox::EntryBox(const QString& objectName, int mostCharacters, CharacterFilter filter, const QString& accessibleName,
                   QWidget* parent)
    : QLineEdit(parent), m_mostCharacters(mostCharacters), m_filter(std::move(filter)) {
  setObjectName(objectName);
  setAccessibleName(accessibleName);
  setMaxLength(mostCharacters);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  // Input methods would bypass the filter.
  setAttribute(Qt::WA_InputMethodEnabled, false);
  connect(this, &QLineEdit::textEdited, this, &EntryBox::NarrowLimit);
}

void EntryBox::SetWholeText(const QString& text) {
  setMaxLength(std::max(m_mostCharacters, static_cast<int>(text.size())));
  setText(text);
}

void EntryBox::PutText(const QString& text) {
  setMaxLength(m_mostCharacters);
  setText(text);
}

void EntryBox::CopyWhole() const {
  QGuiApplication::clipboard()->setText(text());
}
void EntryBox::PasteWhole() {
  PutText(QGuiApplication::clipboard()->text());
}

void EntryBox::NarrowLimit(const QString& text) {
  if (maxLength() == m_mostCharacters) return;
  const int cursor = cursorPosition();
  setMaxLength(std::max(m_mostCharacters, static_cast<int>(text.size())));
  setCursorPosition(cursor);
}

// Wide enough for the maximum number of digits.
QSize EntryBox::sizeHint() const {
  const QSize usual = QLineEdit::sizeHint();
  const QFontMetrics metrics = fontMetrics();
  constexpr int usualCharacters = 17; // QLineEdit's hint is 17 times "x"
  const int surround = usual.width() - usualCharacters * metrics.horizontalAdvance(QLatin1Char('x'));
  return {metrics.horizontalAdvance(QString(m_mostCharacters, QLatin1Char('0')) + QLatin1Char(' ')) + surround,
          usual.height()};
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
  event->accept();
  if (m_wholeClipboard && event->matches(QKeySequence::Copy)) return CopyWhole();
  if (m_wholeClipboard && event->matches(QKeySequence::Paste)) return PasteWhole();
  switch (event->key()) {
  case Qt::Key_Up:
    emit Stepped(1);
    return;
  case Qt::Key_Down:
    emit Stepped(-1);
    return;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    emit Confirmed();
    return;
  case Qt::Key_Escape:
    emit Escaped();
    return;
  default:
    break;
  }
  const QString typed = event->text();
  if (typed.isEmpty() || !typed.front().isPrint()) {
    if (KeepsKey(*event)) QLineEdit::keyPressEvent(event);
    return;
  }
  const char key = typed.front().toLatin1(); // 0 if not Latin-1
  const auto character = m_filter(key, event->modifiers().testFlag(Qt::KeypadModifier));
  if (character) insert(QString(QLatin1Char(*character)));
}

// Backspace and the clipboard keys always work.
bool EntryBox::KeepsKey(const QKeyEvent& event) const {
  if (m_editingKeys || event.key() == Qt::Key_Backspace) return true;
  return event.modifiers() == Qt::ControlModifier &&
         (event.matches(QKeySequence::Copy) || event.matches(QKeySequence::Paste) || event.matches(QKeySequence::Cut) ||
          event.matches(QKeySequence::SelectAll) || event.matches(QKeySequence::Undo));
}

void EntryBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (MovesBetweenControls(*event)) emit Arrived();
}

void EntryBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (m_leaving || !MovesBetweenControls(*event)) return;
  const QScopedValueRollback leaving(m_leaving, true);
  emit Left(event->reason());
}

void EntryBox::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit Clicked();
}

} // namespace mr4500x
