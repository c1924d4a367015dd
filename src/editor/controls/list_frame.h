// The base of frames with lists of the configuration.
#pragma once

#include "choice_box.h"

#include <QGroupBox>

#include <map>

class QGridLayout;

namespace mr4500x {

class ListFrame : public QGroupBox {
  Q_OBJECT
public:
  void FillLists(const Configuration& values); // in the order of ChoiceList
  void CollectLists(Configuration& values) const;

signals:
  void Changed();

protected:
  ListFrame(const QString& objectName, const QString& title, QWidget* parent);

  // Adds the label in `column` and the list in `column + 1`.
  ChoiceBox* AddList(int row, int column, ChoiceList list);
  [[nodiscard]] QGridLayout& Fields() const { return *m_fields; }

private:
  QGridLayout* m_fields;
  std::map<ChoiceList, ChoiceBox*> m_lists;
};

} // namespace mr4500x
