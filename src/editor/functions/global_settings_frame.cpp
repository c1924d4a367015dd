#include "global_settings_frame.h"

#include "configuration.h"
#include "entry_box.h"
#include "entry_messages.h"
#include "field_rules.h"
#include "fields.h"
#include "frame_parts.h"
#include "look.h"

#include <QGridLayout>

namespace mr4500x {
namespace {

constexpr int MostIdCharacters = 16;
constexpr int Left = 0;
constexpr int Right = 3;

void UseIdBox(EntryBox& box, bool usable) {
  SetUsable(box, usable);
  if (!usable) box.setText(QString::fromUtf8(NoNumberText));
}

} // namespace

GlobalSettingsFrame::GlobalSettingsFrame(MessageView& messages, QWidget* parent)
    : ListFrame(QStringLiteral("fraRadio"), tr("Global Radio Settings"), parent), m_messages(messages) {
  Fields().setColumnMinimumWidth(Right - 1, 16);

  // In tab order.
  Add(0, Left, ChoiceList::BatterySave);
  Add(1, Left, ChoiceList::BeepTone);
  Add(2, Left, ChoiceList::TxTot);
  Add(3, Left, ChoiceList::BusyChLock);
  Add(4, Left, ChoiceList::SquelchLevel);
  Add(5, Left, ChoiceList::Compander);
  Add(6, Left, ChoiceList::VoxSensivity);

  Add(0, Right, ChoiceList::BeepEnable);
  m_ani = AddIdBox(1, QStringLiteral("txtANI"), Box::EmergencyAni, AniInvalidText);
  m_pttId = Add(2, Right, ChoiceList::PttId);
  m_connect = AddIdBox(3, QStringLiteral("txtConnect"), Box::ConnectId, ConnectInvalidText);
  m_disconnect = AddIdBox(4, QStringLiteral("txtDisconnect"), Box::DisconnectId, DisconnectInvalidText);
  Add(5, Right, ChoiceList::DigitTime);
  Add(6, Right, ChoiceList::InterDigitTime);
  Fields().setColumnStretch(Left + 1, 1);
  Fields().setColumnStretch(Right + 1, 1);
  Fields().setRowStretch(7, 1);

  m_ani->setAccessibleName(tr("Emergency ANI"));
  UseIdBoxes();
}

ChoiceBox* GlobalSettingsFrame::Add(int row, int column, ChoiceList list) {
  auto* const box = AddList(row, column, list);
  connect(box, &ChoiceBox::Selected, this, [this] {
    UseIdBoxes();
    emit ListChanged();
    emit Changed();
  });
  return box;
}

EntryBox* GlobalSettingsFrame::AddIdBox(int row, const QString& objectName, Box setting, std::string_view invalidText) {
  const auto filter = [](char typed, bool /*onKeypad*/) { return IdCharacter(typed); };
  const QString label = QString::fromUtf8(LabelOf(setting));
  auto* const box = new EntryBox(objectName, MostIdCharacters, filter, label, this);
  box->setText(QString::fromUtf8(NoNumberText));
  box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  AddField(Fields(), row, Right, label, box);
  connect(box, &EntryBox::Left, this, [this, box, invalidText] {
    if (IdTextValid(box->text().toStdString())) return;
    ShowEntryError(m_messages, invalidText);
    box->setText(QString::fromUtf8(NoNumberText));
  });
  return box;
}

void GlobalSettingsFrame::UseIdBoxes() {
  enum PttId { Off, ConnectId, DisconnectId, Both };
  const int pttId = m_pttId->currentIndex();
  UseIdBox(*m_connect, pttId == ConnectId || pttId == Both);
  UseIdBox(*m_disconnect, pttId == DisconnectId || pttId == Both);
}

void GlobalSettingsFrame::FillIdBoxes(const Configuration& values) {
  m_connect->setText(QString::fromUtf8(values.connectId));
  m_disconnect->setText(QString::fromUtf8(values.disconnectId));
}

void GlobalSettingsFrame::FillAni(const Configuration& values) {
  m_ani->setText(QString::fromUtf8(values.emergencyAni));
}

void GlobalSettingsFrame::Collect(Configuration& values) const {
  CollectLists(values);
  values.emergencyAni = m_ani->text().toStdString();
  values.connectId = m_connect->text().toStdString();
  values.disconnectId = m_disconnect->text().toStdString();
}

} // namespace mr4500x
