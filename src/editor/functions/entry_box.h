// A text box that filters the keys it gets and tells its frame of the moments at which an entry counts: the focus
// coming or going between controls, Enter, Escape, Up, Down and clicks.
#pragma once

#include <QLineEdit>

#include <optional>

namespace mr4500x {

class EntryBox : public QLineEdit {
  Q_OBJECT
public:
  using CharacterFilter = std::optional<char> (*)(char key); // the character that a key stands for
  enum class OtherKeys { Edit, Ignore };                     // Delete, Left, Home and the like

  EntryBox(const QString& objectName, int mostCharacters, CharacterFilter filter, OtherKeys otherKeys,
           const QString& accessibleName, QWidget* parent);

  // Shows a text of the data. One beyond the limit stays whole until the user edits it.
  void SetWholeText(const QString& text);
  // Puts a text in as the user would: cut at the limit.
  void PutText(const QString& text);
  // Leaves Ctrl+C and Ctrl+V to the window's menu.
  void LeaveClipboardToMenu() { m_clipboardIsMenus = true; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

signals:
  void Arrived();
  void Left();
  void Confirmed();
  void Escaped();
  void Stepped(int by);
  void Clicked();

protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

private:
  bool KeepsKey(const QKeyEvent& event) const;
  void NarrowLimit(const QString& text);

  int m_mostCharacters;
  CharacterFilter m_filter;
  OtherKeys m_otherKeys;
  bool m_clipboardIsMenus = false;
  bool m_leaving = false;
};

} // namespace mr4500x
