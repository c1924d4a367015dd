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

// A choice here does not count as a change of the data.
class TuneFrame : public OneListFrame {
  Q_OBJECT
public:
  explicit TuneFrame(QWidget* parent = nullptr);
};

// It knows the mode that was in force before, so that only a real change is told.
class SelectCallFrame : public OneListFrame {
  Q_OBJECT
public:
  explicit SelectCallFrame(QWidget* parent = nullptr);

  [[nodiscard]] bool IsTts() const;

signals:
  // In this order and before Changed at each selection, the first one only when the mode is not the remembered one.
  void ModeChanged(bool tts);
  void ListChanged();

private:
  void cboRadio_Change(int position);

  int m_rememberedMode = 0;
};

// In use while the mode is 5-tone.
class FiveToneFrame : public OneListFrame {
  Q_OBJECT
public:
  explicit FiveToneFrame(QWidget* parent = nullptr);

  void Fill(const Configuration& values);
  void Collect(Configuration& values) const;
  // A collect takes the selected standard over; it is what a later one in TTS mode stores.
  void AfterCollect(const Configuration& values) { m_standard = values.fiveToneStandard; }
  void SetTtsMode(bool tts);

private:
  QWidget* m_label;
  std::int16_t m_standard = 1;
};

} // namespace mr4500x
