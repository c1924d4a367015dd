// "Auto Reset Time": seconds, or OFF.
#pragma once

#include "configuration.h"
#include "message_view.h"

#include <QGroupBox>

class QCheckBox;

namespace mr4500x {

class ArrowPair;
class EntryBox;
struct ResetTimeCheck;

class ResetTimeFrame : public QGroupBox {
  Q_OBJECT
public:
  explicit ResetTimeFrame(MessageView& messages, QWidget* parent = nullptr);

  void Fill(const Configuration& values);
  void Collect(Configuration& values) const;

signals:
  void Changed();

private:
  void Take(const ResetTimeCheck& check);
  void txtResetTime_Step(int by);
  void txtResetTime_Validate();
  void vsbResetTime_Change(int by);
  void chkResetTimeOFF_Click(bool off);

  MessageView& m_messages;
  EntryBox* m_seconds;
  ArrowPair* m_spinner;
  QCheckBox* m_off;
};

} // namespace mr4500x
