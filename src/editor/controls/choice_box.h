// A drop-down list of the editor. SetChoice acts like a selection by the user, and a stored code without an item is
// kept until the user picks one.
#pragma once

#include "configuration.h"

#include <QComboBox>

namespace mr4500x {

class ChoiceBox : public QComboBox {
  Q_OBJECT
public:
  ChoiceBox(const QString& objectName, const QStringList& items, const QString& accessibleName, QWidget* parent);

  void SetChoice(const Choice& choice); // always emits Selected
  [[nodiscard]] Choice Chosen() const;
  void ShowPosition(int position);    // without Selected
  void ShowText(const QString& text); // without Selected; shows a text without an item with nothing selected
  void KeepPopupWiderThan(const QString& text) { m_popupText = text; }

  void showPopup() override;

signals:
  void Selected(int position);
  void Left(); // focus moved to another control
  void Confirmed();
  void Escaped();

protected:
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  std::uint8_t m_unlisted = 0;
  QString m_popupText;
};

} // namespace mr4500x
