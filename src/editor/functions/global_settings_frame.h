// "Global Radio Settings": eleven lists and the three ID boxes. The choice of "PTT ID" decides which of the boxes are
// in use.
#pragma once

#include "choice_box.h"
#include "message_view.h"

#include <QGroupBox>

#include <array>

namespace mr4500x {

class EntryBox;

class GlobalSettingsFrame : public QGroupBox {
  Q_OBJECT
public:
  explicit GlobalSettingsFrame(MessageView& messages, QWidget* parent = nullptr);

  // A fill sets the lists first: each change of one may put the placeholder into the boxes.
  void FillLists(const Configuration& values);
  void FillIdBoxes(const Configuration& values); // Connect ID and Disconnect ID
  void FillAni(const Configuration& values);
  void Gather(Configuration& values) const;

signals:
  void Changed();
  void ListChanged(); // a list was set: the steps of the selective-call mode are due

private:
  ChoiceBox* AddList(ChoiceList list, const QString& label, int row, int column);
  EntryBox* AddIdBox(const QString& objectName, const QString& label, int row, std::string_view invalidText);
  void UseIdBoxes();
  void cboRadio_Change();
  void IdBox_Validate(EntryBox& box, std::string_view invalidText);

  MessageView& m_messages;
  std::array<ChoiceBox*, 11> m_lists{}; // cboRadio(1) to cboRadio(11)
  EntryBox* m_ani;
  EntryBox* m_connect;
  EntryBox* m_disconnect;
};

} // namespace mr4500x
