// "Select Call": TTS or 5-tone. It knows the mode that was in force before, so that only a real change is told.
#pragma once

#include "choice_box.h"

#include <QGroupBox>

namespace mr4500x {

class SelectCallFrame : public QGroupBox {
  Q_OBJECT
public:
  explicit SelectCallFrame(QWidget* parent = nullptr);

  void Fill(const Configuration& values);
  void Gather(Configuration& values) const;
  [[nodiscard]] bool IsTts() const;

signals:
  // In this order at each selection, the first one only when the mode is not the remembered one.
  void ModeChanged(bool tts);
  void ListChanged();
  void Changed();

private:
  void cboRadio_Change(int position);

  ChoiceBox* m_list;
  int m_rememberedMode = 0;
};

} // namespace mr4500x
