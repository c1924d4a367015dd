// "Global Radio Settings": eleven lists and the three ID boxes. The choice of "PTT ID" decides which of the boxes are
// in use.
#pragma once

#include "list_frame.h"
#include "message_view.h"

namespace mr4500x {

class EntryBox;
enum class Box : std::uint8_t;

class GlobalSettingsFrame : public ListFrame {
  Q_OBJECT
public:
  explicit GlobalSettingsFrame(MessageView& messages, QWidget* parent = nullptr);

  // A fill sets the lists first: each change of one may put the placeholder into the boxes.
  void FillIdBoxes(const Configuration& values); // Connect ID and Disconnect ID
  void FillAni(const Configuration& values);
  void Collect(Configuration& values) const;

signals:
  void ListChanged(); // a list was set: the steps of the selective-call mode are due

private:
  ChoiceBox* Add(int row, int column, ChoiceList list);
  EntryBox* AddIdBox(int row, const QString& objectName, Box setting, std::string_view invalidText);
  void UseIdBoxes();

  MessageView& m_messages;
  ChoiceBox* m_pttId = nullptr;
  EntryBox* m_ani;
  EntryBox* m_connect = nullptr;
  EntryBox* m_disconnect = nullptr;
};

} // namespace mr4500x
