// "Auto Reset Time": seconds, or OFF.
#pragma once

#include "message_view.h"
#include "settings_frame.h"

class QCheckBox;

namespace mr4500x {

struct ResetTimeCheck;

class ResetTimeFrame : public SettingsFrame {
  Q_OBJECT
public:
  explicit ResetTimeFrame(MessageView& messages);

  void Fill(const Configuration& values) override;
  void Collect(Configuration& values) const override;

private:
  void Take(const ResetTimeCheck& check);
  void txtResetTime_Step(int by);
  void txtResetTime_Validate();
  void vsbResetTime_Change(int by);
  void chkResetTimeOFF_Click(bool off);

  MessageView& m_messages;
  EntryBox* m_seconds;
  QWidget* m_spinner;
  QCheckBox* m_off;
};

} // namespace mr4500x
