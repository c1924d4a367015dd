// The text boxes and drop-down lists of the editor. Both distinguish a move of the focus to another control from a
// window, popup or menu bar that takes it temporarily, because a message box about one entry must not end another.
#pragma once

#include "configuration.h"

#include <QComboBox>
#include <QLineEdit>

#include <functional>
#include <optional>

namespace mr4500x {

// Returns the character to insert for a typed one, or nullopt to ignore it.
using CharacterFilter = std::function<std::optional<char>(char typed, bool onKeypad)>;
[[nodiscard]] std::optional<char> DigitFilter(char typed, bool onKeypad);

// Filters typed characters. Pasted text is only trimmed.
class EntryBox : public QLineEdit {
  Q_OBJECT
public:
  EntryBox(const QString& objectName, int mostCharacters, CharacterFilter filter, const QString& accessibleName,
           QWidget* parent);

  void IgnoreEditingKeys() { m_editingKeys = false; }   // Delete, Left, Home and the like
  void CopyAndPasteWhole() { m_wholeClipboard = true; } // Ctrl+C and Ctrl+V then ignore the selection

  // Whether leaving the box now shows a message. A click that does so counts when the message is closed.
  void ShowsMessageWhen(std::function<bool()> leavingShowsMessage) {
    m_leavingShowsMessage = std::move(leavingShowsMessage);
  }

  void SetWholeText(const QString& text); // a text beyond the limit is kept until the user edits it
  void PutText(const QString& text);      // cuts the text at the limit
  void SelectEntry() { setSelection(0, m_mostCharacters); }
  void StandOver(const QRect& cell); // of a grid, in which its text stays where it is

  void CopyWhole() const;
  void PasteWhole();

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

signals:
  void Arrived();
  void Left(Qt::FocusReason reason);
  void Confirmed();
  void Escaped();
  void Stepped(int by);
  void Clicked();

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

private:
  bool KeepsKey(const QKeyEvent& event) const;
  void NarrowLimit(const QString& text);
  void Leave(Qt::FocusReason reason);

  int m_mostCharacters;
  CharacterFilter m_filter;
  std::function<bool()> m_leavingShowsMessage;
  bool m_editingKeys = true;
  bool m_wholeClipboard = false;
  bool m_leaving = false;
};

// SetChoice acts like a selection by the user. A stored code without an item is kept until the user selects one.
class ChoiceBox : public QComboBox {
  Q_OBJECT
public:
  ChoiceBox(const QString& objectName, const QStringList& items, const QString& accessibleName, QWidget* parent);

  void SetChoice(const Choice& choice); // always emits Selected
  [[nodiscard]] Choice Chosen() const;
  void ShowPosition(int position);    // without Selected
  void ShowText(const QString& text); // without Selected; shows a text without an item with nothing selected
  void KeepPopupWiderThan(const QString& text) { m_popupText = text; }
  void StandOver(const QRect& cell) { m_cell = cell; } // of a grid, in which its text stays where it is

  void showPopup() override;

signals:
  void Selected(int position);
  void Left();
  void Confirmed();
  void Escaped();

protected:
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  std::uint8_t m_unlisted = 0;
  QString m_popupText;
  QRect m_cell;
};

} // namespace mr4500x
