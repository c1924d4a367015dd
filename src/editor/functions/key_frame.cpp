#include "key_frame.h"

#include "fields.h"
#include "fill_messages.h"
#include "frame_parts.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>

namespace mr4500x {

constexpr int FirstFixedList = 10;

void ShowKeyConflicts(MessageView& messages, int count) {
  for (; count > 0; --count)
    messages.Show(MessageIcon::Exclamation, KeyConflictTitle, KeyConflictText, MessageButtons::Ok);
}

KeyFrame::KeyFrame(MessageView& messages)
    : FieldFrame(QStringLiteral("fraKey"), tr("Key Program")), m_messages(messages) {
  for (std::size_t key = ShortA; key <= LongC; ++key) { // short press left, long press right
    const int number = static_cast<int>(key), row = number / 2, column = number % 2 == 0 ? 0 : 3;
    const QString label = QString::fromUtf8(LabelOf(static_cast<Key>(key)));
    QStringList items;
    for (const KeyItem& item : KeyItems(key))
      items.append(QString::fromUtf8(item.text));
    m_lists[key] = NewList(number, key, items, tr("Key %1 press").arg(label));
    m_labels[key] = AddField(Fields(), row, column, label, m_lists[key]);
    connect(m_lists[key], &ChoiceBox::Selected, this, [this, key](int position) { cboKey_Change(key, position); });
    if (key >= m_fixed.size()) continue;
    m_fixed[key] = NewList(FirstFixedList + number, key, {items[KeySpecial]}, tr("Key %1 press, fixed").arg(label));
    Fields().addWidget(m_fixed[key], row, column + 1);
  }
  StretchFields({0, 3});
  ShowKeys();
}

ChoiceBox* KeyFrame::NewList(int number, std::size_t key, const QStringList& items, const QString& accessibleName) {
  auto* const list = new ChoiceBox(QStringLiteral("cboKey(%1)").arg(number), items, accessibleName, this);
  NameSetting(*list, static_cast<Key>(key));
  // A hidden list keeps its place, so that the column keeps its width.
  QSizePolicy policy = list->sizePolicy();
  policy.setRetainSizeWhenHidden(key < m_fixed.size());
  list->setSizePolicy(policy);
  return list;
}

void KeyFrame::cboKey_Change(std::size_t key, int position) {
  // The lists show the conflicting selection until the message is closed.
  ShowKeyConflicts(m_messages, SelectKey(m_keys, key, position));
  ShowKeys();
  emit Changed();
}

void KeyFrame::ShowKeys() {
  for (std::size_t key = ShortA; key <= LongC; ++key)
    m_lists[key]->ShowPosition(m_keys.selection[key]);
  const std::array fixedShown = {m_keys.fixedShortAShown, m_keys.fixedLongAShown};
  for (std::size_t key = ShortA; key < m_fixed.size(); ++key) {
    m_fixed[key]->setVisible(fixedShown[key]);
    m_lists[key]->setVisible(!fixedShown[key]);
    m_labels[key]->setBuddy(fixedShown[key] ? m_fixed[key] : m_lists[key]);
  }
  for (const std::size_t longKey : {LongB, LongC})
    SetUsable(*m_lists[longKey], LongPressEnabled(m_keys, longKey));
  for (const std::size_t shortKey : {ShortB, ShortC}) {
    // "Monitor" on a short press is green, other functions are dark blue.
    const QRgb text = m_keys.selection[shortKey] == KeySpecial ? GreenText : DarkBlueText;
    SetTextColour(*m_lists[shortKey], text, *this);
  }
}

void KeyFrame::changeEvent(QEvent* event) {
  FieldFrame::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && m_lists[LongC] != nullptr) ShowKeys();
}

void KeyFrame::Fill(const Configuration& values) {
  m_keys = values.keys;
  ShowKeys();
  emit Changed();
}

void KeyFrame::Collect(Configuration& values) const {
  values.keys = m_keys;
}

void KeyFrame::AfterCollect() {
  if (!CompleteEmergencyPair(m_keys)) return;
  ShowKeys();
  emit Changed();
}

} // namespace mr4500x
