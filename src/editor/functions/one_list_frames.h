// The frames with a single list: "Manual Tune Enable", "Select Call" and "5 Tone".
#pragma once

#include "list_frame.h"

namespace mr4500x {

class OneListFrame : public ListFrame {
  Q_OBJECT
public:
  void Fill(const Configuration& values) { FillLists(values); }
  void Collect(Configuration& values) const { CollectLists(values); }

protected:
  OneListFrame(const QString& objectName, const QString& title, ChoiceList list, QWidget* parent);

  [[nodiscard]] ChoiceBox& List() const { return *m_list; }

private:
  ChoiceBox* m_list;
};

// Never emits Changed: this choice does not count as a change of the data.
class TuneFrame : public OneListFrame {
  Q_OBJECT
public:
  explicit TuneFrame(QWidget* parent = nullptr);
};

class SelectCallFrame : public OneListFrame {
  Q_OBJECT
public:
  explicit SelectCallFrame(QWidget* parent = nullptr);

  [[nodiscard]] bool IsTts() const;

signals:
  // In this order, before Changed; ModeChanged only if the mode differs from the last one.
  void ModeChanged(bool tts);
  void ListChanged();

private:
  void cboRadio_Change(int position);

  int m_rememberedMode = 0;
};

// Enabled in 5 tone mode.
class FiveToneFrame : public OneListFrame {
  Q_OBJECT
public:
  explicit FiveToneFrame(QWidget* parent = nullptr);

  void Fill(const Configuration& values);
  void Collect(Configuration& values) const;
  // Remembers the collected standard, which a later collect in TTS mode stores.
  void AfterCollect(const Configuration& values) { m_standard = values.fiveToneStandard; }
  void SetTtsMode(bool tts);

private:
  QWidget* m_label;
  std::int16_t m_standard = 1;
};

} // namespace mr4500x
