#include "entry_controls.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QProxyStyle>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QtMath>

#include <algorithm>
#include <utility>

namespace mr4500x {
namespace {

bool MovesBetweenControls(const QFocusEvent& event) {
  const Qt::FocusReason reason = event.reason();
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}

// Whether the list or a child has the focus. Its popup counts, although it is a window.
bool HoldsFocus(const QWidget& list) {
  for (const QObject* holder = QApplication::focusWidget(); holder != nullptr; holder = holder->parent())
    if (holder == &list) return true;
  return false;
}

// Delays a mouse press that takes the focus from an invalid entry until the button is released, runs `first`, which
// shows the message, and then lets the click continue. A message box inside the press would swallow the release.
class HeldClick : public QObject {
public:
  HeldClick(QObject* parent, std::function<void()> first) : QObject(parent), m_first(std::move(first)) {
    qApp->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const QEvent::Type type = event->type();
    if (!watched->isWidgetType()) return false;
    if (type == QEvent::KeyPress || type == QEvent::ShortcutOverride || type == QEvent::MouseMove) {
      event->accept();
      return true;
    }
    if (type == QEvent::MouseButtonPress && m_press == nullptr) {
      m_press.reset(event->clone());
      m_target = watched;
      return true;
    }
    // A second press and the wheel, which also takes the focus, have no release to wait for.
    if (type == QEvent::MouseButtonRelease || type == QEvent::MouseButtonPress || type == QEvent::Wheel) GoOn();
    return false;
  }

private:
  void GoOn() {
    qApp->removeEventFilter(this);
    deleteLater();
    m_first();
    if (m_target != nullptr) QCoreApplication::sendEvent(m_target, m_press.get());
  }

  std::function<void()> m_first;
  std::unique_ptr<QEvent> m_press;
  QPointer<QObject> m_target;
};

QString Pasted(QClipboard::Mode mode = QClipboard::Clipboard) {
  return QGuiApplication::clipboard()->text(mode).trimmed();
}

// Where a cell of a grid has its line of text.
QRect LineIn(const QRect& cell, const QFont& font) {
  const QSize line(cell.width(), qCeil(QFontMetricsF(font).height()));
  return QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, line, cell);
}

constexpr qsizetype MostItemsOpen = 20; // longer lists scroll
constexpr int VisibleItems = 16;        // items of a list that scrolls

// Some styles open a long list as a menu as tall as the screen, away from the current item.
class ShortDropDown : public QProxyStyle {
public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returnData) const override {
    return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, returnData);
  }
};

} // namespace

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
  setAcceptDrops(false); // a file is dropped on the window
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

// The margins make QLineEdit, which centres its text with room for a cursor, begin it at the pixel where the cell does.
void EntryBox::StandOver(const QRect& cell) {
  constexpr int inset = 2, cursor = 2; // of QLineEdit
  constexpr double rounding = 0.45;    // of a cell
  const double width = QFontMetricsF(font()).horizontalAdvance(text());
  QRect line = LineIn(cell, font()).adjusted(-inset, 0, 0, 0);
  line.setWidth(qRound(width) + 2 * qFloor((cell.width() - width) / 2 + rounding) + 2 * inset + cursor);
  line.setHeight(fontMetrics().height());
  QStyleOptionFrame option;
  initStyleOption(&option);
  setTextMargins({});
  const QRect room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
  setTextMargins(line.left() - room.left(), line.top() - room.top(), room.right() - line.right(),
                 room.bottom() - line.bottom());
}

void EntryBox::CopyWhole() const {
  QGuiApplication::clipboard()->setText(text());
}
void EntryBox::PasteWhole() {
  PutText(Pasted());
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
  if (event->matches(QKeySequence::Paste)) return insert(Pasted());
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

void EntryBox::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* const menu = createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (QAction* const action : menu->actions()) {
    if (!action->text().startsWith(QLineEdit::tr("&Paste"))) continue;
    action->disconnect(this);
    connect(action, &QAction::triggered, this, [this] { insert(Pasted()); });
  }
  menu->popup(event->globalPos());
}

// Backspace and the clipboard keys always work.
bool EntryBox::KeepsKey(const QKeyEvent& event) const {
  if (m_editingKeys || event.key() == Qt::Key_Backspace || event.matches(QKeySequence::Redo)) return true;
  return event.modifiers() == Qt::ControlModifier &&
         (event.matches(QKeySequence::Copy) || event.matches(QKeySequence::Cut) ||
          event.matches(QKeySequence::SelectAll) || event.matches(QKeySequence::Undo));
}

void EntryBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (MovesBetweenControls(*event)) emit Arrived();
}

void EntryBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (m_leaving || !MovesBetweenControls(*event)) return;
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::MouseFocusReason && m_leavingShowsMessage && m_leavingShowsMessage())
    new HeldClick(this, [this, reason] { Leave(reason); });
  else
    Leave(reason);
}

void EntryBox::Leave(Qt::FocusReason reason) {
  const QScopedValueRollback leaving(m_leaving, true);
  emit Left(reason);
}

void EntryBox::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) return insert(Pasted(QClipboard::Selection)); // pastes, on X11 only
  QLineEdit::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit Clicked();
}

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

void ChoiceBox::paintEvent(QPaintEvent* event) {
  if (m_cell.isEmpty()) return QComboBox::paintEvent(event);
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  const bool isListed = currentIndex() >= 0;
  painter.setPen(palette().color(isListed ? QPalette::ButtonText : QPalette::PlaceholderText));
  painter.drawText(LineIn(m_cell, font()), Qt::AlignHCenter, isListed ? currentText() : placeholderText());
}

// Without the focus, the wheel scrolls the panel instead of changing the selection.
void ChoiceBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) return QComboBox::wheelEvent(event);
  event->ignore();
}

} // namespace mr4500x
