#include "band_frame.h"

#include "decimal.h"
#include "entry_box.h"
#include "entry_messages.h"
#include "field_rules.h"
#include "frame_parts.h"

#include <QHBoxLayout>
#include <QLabel>

#include <utility>

namespace mr4500x {
namespace {

constexpr int BoxCharacters = 3;
constexpr char UpperAfterEmpty[] = "420";

EntryBox* NewLimitBox(const QString& objectName, const QString& accessibleName, QWidget* parent) {
  auto* const box = new EntryBox(objectName, BoxCharacters, DigitFilter, accessibleName, parent);
  box->IgnoreEditingKeys();
  return box;
}

} // namespace

BandFrame::BandFrame(MessageView& messages, BandAccess access, QWidget* parent)
    : QGroupBox(tr("Frequency Band"), parent), m_messages(messages), m_access(std::move(access)) {
  setObjectName(QStringLiteral("fraModel"));
  m_lower = NewLimitBox(QStringLiteral("txtFreqBandL"), tr("Frequency band, lower limit in MHz"), this);
  m_upper = NewLimitBox(QStringLiteral("txtFreqBandU"), tr("Frequency band, upper limit in MHz"), this);
  auto* const layout = new QHBoxLayout(this);
  layout->setSpacing(8);
  layout->addWidget(new QLabel(tr("LR7200 Series"), this));
  layout->addSpacing(8);
  layout->addWidget(m_lower);
  layout->addWidget(new QLabel(QStringLiteral("~"), this));
  layout->addWidget(m_upper);
  layout->addWidget(new QLabel(tr("MHz"), this));
  layout->addStretch(1);

  connect(m_lower, &EntryBox::Arrived, this, &BandFrame::txtFreqBandL_GotFocus);
  connect(m_lower, &EntryBox::Clicked, this, &BandFrame::txtFreqBandL_Click);
  connect(m_lower, &EntryBox::Stepped, this, &BandFrame::txtFreqBandL_Recheck);
  connect(m_upper, &EntryBox::Stepped, this, &BandFrame::txtFreqBandU_Recheck);
  connect(m_lower, &EntryBox::Left, this, &BandFrame::txtFreqBandL_Validate);
  connect(m_upper, &EntryBox::Left, this, &BandFrame::txtFreqBandU_Validate);
  connect(m_lower, &QLineEdit::textChanged, this, &BandFrame::Changed);
  connect(m_upper, &QLineEdit::textChanged, this, &BandFrame::Changed);
}

// The validation compares the limit with the one that the box held when it got the focus.
void BandFrame::txtFreqBandL_GotFocus() {
  const std::optional<int> lower = ParseWhole(LowerText());
  if (lower && m_lower->text().size() == BoxCharacters) m_access.storeLowerLimit(*lower);
}

void BandFrame::txtFreqBandL_Click() {
  const int start = m_lower->hasSelectedText() ? m_lower->selectionStart() : m_lower->cursorPosition();
  m_lower->setSelection(start, BoxCharacters);
}

// Up and Down check the entry again instead of stepping.
void BandFrame::txtFreqBandL_Recheck() {
  const std::optional<int> lower = ParseWhole(LowerText());
  const std::optional<int> upper = ParseWhole(UpperText());
  if (!lower || !upper) {
    ShowEntryError(m_messages, LowerInvalidAtKeyText);
    m_lower->SetWholeText(m_rememberedLower);
    return;
  }
  if (*lower < LowestBandLimit)
    m_lower->SetWholeText(QString::number(LowestBandLimit));
  else if (*lower >= *upper)
    m_lower->SetWholeText(m_rememberedLower);
  m_rememberedLower = m_lower->text();
}

void BandFrame::txtFreqBandU_Recheck() {
  const std::optional<int> lower = ParseWhole(LowerText());
  const std::optional<int> upper = ParseWhole(UpperText());
  if (!lower || !upper) {
    ShowEntryError(m_messages, UpperInvalidText);
    m_upper->SetWholeText(QLatin1String(UpperAfterEmpty));
  } else if (*upper <= *lower) {
    m_upper->SetWholeText(QString::number(*lower + 1));
  } else if (*upper > HighestBandLimit) {
    m_upper->SetWholeText(QString::number(HighestBandLimit));
  }
}

void BandFrame::txtFreqBandL_Validate() {
  const BandCheck check = CheckLowerBand(LowerText(), UpperText());
  if (check.entry != BandEntry::Accepted) {
    ShowEntryError(m_messages, check.entry == BandEntry::Empty ? LowerInvalidText : LowerNotBelowText);
    m_lower->SetWholeText(m_rememberedLower);
    return;
  }
  m_lower->SetWholeText(QString::number(check.value));
  if (check.value == m_access.storedLowerLimit()) return;
  const Answer answer =
      m_messages.Show(MessageIcon::Exclamation, BandChangeTitle, BandChangeText, MessageButtons::YesNo);
  if (answer == Answer::Yes)
    m_access.reinitialiseChannels(check.value);
  else
    m_lower->SetWholeText(QString::number(m_access.storedLowerLimit()));
}

void BandFrame::txtFreqBandU_Validate() {
  const BandCheck check = CheckUpperBand(LowerText(), UpperText());
  if (check.entry != BandEntry::Accepted) {
    ShowEntryError(m_messages, check.entry == BandEntry::Empty ? UpperInvalidText : UpperNotAboveText);
    m_upper->SetWholeText(m_rememberedUpper);
    return;
  }
  m_upper->SetWholeText(QString::number(check.value));
  m_rememberedUpper = m_upper->text();
}

void BandFrame::Fill(const Configuration& values) {
  m_rememberedLower = QString::fromUtf8(values.lowerBandLimit);
  m_rememberedUpper = QString::fromUtf8(values.upperBandLimit);
  m_lower->SetWholeText(m_rememberedLower);
  m_upper->SetWholeText(m_rememberedUpper);
}

void BandFrame::Collect(Configuration& values) const {
  values.lowerBandLimit = LowerText();
  values.upperBandLimit = UpperText();
}

std::string BandFrame::LowerText() const {
  return m_lower->text().toStdString();
}
std::string BandFrame::UpperText() const {
  return m_upper->text().toStdString();
}

} // namespace mr4500x
