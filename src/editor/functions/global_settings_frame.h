// "Global Radio Settings": lists and three ID boxes. The "PTT ID" list enables two of the boxes.
#pragma once

#include "message_view.h"
#include "settings_frame.h"

namespace mr4500x {

enum class Box : std::uint8_t;

class GlobalSettingsFrame : public FieldFrame {
  Q_OBJECT
public:
  explicit GlobalSettingsFrame(MessageView& messages);

  void Fill(const Configuration& values) override;
  void Collect(Configuration& values) const override;

private:
  EntryBox* AddIdBox(int row, const QString& objectName, Box setting, const char* refusal);
  void UseIdBoxes();

  MessageView& m_messages;
  EntryBox *m_ani, *m_connect, *m_disconnect;
};

} // namespace mr4500x
