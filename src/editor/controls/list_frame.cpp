#include "list_frame.h"

#include "frame_parts.h"

#include <QGridLayout>

#include <array>

namespace mr4500x {
namespace {

struct ListControl {
  const char* objectName;
  const char* label;
};

// By ChoiceList. "Sensivity" is the product's own spelling.
// clang-format off
constexpr std::array<ListControl, ChoiceListCount> Controls = {{
    {"cboRadio(0)",   "Select Call"},
    {"cboRadio(1)",   "Beep Tone"},
    {"cboRadio(2)",   "Battery Save"},
    {"cboRadio(3)",   "Busy CH Lock"},
    {"cboRadio(4)",   "Tx TOT"},
    {"cboRadio(5)",   "Squelch Level"},
    {"cboRadio(6)",   "Compander"},
    {"cboRadio(7)",   "Digit Time"},
    {"cboRadio(8)",   "Inter Digit Time"},
    {"cboRadio(9)",   "PTT ID"},
    {"cboRadio(10)",  "VOX Sensivity"},
    {"cboRadio(11)",  "Beep Enable"},
    {"cboScan(0)",    "Scan Mode"},
    {"cboScan(1)",    "TO Scan Delay"},
    {"cboScan(3)",    "Priority CH"},
    {"cboScan(4)",    "Look Back"},
    {"cboScan(5)",    "Restore Time"},
    {"cboScan(6)",    "Revert CH"},
    {"cboTuneSwitch", "Manual Tune"},
    {"cboFive",       "Standards"},
}};
// clang-format on

} // namespace

ListFrame::ListFrame(const QString& objectName, const QString& title, QWidget* parent)
    : QGroupBox(title, parent), m_fields(NewFieldLayout(*this)) {
  setObjectName(objectName);
}

ChoiceBox* ListFrame::AddList(int row, int column, ChoiceList list) {
  const ListControl& control = Controls[static_cast<std::size_t>(list)];
  const QString label = QString::fromUtf8(control.label);
  auto* const box = new ChoiceBox(QString::fromUtf8(control.objectName), ItemTexts(ItemsOf(list)), label, this);
  AddField(*m_fields, row, column, label, box);
  m_lists[list] = box;
  return box;
}

void ListFrame::FillLists(const Configuration& values) {
  for (const auto& [list, box] : m_lists) {
    box->SetChoice(values[list]);
  }
}

void ListFrame::CollectLists(Configuration& values) const {
  for (const auto& [list, box] : m_lists) {
    values[list] = box->Chosen();
  }
}

} // namespace mr4500x
