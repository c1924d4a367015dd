// "Key Program": the six key lists and the two fixed ones that take the place of Short A and Long A. What they show is
// what the key rules say.
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

  // Selects the keys in their order, each under the rules and starting from none assigned. One message is shown when
  // two keys conflict, or when `conflict` tells that two did on the way to these values.
  void Fill(const Configuration& values, bool conflict);
  void Collect(Configuration& values) const;
  // Shows the keys as a collect has paired them.
  void AfterCollect(const Configuration& values);

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
  void ShowColours();

  MessageView& m_messages;
  std::array<ChoiceBox*, 6> m_lists{}; // cboKey(0) to cboKey(5)
  ChoiceBox* m_fixedShortA = nullptr;  // cboKey(10)
  ChoiceBox* m_fixedLongA = nullptr;   // cboKey(11)
  KeyProgram m_keys;
  std::array<std::uint8_t, 6> m_keyCodes{}; // behind a list without a selection
};

} // namespace mr4500x
