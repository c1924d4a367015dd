#include "global_settings_frame.h"

#include "field_rules.h"
#include "fields.h"
#include "frame_parts.h"

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

// In tab order.
GlobalSettingsFrame::GlobalSettingsFrame(MessageView& messages)
    : FieldFrame(QStringLiteral("fraRadio"), tr("Global Radio Settings")), m_messages(messages) {
  AddList(0, Left, ChoiceList::BatterySave);
  AddList(1, Left, ChoiceList::BeepTone);
  AddList(2, Left, ChoiceList::TxTot);
  AddList(3, Left, ChoiceList::BusyChLock);
  AddList(4, Left, ChoiceList::SquelchLevel);
  AddList(5, Left, ChoiceList::Compander);
  AddList(6, Left, ChoiceList::VoxSensivity);

  AddList(0, Right, ChoiceList::BeepEnable);
  m_ani = AddIdBox(1, QStringLiteral("txtANI"), Box::EmergencyAni, "Emergency ANI Invalid!");
  ChoiceBox* const pttId = AddList(2, Right, ChoiceList::PttId);
  m_connect = AddIdBox(3, QStringLiteral("txtConnect"), Box::ConnectId, "Connect ID Invalid!");
  m_disconnect = AddIdBox(4, QStringLiteral("txtDisconnect"), Box::DisconnectId, "Disconnect ID Invalid!");
  AddList(5, Right, ChoiceList::DigitTime);
  AddList(6, Right, ChoiceList::InterDigitTime);
  StretchFields({Left, Right});

  m_ani->setAccessibleName(tr("Emergency ANI"));
  connect(pttId, &ChoiceBox::Selected, this, &GlobalSettingsFrame::UseIdBoxes);
  UseIdBoxes();
}

EntryBox* GlobalSettingsFrame::AddIdBox(int row, const QString& objectName, Box setting, const char* refusal) {
  const auto filter = [](char typed, bool /*onKeypad*/) { return IdCharacter(typed); };
  const QString label = QString::fromUtf8(LabelOf(setting));
  auto* const box = new EntryBox(objectName, MostIdCharacters, filter, label, this);
  NameSetting(*box, setting);
  box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  AddField(Fields(), row, Right, label, box);
  const auto selectDashes = [box] {
    if (box->text() == QLatin1String(NoNumberText.data()) && !box->hasSelectedText()) box->selectAll();
  };
  connect(box, &EntryBox::Arrived, box, selectDashes);
  connect(box, &EntryBox::Clicked, box, selectDashes); // the click that follows removes the selection
  box->ShowsMessageWhen([box] { return !IdTextValid(box->text().toStdString()); });
  connect(box, &EntryBox::Left, this, [this, box, refusal] {
    if (IdTextValid(box->text().toStdString())) return;
    ShowEntryError(m_messages, refusal);
    box->setText(QString::fromUtf8(NoNumberText));
  });
  return box;
}

void GlobalSettingsFrame::UseIdBoxes() {
  const int pttId = List(ChoiceList::PttId).currentIndex();
  UseIdBox(*m_connect, pttId >= 0 && SendsConnectId(pttId));
  UseIdBox(*m_disconnect, pttId >= 0 && SendsDisconnectId(pttId));
}

// The choice of "PTT ID" may put the placeholder into the boxes, so they come last.
void GlobalSettingsFrame::Fill(const Configuration& values) {
  FieldFrame::Fill(values);
  m_ani->setText(QString::fromUtf8(values.emergencyAni));
  m_connect->setText(QString::fromUtf8(values.connectId));
  m_disconnect->setText(QString::fromUtf8(values.disconnectId));
}

void GlobalSettingsFrame::Collect(Configuration& values) const {
  FieldFrame::Collect(values);
  values.emergencyAni = m_ani->text().toStdString();
  values.connectId = m_connect->text().toStdString();
  values.disconnectId = m_disconnect->text().toStdString();
}

} // namespace mr4500x
