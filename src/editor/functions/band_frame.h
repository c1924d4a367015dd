// The two frames above the channel grid: "Frequency Band" and "Radio Record".
#pragma once

#include "field_rules.h"
#include "message_view.h"
#include "radio_image.h"
#include "settings_frame.h"

class QLabel;

namespace mr4500x {

// The question before a new lower limit resets all channels.
[[nodiscard]] bool AgreesToLowerLimit(MessageView& messages);

// The two limits in MHz. After a question, a new lower limit resets all channels.
class BandFrame : public SettingsFrame {
  Q_OBJECT
public:
  // The image holds the current lower limit, with which a new one is compared.
  BandFrame(MessageView& messages, RadioImage& image);

  void Fill(const Configuration& values) override;
  void Collect(Configuration& values) const override;
  void CollectUnfinished(Configuration& values) const override;
  [[nodiscard]] Band Limits() const; // the limits that the boxes show

signals:
  void LowerLimitChanged(int limit); // the user has agreed

private:
  EntryBox* NewLimitBox(const QString& objectName, const QString& accessibleName);
  void txtFreqBandL_GotFocus();
  void txtFreqBandL_Click();
  void txtFreqBandL_Recheck();
  void txtFreqBandU_Recheck();
  void txtFreqBandL_Validate();
  void txtFreqBandU_Validate();
  void AskAboutLowerLimit(int limit, int inForce);

  MessageView& m_messages;
  RadioImage& m_image;
  EntryBox *m_lower, *m_upper;
  QString m_rememberedLower, m_rememberedUpper;
  QString m_agreedLower; // checked, and the question about it answered
};

// The radio's identity number and firmware version, read-only.
class RecordFrame : public FieldFrame {
  Q_OBJECT
public:
  RecordFrame();

  void Fill(const Configuration& values) override;
  void Collect(Configuration& values) const override;

private:
  QLabel* AddRecord(int row, const QString& objectName, const QString& label);

  QLabel *m_id, *m_version;
};

} // namespace mr4500x
