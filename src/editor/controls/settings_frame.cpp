#include "settings_frame.h"

#include "frame_parts.h"

#include <QGridLayout>

#include <array>

namespace mr4500x {

constexpr int ColumnGap = 16;

// Indexed by ChoiceList.
// clang-format off
constexpr std::array<const char*, ChoiceListCount> Controls = {
    "cboRadio(0)", "cboRadio(1)", "cboRadio(2)", "cboRadio(3)", "cboRadio(4)",  "cboRadio(5)",
    "cboRadio(6)", "cboRadio(7)", "cboRadio(8)", "cboRadio(9)", "cboRadio(10)", "cboRadio(11)",
    "cboScan(0)",  "cboScan(1)",  "cboScan(3)",  "cboScan(4)",  "cboScan(5)",   "cboScan(6)",
    "cboTuneSwitch", "cboFive",
};
// clang-format on

QString SettingName(FieldPlace place) {
  const Field& field = FieldOf(place);
  const std::string group(NameOf(field.group));
  return QString::fromStdString((group.empty() ? "" : group + '.') + std::string(field.key));
}

void NameSetting(QWidget& control, FieldPlace place) {
  control.setProperty(SettingProperty, SettingName(place));
}

FieldFrame::FieldFrame(const QString& objectName, const QString& title)
    : SettingsFrame(objectName, title), m_fields(NewFieldLayout(*this)) {}

FieldFrame::FieldFrame(const QString& objectName, const QString& title, ChoiceList list)
    : FieldFrame(objectName, title) {
  AddList(0, 0, list);
  m_fields->setColumnStretch(2, 1); // the list keeps its width
}

ChoiceBox* FieldFrame::AddList(int row, int column, ChoiceList list) {
  const QString objectName = QString::fromUtf8(Controls[static_cast<std::size_t>(list)]);
  const QString label = QString::fromUtf8(LabelOf(list));
  auto* const box = new ChoiceBox(objectName, ItemTexts(ItemsOf(list)), label, this);
  NameSetting(*box, list);
  AddField(*m_fields, row, column, label, box);
  connect(box, &ChoiceBox::Selected, this, &FieldFrame::Changed);
  m_lists[list] = box;
  return box;
}

void FieldFrame::StretchFields(std::initializer_list<int> labelColumns) {
  for (const int column : labelColumns) {
    if (column != *labelColumns.begin()) m_fields->setColumnMinimumWidth(column - 1, ColumnGap);
    m_fields->setColumnStretch(column + 1, 1);
  }
}

void FieldFrame::Fill(const Configuration& values) {
  for (const auto& [list, box] : m_lists)
    box->SetChoice(values[list]);
}

void FieldFrame::Collect(Configuration& values) const {
  for (const auto& [list, box] : m_lists)
    values[list] = box->Chosen();
}

} // namespace mr4500x
