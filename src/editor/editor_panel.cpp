#include "editor_panel.h"

#include "band_frame.h"
#include "channel_commands.h"
#include "channel_frame.h"
#include "decimal.h"
#include "edit_history.h"
#include "fill_messages.h"
#include "frame_parts.h"
#include "global_settings_frame.h"
#include "key_frame.h"
#include "list_frames.h"
#include "reset_time_frame.h"
#include "set_field.h"
#include "tts_frame.h"

#include <QContextMenuEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>

#include <algorithm>

namespace mr4500x {
namespace {

constexpr int ChannelView = 0;
constexpr int FunctionView = 1;

// Suppresses painting while it lives.
class UndrawnPanel {
public:
  explicit UndrawnPanel(QWidget& panel) : m_panel(panel) { m_panel.setUpdatesEnabled(false); }
  ~UndrawnPanel() { m_panel.setUpdatesEnabled(true); }
  Q_DISABLE_COPY_MOVE(UndrawnPanel)

private:
  QWidget& m_panel;
};

// Ignores keys that would press it or move the focus to a neighbour.
class FocusHolder final : public QPushButton {
public:
  using QPushButton::QPushButton;

protected:
  void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
  void keyReleaseEvent(QKeyEvent* event) override { event->ignore(); }
};

// Gives labels and lists the same width in frames that are above each other.
template<class Part>
void AlignParts(std::initializer_list<QWidget*> frames) {
  int widest = 0;
  for (const QWidget* const frame : frames)
    for (const auto* const part : frame->findChildren<Part*>())
      widest = std::max(widest, part->sizeHint().width());
  for (const QWidget* const frame : frames)
    for (auto* const part : frame->findChildren<Part*>())
      part->setMinimumWidth(widest);
}

} // namespace

EditorPanel::EditorPanel(RadioImage& image, const FieldTexts& texts, MessageView& messages, QWidget* parent)
    : QWidget(parent), m_image(image), m_texts(texts), m_messages(messages), m_focusHolder(new FocusHolder(this)),
      m_views(new QStackedLayout(this)) {
  setObjectName(QStringLiteral("picEditor"));
  BuildFrames();
  m_history = new EditHistory(
      m_image, [this] { return Agreed(); }, [this](const Configuration& values) { ShowAgain(values); }, this);
  connect(m_history, &EditHistory::StatusMessage, this, &EditorPanel::StatusMessage);
  m_commands = new ChannelCommands(*this, m_channels->Grid(), *m_history, m_image, m_texts, m_messages);
  m_focusHolder->setObjectName(QStringLiteral("Command1"));
  m_focusHolder->setAccessibleName(tr("No field"));
  m_focusHolder->setFocusPolicy(Qt::ClickFocus); // not in the tab order
  m_focusHolder->setGeometry(0, 0, 1, 1);
  m_focusHolder->lower();
}

void EditorPanel::BuildFrames() {
  m_band = new BandFrame(m_messages, m_image);
  m_selectCall = new SelectCallFrame;
  m_tts = new TtsFrame(m_messages, m_texts);
  m_channels = new ChannelFrame(
      m_texts, m_messages, [this] { return m_band->Limits(); }, [this] { return m_selectCall->IsTts(); });
  m_keys = new KeyFrame(m_messages);
  m_fiveTone = new FiveToneFrame;
  auto* const record = new RecordFrame;
  auto* const global = new GlobalSettingsFrame(m_messages);
  auto* const scan = new ScanFrame;
  m_resetTime = new ResetTimeFrame(m_messages);
  auto* const tune = new FieldFrame(QStringLiteral("fraTuneSwitch"), tr("Manual Tune Enable"), ChoiceList::ManualTune);
  m_frames = {m_band, tune, m_selectCall, global, scan, m_channels, record, m_keys, m_fiveTone, m_tts, m_resetTime};
  for (const SettingsFrame* const frame : m_frames)
    if (frame != tune) connect(frame, &SettingsFrame::Changed, this, &EditorPanel::Changed);
  connect(m_selectCall, &SelectCallFrame::ModeChanged, this, &EditorPanel::ChangeSelcallMode);
  connect(m_band, &BandFrame::LowerLimitChanged, this, &EditorPanel::ChangeLowerLimit);
  connect(m_channels, &ChannelFrame::StatusMessage, this, &EditorPanel::StatusMessage);

  auto* const channelView = new QWidget(this);
  channelView->setObjectName(QStringLiteral("picChannelView"));
  auto* const channelGrid = new QGridLayout(channelView);
  channelGrid->addWidget(m_band, 0, 0);
  channelGrid->addWidget(record, 0, 1);
  channelGrid->addWidget(m_channels, 1, 0, 1, 2);
  channelGrid->setColumnStretch(2, 1); // the groups end where the channels end
  channelGrid->setRowStretch(2, 1);
  m_views->addWidget(channelView);

  auto* const functionView = new QWidget(this);
  functionView->setObjectName(QStringLiteral("picFunctionView"));
  auto* const functionGrid = new QGridLayout(functionView);
  functionGrid->addWidget(global, 0, 0, 2, 1);
  functionGrid->addWidget(m_tts, 2, 0, 4, 1);
  int row = 0;
  for (QWidget* const frame :
       std::initializer_list<QWidget*>{scan, m_keys, m_selectCall, m_fiveTone, m_resetTime, tune}) {
    functionGrid->setRowStretch(row, row < 2 ? 2 : 1); // the first two have three rows of fields, the others one
    functionGrid->addWidget(frame, row++, 1);
  }
  functionGrid->setColumnStretch(0, 1);
  functionGrid->setColumnStretch(1, 1);
  const std::initializer_list<QWidget*> singles = {m_selectCall, m_fiveTone, m_resetTime, tune};
  AlignParts<QLabel>(singles);
  AlignParts<ChoiceBox>(singles);
  m_views->addWidget(functionView);
}

void EditorPanel::ChangeSelcallMode(bool tts) {
  m_tts->SetTtsMode(tts);
  m_fiveTone->SetTtsMode(tts);
  Configuration values;
  m_channels->Collect(values);
  ResetSelcallCells(values);
  m_channels->Fill(values);
}

void EditorPanel::ChangeLowerLimit(int limit) {
  const UndrawnPanel undrawn(*this);
  Configuration values;
  values.channels = RestartChannels(m_image, limit, m_texts);
  // Until the next collect, the image and its group calls may still be in the old mode.
  if (m_selectCall->IsTts() != IsTtsMode(m_image)) ResetSelcallCells(values);
  m_channels->Fill(values);
}

DecodeEnd EditorPanel::Fill() {
  const Decoded decoded = Decode(m_image, m_texts, Shown().keys);
  SettleAfterFill(m_image);
  ShowDecoded(decoded);
  m_history->Restart();
  repaint(); // a message box would cover the old view
  ShowKeyConflicts(m_messages, decoded.keyConflicts);
  if (decoded.end == DecodeEnd::DataError)
    m_messages.Show(MessageIcon::Exclamation, DataErrorTitle, DataErrorText, MessageButtons::Ok);
  return decoded.end;
}

void EditorPanel::FillReset(const LocalTime& now) {
  ShowDecoded({NewConfiguration(m_image, m_texts, now)});
  m_history->Restart();
}

void EditorPanel::ShowDecoded(const Decoded& decoded) {
  const UndrawnPanel undrawn(*this);
  for (SettingsFrame* const frame : m_frames) {
    if (frame == m_fiveTone && decoded.end == DecodeEnd::DataError) return;
    frame->Fill(decoded.configuration);
  }
}

// With OFF, a fill leaves the box of the reset time alone.
void EditorPanel::ShowAgain(const Configuration& values) {
  Configuration on = values;
  on.autoResetOff = false;
  m_resetTime->Fill(on);
  ShowDecoded({values});
}

void EditorPanel::Change(const Configuration& values, const QString& name) {
  RadioImage image = m_image;
  const auto lower = ParseWhole(values.lowerBandLimit);
  if (lower && values.lowerBandLimit != ShownUnfinished().lowerBandLimit)
    static_cast<void>(RestartChannels(image, *lower, m_texts));
  Change(values, image, name);
}

void EditorPanel::Change(const Configuration& values, const RadioImage& image, const QString& name) {
  if (values == ShownUnfinished() && image == m_image) return;
  m_history->TakeStep();
  m_image = image;
  ShowDecoded({values});
  emit Changed();
  m_history->TakeStep(name);
}

Configuration EditorPanel::Shown() const {
  Configuration values;
  for (const SettingsFrame* const frame : m_frames)
    frame->Collect(values);
  return values;
}

// A band limit that is still being typed does not count.
Configuration EditorPanel::Agreed() const {
  Configuration values = Shown();
  m_band->CollectUnfinished(values);
  return values;
}

Configuration EditorPanel::ShownUnfinished() const {
  Configuration values;
  for (const SettingsFrame* const frame : m_frames)
    frame->CollectUnfinished(values);
  return values;
}

RadioImage EditorPanel::Collected() const {
  RadioImage image = m_image;
  Encode(ShownUnfinished(), image, m_texts);
  return image;
}

void EditorPanel::Collect() {
  const UndrawnPanel undrawn(*this);
  Encode(Shown(), m_image, m_texts);
  m_keys->AfterCollect();
}

void EditorPanel::CommitCells() {
  m_channels->CommitEditors();
  m_tts->CommitEditors();
}

void EditorPanel::CommitOpenEditors() {
  CommitCells();
  if (QWidget* const holder = window()->focusWidget(); holder != m_focusHolder)
    m_focusBefore = isAncestorOf(holder) ? holder : nullptr;
  m_focusHolder->setFocus();
}

void EditorPanel::ReturnFocus() {
  if (window()->focusWidget() != m_focusHolder) return;
  const bool canHaveIt = m_focusBefore && m_focusBefore->isVisibleTo(this) && m_focusBefore->isEnabled();
  QWidget* const next = canHaveIt ? m_focusBefore.data() : &m_channels->Grid();
  if (next->isVisibleTo(this)) next->setFocus();
}

void EditorPanel::ScrollToFocus() {
  QWidget* const holder = window()->focusWidget();
  if (auto* const grid = qobject_cast<CellGrid*>(holder))
    grid->ScrollToCurrent();
  else if (holder != m_focusHolder && isAncestorOf(holder))
    ScrollTo(*holder, holder->rect());
}

void EditorPanel::HideOpenEditors() {
  m_channels->HideEditors();
  m_tts->HideEditors();
}

bool EditorPanel::HasOpenEditor() const {
  return m_channels->HasOpenEditor() || m_tts->HasOpenEditor();
}

EntryBox* EditorPanel::OpenEntry() const {
  EntryBox* const frequency = m_channels->OpenEntry();
  return frequency != nullptr ? frequency : m_tts->OpenEntry();
}

void EditorPanel::Copy() {
  if (const EntryBox* const box = OpenEntry()) return box->CopyWhole();
  if (m_channels->isAncestorOf(window()->focusWidget())) emit StatusMessage(tr("Channels are copied by Ctrl+Shift+C."));
}
void EditorPanel::Paste() {
  if (EntryBox* const box = OpenEntry()) return box->PasteWhole();
  if (m_channels->isAncestorOf(window()->focusWidget())) emit StatusMessage(tr("Channels are pasted by Ctrl+Shift+V."));
}
void EditorPanel::ShowChannelView() {
  ShowView(ChannelView);
}
void EditorPanel::ShowFunctionView() {
  ShowView(FunctionView);
}

bool EditorPanel::ShowsChannels() const {
  return m_views->currentIndex() == ChannelView;
}
void EditorPanel::UpdateWhenShown(QMenu& menu) {
  m_commands->UpdateWhenShown(menu);
}

void EditorPanel::ShowView(int view) {
  m_views->setCurrentIndex(view);
  // Qt gives the focus to the control that had it in this view before. If that is disabled now, the focus stays on the
  // hidden view.
  const QWidget* const holder = window()->focusWidget();
  if (holder != nullptr && isAncestorOf(holder) && !holder->isVisibleTo(window())) {
    m_focusBefore = nullptr;
    m_focusHolder->setFocus();
    ReturnFocus();
  }
  m_channels->KeepLabelsInView();
  m_tts->KeepLabelsInView();
}

void EditorPanel::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  ShowView(m_views->currentIndex());
}

void EditorPanel::contextMenuEvent(QContextMenuEvent* event) {
  emit MenuAsked(event->globalPos());
}

// A click on the background, a frame or a label.
void EditorPanel::mousePressEvent(QMouseEvent* event) {
  CommitOpenEditors();
  QWidget::mousePressEvent(event);
}

} // namespace mr4500x
