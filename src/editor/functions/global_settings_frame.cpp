// The global settings and their ID boxes.
#include "global_settings_frame.h"

#include "configuration.h"
#include "entry_box.h"
#include "field_rules.h"
#include "frame_parts.h"
#include "function_messages.h"

#include <QGridLayout>

namespace mr4500x {
namespace {

constexpr int MostIdCharacters = 16;

// ChoiceList counts these lists as their control array does.
constexpr std::size_t FirstList = static_cast<std::size_t>(ChoiceList::BeepTone);
ChoiceList ListAt(std::size_t index) {
  return static_cast<ChoiceList>(FirstList + index);
}

void UseIdBox(EntryBox& box, bool usable) {
  SetUsable(box, usable);
  if (!usable) box.setText(QString::fromUtf8(NoNumberText));
}

} // namespace

GlobalSettingsFrame::GlobalSettingsFrame(MessageView& messages, QWidget* parent)
    : QGroupBox(tr("Global Radio Settings"), parent), m_messages(messages) {
  setObjectName(QStringLiteral("fraRadio"));
  auto* const layout = NewFieldLayout(*this);
  constexpr int left = 0;
  constexpr int right = 3;
  layout->setColumnMinimumWidth(left + 2, 16);

  AddList(ChoiceList::BatterySave, tr("Battery Save"), 0, left);
  AddList(ChoiceList::BeepTone, tr("Beep Tone"), 1, left);
  AddList(ChoiceList::TxTot, tr("Tx TOT"), 2, left);
  AddList(ChoiceList::BusyChLock, tr("Busy CH Lock"), 3, left);
  AddList(ChoiceList::SquelchLevel, tr("Squelch Level"), 4, left);
  AddList(ChoiceList::Compander, tr("Compander"), 5, left);
  AddList(ChoiceList::VoxSensivity, tr("VOX Sensivity"), 6, left);

  AddList(ChoiceList::BeepEnable, tr("Beep Enable"), 0, right);
  m_ani = AddIdBox(QStringLiteral("txtANI"), tr("Emerge ANI "), 1, AniInvalidText);
  AddList(ChoiceList::PttId, tr("PTT ID"), 2, right);
  m_connect = AddIdBox(QStringLiteral("txtConnect"), tr("Connect ID"), 3, ConnectInvalidText);
  m_disconnect = AddIdBox(QStringLiteral("txtDisconnect"), tr("Disconnect ID"), 4, DisconnectInvalidText);
  AddList(ChoiceList::DigitTime, tr("Digit Time"), 5, right);
  AddList(ChoiceList::InterDigitTime, tr("Inter Digit Time"), 6, right);
  layout->setColumnStretch(left + 1, 1);
  layout->setColumnStretch(right + 1, 1);
  layout->setRowStretch(7, 1);

  m_ani->setAccessibleName(tr("Emergency ANI"));
  UseIdBoxes();
}

ChoiceBox* GlobalSettingsFrame::AddList(ChoiceList list, const QString& label, int row, int column) {
  const auto index = static_cast<std::size_t>(list);
  auto* const box = NewChoiceBox(QStringLiteral("cboRadio(%1)").arg(index), list, label, this);
  AddField(*static_cast<QGridLayout*>(layout()), row, column, label, box);
  m_lists[index - FirstList] = box;
  connect(box, &ChoiceBox::Selected, this, &GlobalSettingsFrame::cboRadio_Change);
  return box;
}

EntryBox* GlobalSettingsFrame::AddIdBox(const QString& objectName, const QString& label, int row,
                                        std::string_view invalidText) {
  auto* const box = new EntryBox(objectName, MostIdCharacters, IdCharacter, EntryBox::OtherKeys::Edit, label, this);
  box->setText(QString::fromUtf8(NoNumberText));
  box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  AddField(*static_cast<QGridLayout*>(layout()), row, 3, label, box);
  connect(box, &EntryBox::Left, this, [this, box, invalidText] { IdBox_Validate(*box, invalidText); });
  return box;
}

void GlobalSettingsFrame::UseIdBoxes() {
  enum PttId { Off, ConnectId, DisconnectId, Both };
  const int pttId = m_lists[static_cast<std::size_t>(ChoiceList::PttId) - FirstList]->currentIndex();
  UseIdBox(*m_connect, pttId == ConnectId || pttId == Both);
  UseIdBox(*m_disconnect, pttId == DisconnectId || pttId == Both);
}

void GlobalSettingsFrame::cboRadio_Change() {
  UseIdBoxes();
  emit ListChanged();
  emit Changed();
}

void GlobalSettingsFrame::IdBox_Validate(EntryBox& box, std::string_view invalidText) {
  if (IdTextValid(box.text().toStdString())) return;
  ShowEntryError(m_messages, invalidText);
  box.setText(QString::fromUtf8(NoNumberText));
}

void GlobalSettingsFrame::FillLists(const Configuration& values) {
  for (std::size_t i = 0; i < m_lists.size(); ++i) {
    m_lists[i]->SetChoice(values[ListAt(i)]);
  }
}

void GlobalSettingsFrame::FillIdBoxes(const Configuration& values) {
  m_connect->setText(QString::fromUtf8(values.connectId));
  m_disconnect->setText(QString::fromUtf8(values.disconnectId));
}

void GlobalSettingsFrame::FillAni(const Configuration& values) {
  m_ani->setText(QString::fromUtf8(values.emergencyAni));
}

void GlobalSettingsFrame::Gather(Configuration& values) const {
  for (std::size_t i = 0; i < m_lists.size(); ++i) {
    values[ListAt(i)] = m_lists[i]->Chosen();
  }
  values.emergencyAni = m_ani->text().toStdString();
  values.connectId = m_connect->text().toStdString();
  values.disconnectId = m_disconnect->text().toStdString();
}

} // namespace mr4500x
