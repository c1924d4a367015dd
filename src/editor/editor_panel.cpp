#include "editor_panel.h"

#include "decimal.h"
#include "editor_views.h"
#include "entry_box.h"
#include "fill_messages.h"
#include "function_settings.h"

#include <QPushButton>
#include <QStackedLayout>

#include <array>

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

} // namespace

EditorPanel::EditorPanel(RadioImage& image, const FieldTexts& texts, MessageView& messages, QWidget* parent)
    : QWidget(parent), m_image(image), m_texts(texts), m_messages(messages), m_focusHolder(new QPushButton(this)),
      m_views(std::make_unique<EditorViews>()) {
  setObjectName(QStringLiteral("picEditor"));
  EditorViews& views = *m_views;
  views.band = new BandFrame(m_messages, {[this] { return LowerBandLimit(m_image.BandBlock); },
                                          [this](int limit) { SetLowerBandLimit(m_image.BandBlock, limit); },
                                          [this](int limit) { ReinitialiseChannels(limit); }});
  views.record = new RecordFrame;
  views.selectCall = new SelectCallFrame;
  views.tts = new TtsFrame(m_messages, texts.decimalSeparator);
  views.channels = new ChannelFrame(texts, {m_messages,
                                            [band = views.band] {
                                              return Band{ParseWhole(band->LowerText()).value_or(LowestBandLimit),
                                                          ParseWhole(band->UpperText()).value_or(HighestBandLimit)};
                                            },
                                            [mode = views.selectCall] { return mode->IsTts(); },
                                            [tts = views.tts] { tts->CommitEditors(); }});
  views.global = new GlobalSettingsFrame(m_messages);
  views.scan = new ScanFrame;
  views.keys = new KeyFrame(m_messages);
  views.fiveTone = new FiveToneFrame;
  views.resetTime = new ResetTimeFrame(m_messages);
  views.tune = new TuneFrame;
  ArrangeViews(*this, views);
  ConnectFrames();

  m_focusHolder->setObjectName(QStringLiteral("Command1"));
  m_focusHolder->setAccessibleName(tr("No field"));
  m_focusHolder->setFocusPolicy(Qt::ClickFocus); // not in the tab order
  m_focusHolder->setGeometry(0, 0, 1, 1);
  m_focusHolder->lower();
}

EditorPanel::~EditorPanel() = default;

void EditorPanel::ConnectFrames() {
  const EditorViews& views = *m_views;
  connect(views.band, &BandFrame::Changed, this, &EditorPanel::Changed);
  connect(views.channels, &ChannelFrame::Changed, this, &EditorPanel::Changed);
  connect(views.global, &GlobalSettingsFrame::Changed, this, &EditorPanel::Changed);
  connect(views.scan, &ScanFrame::Changed, this, &EditorPanel::Changed);
  connect(views.keys, &KeyFrame::Changed, this, &EditorPanel::Changed);
  connect(views.selectCall, &SelectCallFrame::Changed, this, &EditorPanel::Changed);
  connect(views.tts, &TtsFrame::Changed, this, &EditorPanel::Changed);
  connect(views.fiveTone, &FiveToneFrame::Changed, this, &EditorPanel::Changed);
  connect(views.resetTime, &ResetTimeFrame::Changed, this, &EditorPanel::Changed);

  connect(views.selectCall, &SelectCallFrame::ModeChanged, views.channels, &ChannelFrame::ResetSelcallCells);
  connect(views.selectCall, &SelectCallFrame::ListChanged, this, &EditorPanel::ShowSelcallMode);
  connect(views.global, &GlobalSettingsFrame::ListChanged, this, &EditorPanel::ShowSelcallMode);
}

void EditorPanel::ShowSelcallMode() {
  const bool tts = m_views->selectCall->IsTts();
  m_views->tts->SetTtsMode(tts);
  m_views->fiveTone->SetTtsMode(tts);
}

DecodeEnd EditorPanel::Fill() {
  const Decoded decoded = Decode(m_image, m_texts);
  SettleAfterFill(m_image);
  SetControls(decoded);
  if (decoded.end == DecodeEnd::DataError)
    m_messages.Show(MessageIcon::Exclamation, DataErrorTitle, DataErrorText, MessageButtons::Ok);
  return decoded.end;
}

void EditorPanel::FillReset(const LocalTime& now) {
  SetControls({NewConfiguration(m_image, m_texts, now)});
}

// The order matters: each frame's change handling may touch fields that a later step fills.
void EditorPanel::SetControls(const Decoded& decoded) {
  const UndrawnPanel undrawn(*this);
  const EditorViews& views = *m_views;
  const Configuration& values = decoded.configuration;
  views.band->Fill(values);
  views.tune->Fill(values);
  views.selectCall->Fill(values);
  views.global->FillLists(values);
  views.scan->FillSignal(values);
  views.global->FillIdBoxes(values);
  views.global->FillAni(values);
  views.channels->LoadChannelGrid(values.channels);
  views.record->Fill(values);
  views.scan->FillLists(values);
  views.keys->Fill(values, decoded.keyConflict);
  if (decoded.end == DecodeEnd::DataError) return;
  views.fiveTone->Fill(values);
  views.tts->Fill(values);
  ShowSelcallMode();
  views.resetTime->Fill(values);
}

Configuration EditorPanel::Shown() const {
  Configuration values;
  const EditorViews& views = *m_views;
  views.band->Collect(values);
  views.tune->Collect(values);
  views.selectCall->Collect(values);
  views.global->Collect(values);
  views.scan->Collect(values);
  views.channels->StoreChannelGrid(values.channels);
  views.record->Collect(values);
  views.keys->Collect(values);
  views.fiveTone->Collect(values);
  views.tts->Collect(values);
  views.resetTime->Collect(values);
  return values;
}

void EditorPanel::Collect() {
  const UndrawnPanel undrawn(*this);
  Configuration values = Shown();
  CompleteEmergencyPair(values);
  TakeSelectedStandard(values);
  Encode(values, m_image, m_texts);
  m_views->keys->AfterCollect(values);
  m_views->fiveTone->AfterCollect(values);
}

void EditorPanel::ReinitialiseChannels(int lowerLimit) {
  const UndrawnPanel undrawn(*this);
  SetLowerBandLimit(m_image.BandBlock, lowerLimit);
  ResetChannels(m_image);
  std::array<ChannelTexts, ChannelCount> channels;
  for (std::size_t channel = 0; channel < ChannelCount; ++channel)
    channels[channel] = TextsOfChannel(m_image, channel, m_texts);
  m_views->channels->LoadChannelGrid(channels);
  // Until the next collect, the image and its group calls may still be in the old mode.
  if (m_views->selectCall->IsTts() != IsTtsMode(m_image)) m_views->channels->ResetSelcallCells();
}

void EditorPanel::CommitOpenEditors() {
  m_views->channels->CommitEditors();
  m_views->tts->CommitEditors();
  m_focusHolder->setFocus();
}

void EditorPanel::HideOpenEditors() {
  m_views->channels->HideEditors();
  m_views->tts->HideEditors();
}

EntryBox* EditorPanel::OpenEntry() const {
  EntryBox* const frequency = m_views->channels->OpenEntry();
  return frequency != nullptr ? frequency : m_views->tts->OpenEntry();
}

void EditorPanel::Copy() {
  if (const EntryBox* const box = OpenEntry()) box->CopyWhole();
}
void EditorPanel::Paste() {
  if (EntryBox* const box = OpenEntry()) box->PasteWhole();
}
void EditorPanel::ShowChannelView() {
  m_views->stack->setCurrentIndex(ChannelView);
}
void EditorPanel::ShowFunctionView() {
  m_views->stack->setCurrentIndex(FunctionView);
}

// A click on the background, a frame or a label.
void EditorPanel::mousePressEvent(QMouseEvent* event) {
  CommitOpenEditors();
  QWidget::mousePressEvent(event);
}

} // namespace mr4500x
