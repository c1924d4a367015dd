// The frames with lists: "Scan Information", "Select Call" and "5 Tone". "Manual Tune Enable" is a plain FieldFrame.
#pragma once

#include "settings_frame.h"

class QCheckBox;

namespace mr4500x {

// Six lists and the "Signal" box.
class ScanFrame : public FieldFrame {
  Q_OBJECT
public:
  ScanFrame();

  void Fill(const Configuration& values) override;
  void Collect(Configuration& values) const override;

private:
  QCheckBox* m_signal;
};

class SelectCallFrame : public FieldFrame {
  Q_OBJECT
public:
  SelectCallFrame();

  [[nodiscard]] bool IsTts() const { return m_mode == TtsMode; }

signals:
  void ModeChanged(bool tts); // not emitted if the same mode is selected again

private:
  int m_mode = TtsMode;
};

// Enabled in 5 tone mode.
class FiveToneFrame : public FieldFrame {
  Q_OBJECT
public:
  FiveToneFrame();

  void SetTtsMode(bool tts);

private:
  QWidget* m_label;
};

} // namespace mr4500x
