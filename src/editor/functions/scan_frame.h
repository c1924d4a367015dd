// "Scan Information": six lists and the "Signal" box.
#pragma once

#include "list_frame.h"

class QCheckBox;

namespace mr4500x {

class ScanFrame : public ListFrame {
  Q_OBJECT
public:
  explicit ScanFrame(QWidget* parent = nullptr);

  void FillSignal(const Configuration& values);
  void Collect(Configuration& values) const;

private:
  QCheckBox* m_signal;
};

} // namespace mr4500x
