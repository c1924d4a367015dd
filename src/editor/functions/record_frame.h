// "Radio Record": the radio's identity number and firmware version, read-only.
#pragma once

#include "configuration.h"

#include <QGroupBox>

class QLabel;

namespace mr4500x {

class RecordFrame : public QGroupBox {
  Q_OBJECT
public:
  explicit RecordFrame(QWidget* parent = nullptr);

  void Fill(const Configuration& values);
  void Collect(Configuration& values) const;

private:
  QLabel* AddRecord(int row, const QString& objectName, const QString& label);

  QLabel* m_id;
  QLabel* m_version;
};

} // namespace mr4500x
