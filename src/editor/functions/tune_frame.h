// "Manual Tune Enable". A choice here does not count as a change of the data.
#pragma once

#include "choice_box.h"

#include <QGroupBox>

namespace mr4500x {

class TuneFrame : public QGroupBox {
  Q_OBJECT
public:
  explicit TuneFrame(QWidget* parent = nullptr);

  void Fill(const Configuration& values);
  void Gather(Configuration& values) const;

private:
  ChoiceBox* m_list;
};

} // namespace mr4500x
