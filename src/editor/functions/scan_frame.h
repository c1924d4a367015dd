// "Scan Information": six lists and the "Signal" box, without rules among them.
#pragma once

#include "choice_box.h"

#include <QGroupBox>

#include <array>

class QCheckBox;

namespace mr4500x {

class ScanFrame : public QGroupBox {
  Q_OBJECT
public:
  explicit ScanFrame(QWidget* parent = nullptr);

  void FillSignal(const Configuration& values);
  void FillLists(const Configuration& values);
  void Gather(Configuration& values) const;

signals:
  void Changed();

private:
  QCheckBox* m_signal;
  std::array<ChoiceBox*, 6> m_lists{}; // in the order in which they are filled
};

} // namespace mr4500x
