// The frames of the editor. Each shows a part of the configuration. FieldFrame arranges labelled fields and lists.
#pragma once

#include "entry_controls.h"
#include "fields.h"

#include <QGroupBox>

#include <initializer_list>
#include <map>

class QGridLayout;

namespace mr4500x {

// The property of a control that names its setting, by the identifier without the number of an entry.
inline constexpr char SettingProperty[] = "setting";
[[nodiscard]] QString SettingName(FieldPlace place);
void NameSetting(QWidget& control, FieldPlace place);

class SettingsFrame : public QGroupBox {
  Q_OBJECT
public:
  SettingsFrame(const QString& objectName, const QString& title) : QGroupBox(title) { setObjectName(objectName); }

  virtual void Fill(const Configuration& values) = 0; // sets the controls as if the user had
  virtual void Collect(Configuration& values) const = 0;
  // For a copy of the work at any moment. The text of an open editor counts if it is valid. An unchecked entry counts
  // with its last checked text.
  virtual void CollectUnfinished(Configuration& values) const { Collect(values); }

signals:
  void Changed();
};

class FieldFrame : public SettingsFrame {
  Q_OBJECT
public:
  FieldFrame(const QString& objectName, const QString& title);
  // A frame with a single list.
  FieldFrame(const QString& objectName, const QString& title, ChoiceList list);

  void Fill(const Configuration& values) override; // the lists, in the order of ChoiceList
  void Collect(Configuration& values) const override;

protected:
  // Adds the label in `column` and the list in `column + 1`.
  ChoiceBox* AddList(int row, int column, ChoiceList list);
  // Call when all fields are added. The columns beside these label columns share the width. The rows stay at the top.
  void StretchFields(std::initializer_list<int> labelColumns);
  [[nodiscard]] ChoiceBox& List(ChoiceList list) const { return *m_lists.at(list); }
  [[nodiscard]] QGridLayout& Fields() const { return *m_fields; }

private:
  QGridLayout* m_fields;
  std::map<ChoiceList, ChoiceBox*> m_lists;
};

} // namespace mr4500x
