// "Global Radio Settings": lists and three ID boxes. The "PTT ID" list enables two of the boxes.
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

  // To be called after FillLists: a change of a list may reset the boxes to the placeholder.
  void FillIdBoxes(const Configuration& values); // Connect ID and Disconnect ID
  void FillAni(const Configuration& values);
  void Collect(Configuration& values) const;

signals:
  void ListChanged(); // the panel then updates the selective call mode

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
