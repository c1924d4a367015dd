#include "key_frame.h"

#include "fields.h"
#include "fill_messages.h"
#include "frame_parts.h"
#include "look.h"

#include <QEvent>
#include <QGridLayout>

namespace mr4500x {
namespace {

QString LabelOfKey(std::size_t key) {
  return QString::fromUtf8(LabelOf(static_cast<Key>(key)));
}
int RowOf(std::size_t key) {
  return static_cast<int>(key / 2);
}
int FieldColumnOf(std::size_t key) {
  return key % 2 == 0 ? 1 : 4; // short press left, long press right
}

// Reserves the space of a hidden list, so that the column keeps its width.
void KeepPlace(QWidget& list) {
  QSizePolicy policy = list.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  list.setSizePolicy(policy);
}

} // namespace

KeyFrame::KeyFrame(MessageView& messages, QWidget* parent)
    : QGroupBox(tr("Key Program"), parent), m_messages(messages) {
  setObjectName(QStringLiteral("fraKey"));
  auto* const layout = NewFieldLayout(*this);
  for (std::size_t key = ShortA; key <= LongC; ++key)
    AddKey(*layout, key, LabelOfKey(key));
  m_fixedShortA = AddFixed(*layout, QStringLiteral("cboKey(10)"), KeyItemText(ShortA, KeySpecial), ShortA);
  m_fixedLongA = AddFixed(*layout, QStringLiteral("cboKey(11)"), KeyItemText(LongA, KeySpecial), LongA);
  setTabOrder(m_lists[ShortA], m_fixedShortA);
  setTabOrder(m_fixedShortA, m_lists[LongA]);
  setTabOrder(m_lists[LongA], m_fixedLongA);
  setTabOrder(m_fixedLongA, m_lists[ShortB]);
  layout->setColumnMinimumWidth(2, 16);
  layout->setColumnStretch(1, 1);
  layout->setColumnStretch(4, 1);
  layout->setRowStretch(3, 1);
  ShowKeys();
}

void KeyFrame::AddKey(QGridLayout& layout, std::size_t key, const QString& label) {
  QStringList items;
  for (const KeyItem& item : KeyItems(key))
    items.append(QString::fromUtf8(item.text));
  auto* const list = new ChoiceBox(QStringLiteral("cboKey(%1)").arg(key), items, tr("Key %1 press").arg(label), this);
  AddField(layout, RowOf(key), FieldColumnOf(key) - 1, label, list);
  if (key == ShortA || key == LongA) KeepPlace(*list);
  m_lists[key] = list;
  connect(list, &ChoiceBox::Selected, this, [this, key](int position) { cboKey_Change(key, position); });
}

ChoiceBox* KeyFrame::AddFixed(QGridLayout& layout, const QString& objectName, std::string_view item, std::size_t over) {
  auto* const list =
      new ChoiceBox(objectName, {QString::fromUtf8(item)}, tr("Key %1 press, fixed").arg(LabelOfKey(over)), this);
  layout.addWidget(list, RowOf(over), FieldColumnOf(over));
  KeepPlace(*list);
  return list;
}

void KeyFrame::cboKey_Change(std::size_t key, int position) {
  // The lists show the conflicting selection until the message is closed.
  if (SelectKey(m_keys, key, position)) ShowConflict();
  ShowKeys();
  emit Changed();
}

void KeyFrame::ShowConflict() {
  m_messages.Show(MessageIcon::Exclamation, KeyConflictTitle, KeyConflictText, MessageButtons::Ok);
}

void KeyFrame::ShowKeys() {
  for (std::size_t key = ShortA; key <= LongC; ++key)
    m_lists[key]->ShowPosition(m_keys.selection[key]);
  m_fixedShortA->setVisible(m_keys.fixedShortAShown);
  m_lists[ShortA]->setVisible(!m_keys.fixedShortAShown);
  m_fixedLongA->setVisible(m_keys.fixedLongAShown);
  m_lists[LongA]->setVisible(!m_keys.fixedLongAShown);
  SetUsable(*m_lists[LongB], LongPressEnabled(m_keys, LongB));
  SetUsable(*m_lists[LongC], LongPressEnabled(m_keys, LongC));
  for (const std::size_t shortKey : {ShortB, ShortC}) {
    // "Monitor" on a short press is green, other functions are dark blue.
    const QRgb text = m_keys.selection[shortKey] == KeySpecial ? GreenText : DarkBlueText;
    SetTextColour(*m_lists[shortKey], text, *this);
  }
}

void KeyFrame::changeEvent(QEvent* event) {
  QGroupBox::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && m_fixedLongA != nullptr) ShowKeys();
}

void KeyFrame::Fill(const Configuration& values, bool conflict) {
  m_keyCodes = values.keyCodes;
  m_keys = {}; // the old keys must not conflict with the new ones
  for (std::size_t key = ShortA; key <= LongC; ++key) {
    conflict |= SelectKey(m_keys, key, values.keys.selection[key]);
    emit Changed();
  }
  ShowKeys();
  if (conflict) ShowConflict();
}

void KeyFrame::Collect(Configuration& values) const {
  values.keys = m_keys;
  values.keyCodes = m_keyCodes;
}

void KeyFrame::AfterCollect(const Configuration& values) {
  if (m_keys == values.keys) return;
  m_keys = values.keys;
  ShowKeys();
  emit Changed();
}

} // namespace mr4500x
