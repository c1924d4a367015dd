// "Key Program": the six key lists and the two fixed ones that replace Short A and Long A.
#pragma once

#include "choice_box.h"
#include "message_view.h"

#include <QGroupBox>

#include <array>

class QGridLayout;

namespace mr4500x {

class KeyFrame : public QGroupBox {
  Q_OBJECT
public:
  explicit KeyFrame(MessageView& messages, QWidget* parent = nullptr);

  // Clears all keys, then selects each under the key rules. Shows one message if two keys conflict, now or, as
  // `conflict` says, while the values were decoded.
  void Fill(const Configuration& values, bool conflict);
  void Collect(Configuration& values) const;
  void AfterCollect(const Configuration& values); // shows the keys as paired by the panel's Collect

signals:
  void Changed();

protected:
  void changeEvent(QEvent* event) override;

private:
  void AddKey(QGridLayout& layout, std::size_t key, const QString& label);
  ChoiceBox* AddFixed(QGridLayout& layout, const QString& objectName, std::string_view item, std::size_t over);
  void cboKey_Change(std::size_t key, int position);
  void ShowConflict();
  void ShowKeys();

  MessageView& m_messages;
  std::array<ChoiceBox*, 6> m_lists{}; // cboKey(0) to cboKey(5)
  ChoiceBox* m_fixedShortA = nullptr;  // cboKey(10)
  ChoiceBox* m_fixedLongA = nullptr;   // cboKey(11)
  KeyProgram m_keys;
  std::array<std::uint8_t, 6> m_keyCodes{}; // for lists without a selection
};

} // namespace mr4500x
