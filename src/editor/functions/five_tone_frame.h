// "5 Tone": the standard, in use while the mode is 5-tone.
#pragma once

#include "choice_box.h"

#include <QGroupBox>

class QLabel;

namespace mr4500x {

class FiveToneFrame : public QGroupBox {
  Q_OBJECT
public:
  explicit FiveToneFrame(QWidget* parent = nullptr);

  void Fill(const Configuration& values);
  void Gather(Configuration& values) const;
  // A collect takes the selected standard over; it is what a later one in TTS mode stores.
  void AfterCollect(const Configuration& values) { m_standard = values.fiveToneStandard; }
  void SetTtsMode(bool tts);

signals:
  void Changed();

private:
  QLabel* m_label;
  ChoiceBox* m_list;
  std::int16_t m_standard = 1;
};

} // namespace mr4500x
