#include "band_frame.h"

#include "decimal.h"
#include "frame_parts.h"

#include <QGridLayout>
#include <QLabel>

namespace mr4500x {
namespace {

constexpr int BoxCharacters = 3;
constexpr char LowerInvalidText[] = "The lower limit value is invalid!";
constexpr char UpperInvalidText[] = "The upper limit value is invalid!";

std::optional<int> NumberIn(const EntryBox& box) {
  return ParseWhole(box.text().toStdString());
}

} // namespace

bool AgreesToLowerLimit(MessageView& messages) {
  return messages.Show(MessageIcon::Exclamation, "Frequency Band Change",
                       "Change the lower limit value, all data will be initiated. Do you want to continue?",
                       MessageButtons::YesNo) == Answer::Yes;
}

BandFrame::BandFrame(MessageView& messages, RadioImage& image)
    : SettingsFrame(QStringLiteral("fraModel"), tr("Frequency Band")), m_messages(messages), m_image(image) {
  m_lower = NewLimitBox(QStringLiteral("txtFreqBandL"), tr("Frequency band, lower limit in MHz"));
  m_upper = NewLimitBox(QStringLiteral("txtFreqBandU"), tr("Frequency band, upper limit in MHz"));
  NameSetting(*m_lower, Box::LowerBandLimit);
  NameSetting(*m_upper, Box::UpperBandLimit);
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
  m_lower->ShowsMessageWhen([this] {
    const BandCheck check = CheckLowerBand(m_lower->text().toStdString(), m_upper->text().toStdString());
    return check.entry != BandEntry::Accepted || check.value != LowerBandLimit(m_image.BandBlock);
  });
  m_upper->ShowsMessageWhen([this] {
    return CheckUpperBand(m_lower->text().toStdString(), m_upper->text().toStdString()).entry != BandEntry::Accepted;
  });
}

EntryBox* BandFrame::NewLimitBox(const QString& objectName, const QString& accessibleName) {
  auto* const box = new EntryBox(objectName, BoxCharacters, DigitFilter, accessibleName, this);
  box->IgnoreEditingKeys();
  connect(box, &QLineEdit::textChanged, this, &BandFrame::Changed);
  return box;
}

// The validation compares the limit with the one that the box held when it got the focus.
void BandFrame::txtFreqBandL_GotFocus() {
  const std::optional<int> lower = NumberIn(*m_lower);
  if (lower && m_lower->text().size() == BoxCharacters) SetLowerBandLimit(m_image.BandBlock, *lower);
}

void BandFrame::txtFreqBandL_Click() {
  const int start = m_lower->hasSelectedText() ? m_lower->selectionStart() : m_lower->cursorPosition();
  m_lower->setSelection(start, BoxCharacters);
}

// Up and Down check the entry again instead of stepping.
void BandFrame::txtFreqBandL_Recheck() {
  const std::optional<int> lower = NumberIn(*m_lower);
  const std::optional<int> upper = NumberIn(*m_upper);
  if (!lower || !upper) {
    ShowEntryError(m_messages, "The lower limit value of frequency band is invalid!");
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
  const std::optional<int> lower = NumberIn(*m_lower);
  const std::optional<int> upper = NumberIn(*m_upper);
  if (!lower || !upper) {
    ShowEntryError(m_messages, UpperInvalidText);
    m_upper->SetWholeText(QStringLiteral("420"));
  } else if (*upper <= *lower) {
    m_upper->SetWholeText(QString::number(*lower + 1));
  } else if (*upper > HighestBandLimit) {
    m_upper->SetWholeText(QString::number(HighestBandLimit));
  }
}

// A refused entry restores the last text that the box accepted. If that is not the current limit, it is treated as
// typed, because channels must not leave their band without a question.
void BandFrame::txtFreqBandL_Validate() {
  const std::string upper = m_upper->text().toStdString();
  const int inForce = LowerBandLimit(m_image.BandBlock);
  BandCheck check = CheckLowerBand(m_lower->text().toStdString(), upper);
  if (check.entry != BandEntry::Accepted) {
    ShowEntryError(m_messages, check.entry == BandEntry::Empty
                                   ? LowerInvalidText
                                   : "The lower limit value must be less than the upper limit value!");
    check = CheckLowerBand(m_rememberedLower.toStdString(), upper);
    if (check.entry != BandEntry::Accepted) check.value = inForce;
  }
  m_lower->SetWholeText(QString::number(check.value));
  if (check.value != inForce) AskAboutLowerLimit(check.value, inForce);
  m_agreedLower = m_lower->text();
}

void BandFrame::AskAboutLowerLimit(int limit, int inForce) {
  if (AgreesToLowerLimit(m_messages))
    emit LowerLimitChanged(limit);
  else
    m_lower->SetWholeText(QString::number(inForce));
}

void BandFrame::txtFreqBandU_Validate() {
  const BandCheck check = CheckUpperBand(m_lower->text().toStdString(), m_upper->text().toStdString());
  if (check.entry == BandEntry::Accepted) {
    m_rememberedUpper = QString::number(check.value);
  } else {
    ShowEntryError(m_messages, check.entry == BandEntry::Empty
                                   ? UpperInvalidText
                                   : "The upper limit value must be more than the lower limit value!");
  }
  m_upper->SetWholeText(m_rememberedUpper);
}

void BandFrame::Fill(const Configuration& values) {
  m_rememberedLower = QString::fromUtf8(values.lowerBandLimit);
  m_agreedLower = m_rememberedLower;
  m_rememberedUpper = QString::fromUtf8(values.upperBandLimit);
  m_lower->SetWholeText(m_rememberedLower);
  m_upper->SetWholeText(m_rememberedUpper);
}

void BandFrame::Collect(Configuration& values) const {
  values.lowerBandLimit = m_lower->text().toStdString();
  values.upperBandLimit = m_upper->text().toStdString();
}

void BandFrame::CollectUnfinished(Configuration& values) const {
  values.lowerBandLimit = m_agreedLower.toStdString();
  values.upperBandLimit = m_rememberedUpper.toStdString();
}

Band BandFrame::Limits() const {
  return {NumberIn(*m_lower).value_or(LowestBandLimit), NumberIn(*m_upper).value_or(HighestBandLimit)};
}

RecordFrame::RecordFrame() : FieldFrame(QStringLiteral("fraRecord"), tr("Radio Record")) {
  m_id = AddRecord(0, QStringLiteral("lblID"), tr("ID Number: "));
  m_version = AddRecord(1, QStringLiteral("lblVer"), tr("Version of Firmware:"));
  StretchFields({0});
}

QLabel* RecordFrame::AddRecord(int row, const QString& objectName, const QString& label) {
  auto* const text = new QLabel(QString::fromUtf8(NoNumberText), this);
  text->setObjectName(objectName);
  text->setTextFormat(Qt::PlainText); // comes from the radio
  // Screen readers read out the label's text. The description adds its meaning.
  text->setAccessibleDescription(label.trimmed());
  text->setMinimumWidth(text->fontMetrics().horizontalAdvance(QString(16, QLatin1Char('0'))));
  AddField(Fields(), row, 0, label, text);
  return text;
}

void RecordFrame::Fill(const Configuration& values) {
  m_id->setText(QString::fromUtf8(values.identityNumber));
  m_version->setText(QString::fromUtf8(values.firmwareVersion));
}

void RecordFrame::Collect(Configuration& values) const {
  values.identityNumber = m_id->text().toStdString();
  values.firmwareVersion = m_version->text().toStdString();
}

} // namespace mr4500x
