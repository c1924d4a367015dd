// A text box that filters typed characters, but not pasted text. It signals focus changes between controls, Enter,
// Escape, Up, Down and clicks.
#pragma once

#include <QLineEdit>

#include <functional>
#include <optional>

namespace mr4500x {

// Returns the character to insert for a typed one; nullopt to ignore it.
using CharacterFilter = std::function<std::optional<char>(char typed, bool onKeypad)>;
[[nodiscard]] std::optional<char> DigitFilter(char typed, bool onKeypad);

class EntryBox : public QLineEdit {
  Q_OBJECT
public:
  EntryBox(const QString& objectName, int mostCharacters, CharacterFilter filter, const QString& accessibleName,
           QWidget* parent);

  void IgnoreEditingKeys() { m_editingKeys = false; }   // Delete, Left, Home and the like
  void CopyAndPasteWhole() { m_wholeClipboard = true; } // by Ctrl+C and Ctrl+V, whatever is selected

  void SetWholeText(const QString& text); // a text beyond the limit stays whole until the user edits it
  void PutText(const QString& text);      // cuts the text at the limit
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
