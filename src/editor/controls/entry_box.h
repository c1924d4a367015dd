// A text box that filters what is typed into it and tells its frame of the moments at which an entry counts: the focus
// coming or going between controls, Enter, Escape, Up, Down and clicks. What is pasted is not filtered.
#pragma once

#include <QLineEdit>

#include <functional>
#include <optional>

namespace mr4500x {

// The character that a typed one puts into a box.
using CharacterFilter = std::function<std::optional<char>(char typed, bool onKeypad)>;
[[nodiscard]] std::optional<char> DigitFilter(char typed, bool onKeypad);

class EntryBox : public QLineEdit {
  Q_OBJECT
public:
  EntryBox(const QString& objectName, int mostCharacters, CharacterFilter filter, const QString& accessibleName,
           QWidget* parent);

  void IgnoreEditingKeys() { m_editingKeys = false; }   // Delete, Left, Home and the like
  void CopyAndPasteWhole() { m_wholeClipboard = true; } // Ctrl+C and Ctrl+V take the whole text, not the selection

  // Shows a text of the data. One beyond the limit stays whole until the user edits it.
  void SetWholeText(const QString& text);
  // Puts a text in as the user would: cut at the limit.
  void PutText(const QString& text);
  void SelectEntry() { setSelection(0, m_mostCharacters); }

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
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

private:
  bool KeepsKey(const QKeyEvent& event) const;
  void NarrowLimit(const QString& text);

  int m_mostCharacters;
  CharacterFilter m_filter;
  bool m_editingKeys = true;
  bool m_wholeClipboard = false;
  bool m_leaving = false;
};

} // namespace mr4500x
