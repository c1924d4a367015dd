// A frame with lists of the configuration, each labelled and named after its control.
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

  // Puts a list into the columns `column` (its label) and `column + 1`.
  ChoiceBox* AddList(int row, int column, ChoiceList list);
  [[nodiscard]] QGridLayout& Fields() const { return *m_fields; }

private:
  QGridLayout* m_fields;
  std::map<ChoiceList, ChoiceBox*> m_lists;
};

} // namespace mr4500x
