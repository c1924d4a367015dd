// "Key Program": the six key lists and the two fixed ones that replace Short A and Long A.
#pragma once

#include "message_view.h"
#include "settings_frame.h"

#include <array>

class QLabel;

namespace mr4500x {

// Shows one message for each key that was reset.
void ShowKeyConflicts(MessageView& messages, int count);

class KeyFrame : public FieldFrame {
  Q_OBJECT
public:
  explicit KeyFrame(MessageView& messages);

  void Fill(const Configuration& values) override;
  void Collect(Configuration& values) const override;
  void AfterCollect(); // shows the whole emergency pair, as it was stored

protected:
  void changeEvent(QEvent* event) override;

private:
  ChoiceBox* NewList(int number, std::size_t key, const QStringList& items, const QString& accessibleName);
  void cboKey_Change(std::size_t key, int position);
  void ShowKeys();

  MessageView& m_messages;
  std::array<ChoiceBox*, KeyCount> m_lists{}; // cboKey(0) to cboKey(5)
  std::array<ChoiceBox*, 2> m_fixed{};        // cboKey(10) and cboKey(11), over Short A and Long A
  std::array<QLabel*, KeyCount> m_labels{};
  KeyProgram m_keys;
};

} // namespace mr4500x
