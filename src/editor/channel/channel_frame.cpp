// Layout, load and store, check boxes and colours.
#include "channel_frame.h"

#include "frame_parts.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStyleOptionComboBox>

#include <algorithm>
#include <utility>

namespace mr4500x {
namespace {

constexpr int EditorExtraTwips = 10; // an editor is this much wider than its column
constexpr int MarginTwips = 90;
constexpr int LongestFrequency = 9; // "000.00000"

// The check box of a channel in a column of boxes. If the channel is selected, a click sets the boxes of all selected
// channels. Draws the focus itself, because styles draw it around the text and these boxes have none.
class RowCheckBox : public QCheckBox {
public:
  using Columns = std::array<const std::array<QCheckBox*, ChannelCount>*, 2>;
  RowCheckBox(const Columns& columns, std::size_t column, std::size_t channel, ChannelGrid& grid, QWidget*& tabStop,
              QWidget* parent)
      : QCheckBox(parent), m_columns(columns), m_column(column), m_channel(channel), m_grid(grid), m_tabStop(tabStop) {
    setFocusPolicy(Qt::ClickFocus);
    if (m_tabStop == nullptr) BecomeTabStop();
  }

protected:
  void nextCheckState() override {
    const std::set<int> selected = m_grid.SelectedRows(); // a change ends the selection
    const bool isTicked = !isChecked();
    const auto isOwn = [this](int row) { return static_cast<std::size_t>(row) == m_channel; };
    setChecked(isTicked);
    if (std::ranges::none_of(selected, isOwn)) return;
    for (const int row : selected)
      if (QCheckBox& box = Box(m_column, row); box.isEnabled()) box.setChecked(isTicked);
    m_grid.SelectRows(selected);
  }
  // Up and Down go to the next channel whose box is enabled, Left and Right to the other column. Tab leaves the boxes.
  void keyPressEvent(QKeyEvent* event) override {
    const int key = event->key(), channel = static_cast<int>(m_channel);
    if (key == Qt::Key_Left || key == Qt::Key_Right) return Enter(Box(key == Qt::Key_Left ? 0 : 1, channel));
    if (key != Qt::Key_Up && key != Qt::Key_Down) return QCheckBox::keyPressEvent(event);
    const int step = key == Qt::Key_Up ? -1 : 1;
    int next = channel + step;
    while (next >= 0 && next < static_cast<int>(ChannelCount) && !Box(m_column, next).isEnabled())
      next += step;
    if (next >= 0 && next < static_cast<int>(ChannelCount)) Enter(Box(m_column, next));
  }
  void focusInEvent(QFocusEvent* event) override {
    BecomeTabStop();
    QCheckBox::focusInEvent(event);
  }
  void changeEvent(QEvent* event) override {
    QCheckBox::changeEvent(event);
    if (!isEnabled() && m_tabStop == this)
      static_cast<RowCheckBox&>(Box(0, static_cast<int>(m_channel))).BecomeTabStop();
  }
  void paintEvent(QPaintEvent* event) override {
    QCheckBox::paintEvent(event);
    if (!hasFocus()) return;
    QStyleOptionButton option;
    initStyleOption(&option);
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this).adjusted(1, 1, -1, -1));
  }

private:
  [[nodiscard]] QCheckBox& Box(std::size_t column, int channel) const {
    return *(*m_columns[column])[static_cast<std::size_t>(channel)];
  }
  static void Enter(QCheckBox& box) {
    box.setFocus(); // unless it is disabled
    ScrollTo(box, box.rect());
  }
  void BecomeTabStop() {
    if (m_tabStop != nullptr) m_tabStop->setFocusPolicy(Qt::ClickFocus);
    m_tabStop = this;
    setFocusPolicy(Qt::StrongFocus);
  }

  const Columns& m_columns;
  std::size_t m_column, m_channel;
  ChannelGrid& m_grid;
  QWidget*& m_tabStop;
};

// Digits and the decimal separator. After the first keypad decimal key, both "." and "," count as the separator.
CharacterFilter FrequencyFilter(char separator, const std::function<void(char)>& dropped) {
  return [=, eitherMeant = false](char typed, bool onKeypad) mutable -> std::optional<char> {
    if (typed != '.' && typed != ',') return DigitFilter(typed, onKeypad);
    eitherMeant = eitherMeant || onKeypad;
    if (typed == separator || eitherMeant) return separator;
    dropped(typed);
    return std::nullopt;
  };
}

QStringList ToneItems(const FieldTexts& texts) {
  QStringList items;
  for (const std::string& choice : texts.ToneChoiceList)
    items.append(QString::fromStdString(choice));
  return items;
}

int ToneEditorWidth(const ChoiceBox& editor) {
  const QFontMetrics metrics = editor.fontMetrics();
  const int widest = std::max(metrics.horizontalAdvance(QLatin1String("CTC200.0")),
                              metrics.horizontalAdvance(QLatin1String("-DCS000")));
  QStyleOptionComboBox option;
  option.initFrom(&editor);
  return editor.style()
      ->sizeFromContents(QStyle::CT_ComboBox, &option, QSize(widest, metrics.height()), &editor)
      .width();
}

} // namespace

ChannelFrame::ChannelFrame(const FieldTexts& texts, MessageView& messages, std::function<Band()> band,
                           std::function<bool()> isTtsMode)
    : GridFrame("fraChannel", tr("Channel Settings"), "Frequency Invalid!", messages), m_texts(texts),
      m_band(std::move(band)), m_isTtsMode(std::move(isTtsMode)), m_gridChannel(new ChannelGrid(this)),
      m_txtChFreq(new EntryBox("txtChFreq", LongestFrequency,
                               FrequencyFilter(texts.decimalSeparator, [this](char sign) { ReportIgnored(sign); }), {},
                               this)),
      m_cboCTCDCS(new ChoiceBox("cboCTCDCS", ToneItems(texts), {}, this)) {
  setAccessibleName(title());
  m_cboCTCDCS->setSizeAdjustPolicy(
      QComboBox::AdjustToMinimumContentsLengthWithIcon); // otherwise every size hint measures all items
  m_cboCTCDCS->KeepPopupWiderThan(QStringLiteral("CTC99999.999"));
  m_txtChFreq->setAlignment(Qt::AlignCenter); // as in the cell
  SetUp(*m_gridChannel, *m_txtChFreq, *m_cboCTCDCS);
  AddCheckBoxes();
  connect(m_txtChFreq, &EntryBox::Stepped, this, [this](int by) { txtChFreq_Step(by > 0); });
  connect(m_gridChannel, &ChannelGrid::OtherKeyPressed, this, &GridFrame::CommitEditors);
  ChannelFrame::LayOut();
}

void ChannelFrame::AddCheckBoxes() {
  for (int i = 0; i < static_cast<int>(ChannelCount); ++i) {
    const auto index = static_cast<std::size_t>(i);
    QCheckBox*& chkCH = m_chkCH[index] = new RowCheckBox(m_columns, 0, index, *m_gridChannel, m_tabStop, this);
    chkCH->setObjectName(QStringLiteral("chkCH(%1)").arg(i));
    chkCH->setAccessibleName(tr("No CH: channel %1 is not in use").arg(i + 1));
    connect(chkCH, &QCheckBox::toggled, this, [this, i] { chkCH_Click(i); });
    QCheckBox*& chkTx = m_chkTx[index] = new RowCheckBox(m_columns, 1, index, *m_gridChannel, m_tabStop, this);
    chkTx->setObjectName(QStringLiteral("chkTx(%1)").arg(i));
    chkTx->setAccessibleName(tr("No Tx: channel %1 cannot transmit").arg(i + 1));
    connect(chkTx, &QCheckBox::toggled, this, [this, i] { chkTx_Click(i); });
    NameSetting(*chkCH, Box::InUse);
    NameSetting(*chkTx, Box::TxAllowed);
  }
  m_headings = {new QLabel(tr("No CH"), this), new QLabel(tr("No Tx"), this)};
  NameSetting(*m_headings[0], Box::InUse);
  NameSetting(*m_headings[1], Box::TxAllowed);
}

void ChannelFrame::LayOut() {
  const int margin = Pixels(MarginTwips, *this);
  m_gridChannel->FitToFont(ToneEditorWidth(*m_cboCTCDCS));
  m_gridChannel->RefreshColours();
  m_gridChannel->move(contentsMargins().left() + margin, contentsMargins().top() + margin);
  const int row = m_gridChannel->ChannelRowHeight();
  const int extra = Pixels(EditorExtraTwips, *this);
  m_txtChFreq->setFixedSize(m_gridChannel->WidthOf(GridColumn::RxFreq) + extra, row);
  m_cboCTCDCS->setFixedSize(m_gridChannel->WidthOf(GridColumn::RxTone) + extra, row);
  LayOutCheckBoxes();
  setFixedSize(m_headings.back()->geometry().right() + margin + contentsMargins().right(),
               m_gridChannel->geometry().bottom() + 1 + margin + contentsMargins().bottom());
}

void ChannelFrame::LayOutCheckBoxes() {
  const int gap = Pixels(MarginTwips, *this);
  const int indicator = style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this);
  int left = m_gridChannel->geometry().right() + 1 + gap;
  for (std::size_t i = 0; i < m_columns.size(); ++i) {
    const int width = std::max(m_headings[i]->sizeHint().width(), indicator);
    m_headings[i]->setGeometry(left, m_gridChannel->y(), width, m_gridChannel->horizontalHeader()->height());
    for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
      QCheckBox& box = *(*m_columns[i])[channel];
      const QSize size = box.sizeHint().expandedTo({indicator, indicator});
      box.setGeometry(left + (width - indicator) / 2,
                      m_gridChannel->MiddleOfRow(static_cast<int>(channel)) - size.height() / 2, size.width(),
                      size.height());
    }
    left += width + gap;
  }
}

void ChannelFrame::KeepLabelsInView() {
  GridFrame::KeepLabelsInView();
  const int moved = m_gridChannel->horizontalHeader()->y() - m_gridChannel->frameWidth();
  for (QWidget* const heading : m_headings) {
    heading->move(heading->x(), m_gridChannel->y() + moved);
    heading->setAutoFillBackground(moved > 0); // it then covers the boxes
  }
}

void ChannelFrame::Fill(const Configuration& values) {
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    const int channel = static_cast<int>(i);
    const ChannelTexts& texts = values.channels[i];
    m_chkCH[i]->setChecked(texts.noCh);
    m_chkTx[i]->setChecked(texts.noTx);
    for (std::size_t column = 1; column < GridColumnCount; ++column)
      m_gridChannel->SetText(channel, static_cast<GridColumn>(column), QString::fromStdString(texts.cells[column]));
    ColourRxCells(channel);
    ColourTxCells(channel);
  }
}

void ChannelFrame::Collect(Configuration& values) const {
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    ChannelTexts& texts = values.channels[i];
    texts.noCh = m_chkCH[i]->isChecked();
    texts.noTx = m_chkTx[i]->isChecked();
    for (std::size_t column = 1; column < GridColumnCount; ++column)
      texts.cells[column] = m_gridChannel->Text(static_cast<int>(i), static_cast<GridColumn>(column)).toStdString();
  }
}

void ChannelFrame::CollectUnfinished(Configuration& values) const {
  Collect(values);
  if (const auto text = EditedText())
    values.channels[static_cast<std::size_t>(OpenRow())].cells[static_cast<std::size_t>(EditedColumn())] =
        text->toStdString();
}

void ChannelFrame::chkCH_Click(int channel) {
  const auto index = static_cast<std::size_t>(channel);
  ColourRxCells(channel);
  ColourTxCells(channel);
  m_chkTx[index]->setEnabled(!m_chkCH[index]->isChecked());
  emit Changed();
}

void ChannelFrame::chkTx_Click(int channel) {
  ColourTxCells(channel);
  emit Changed();
}

void ChannelFrame::ColourRxCells(int channel) {
  if (m_chkCH[static_cast<std::size_t>(channel)]->isChecked()) {
    m_gridChannel->SetColour(channel, GridColumn::RxFreq, GridColumn::GroupCall, CellColour::Hidden);
    return;
  }
  m_gridChannel->SetColour(channel, GridColumn::RxFreq, GridColumn::TailCut, CellColour::Green);
  if (m_gridChannel->Text(channel, GridColumn::TailCut) == QLatin1String("OFF"))
    m_gridChannel->SetColour(channel, GridColumn::TailCut, GridColumn::TailCut, CellColour::Grey);
  m_gridChannel->SetColour(channel, GridColumn::PttId, GridColumn::GroupCall, CellColour::Navy);
}

void ChannelFrame::ColourTxCells(int channel) {
  const auto index = static_cast<std::size_t>(channel);
  const bool hidden = m_chkCH[index]->isChecked() || m_chkTx[index]->isChecked();
  m_gridChannel->SetColour(channel, GridColumn::TxFreq, GridColumn::HighTxPower,
                           hidden ? CellColour::Hidden : CellColour::Teal);
}

void ChannelFrame::SetTailCut(int channel, bool on) {
  m_gridChannel->SetText(channel, GridColumn::TailCut, on ? QStringLiteral("ON") : QStringLiteral("OFF"));
  m_gridChannel->SetColour(channel, GridColumn::TailCut, GridColumn::TailCut,
                           on ? CellColour::Green : CellColour::Grey);
}

} // namespace mr4500x
