// "Frequency Band": the two limits in MHz. After a question, a new lower limit resets all channels.
#pragma once

#include "configuration.h"
#include "message_view.h"

#include <QGroupBox>

#include <functional>

namespace mr4500x {

class EntryBox;

struct BandAccess {
  std::function<int()> storedLowerLimit;
  std::function<void(int)> storeLowerLimit;
  std::function<void(int)> reinitialiseChannels; // stores the limit and resets all channels
};

class BandFrame : public QGroupBox {
  Q_OBJECT
public:
  BandFrame(MessageView& messages, BandAccess access, QWidget* parent = nullptr);

  void Fill(const Configuration& values);
  void Collect(Configuration& values) const;
  [[nodiscard]] std::string LowerText() const;
  [[nodiscard]] std::string UpperText() const;

signals:
  void Changed();

private:
  void txtFreqBandL_GotFocus();
  void txtFreqBandL_Click();
  void txtFreqBandL_Recheck();
  void txtFreqBandU_Recheck();
  void txtFreqBandL_Validate();
  void txtFreqBandU_Validate();

  MessageView& m_messages;
  BandAccess m_access;
  EntryBox* m_lower;
  EntryBox* m_upper;
  QString m_rememberedLower, m_rememberedUpper;
};

} // namespace mr4500x
