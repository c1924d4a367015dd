// The editor panel: all frames of both views. Fills them from the image and collects them into the image. In between,
// only the controls hold the configuration.
#pragma once

#include "configuration.h"
#include "message_view.h"

#include <QPointer>
#include <QWidget>

#include <vector>

class QMenu;
class QPushButton;
class QStackedLayout;

namespace mr4500x {

class BandFrame;
class ChannelCommands;
class ChannelFrame;
class EditHistory;
class EntryBox;
class FiveToneFrame;
class KeyFrame;
class ResetTimeFrame;
class SelectCallFrame;
class SettingsFrame;
class TtsFrame;

class EditorPanel : public QWidget {
  Q_OBJECT
public:
  EditorPanel(RadioImage& image, const FieldTexts& texts, MessageView& messages, QWidget* parent = nullptr);

  // Sets the controls from the image, as if the user had made each selection. Reports conflicting keys and an invalid
  // 5-tone standard, which leaves the standard, the TTS table and the reset time unchanged.
  DecodeEnd Fill();
  void FillReset(const LocalTime& now); // resets the image to a new configuration and shows it
  void Collect();
  [[nodiscard]] Configuration Shown() const;           // what the controls show
  [[nodiscard]] Configuration ShownUnfinished() const; // see SettingsFrame::CollectUnfinished
  [[nodiscard]] bool HasOpenEditor() const;
  // The image as a save at this moment would store it.
  [[nodiscard]] RadioImage Collected() const;
  // Shows `values` as a step of the history; its name as in EditHistory::TakeStep.
  void Change(const Configuration& values, const QString& name = {});
  // Also takes from `image` the bytes that no control shows.
  void Change(const Configuration& values, const RadioImage& image, const QString& name);
  [[nodiscard]] const FieldTexts& Texts() const { return m_texts; }

  void CommitOpenEditors(); // stores their text; then no field has the focus, until ReturnFocus
  void ReturnFocus();       // returns the focus to the previous field, or to the channels
  void ScrollToFocus();     // shows the cell or control that keys act on
  void CommitCells();       // the same, but the focus stays
  void HideOpenEditors();   // without storing their text
  void Copy();              // the whole text of the open frequency box, if any
  void Paste();

  void ShowChannelView();
  void ShowFunctionView();
  [[nodiscard]] bool ShowsChannels() const;
  void UpdateWhenShown(QMenu& menu); // greys the commands in it that can't be used when it opens

signals:
  void Changed(); // also when other data is shown
  void CompareAsked();
  void MenuAsked(const QPoint& at);           // screen position, outside the channels and the text boxes
  void StatusMessage(const QString& message); // for the status bar

protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent* event) override; // a scroll of the panel

private:
  void BuildFrames();
  [[nodiscard]] EntryBox* OpenEntry() const;
  void ShowView(int view);
  void ShowDecoded(const Decoded& decoded);
  void ShowAgain(const Configuration& values);
  [[nodiscard]] Configuration Agreed() const;
  void ChangeSelcallMode(bool tts);
  void ChangeLowerLimit(int limit);

  RadioImage& m_image;
  const FieldTexts& m_texts;
  MessageView& m_messages;
  QPushButton* m_focusHolder;      // Command1: has the focus when no field has it
  QPointer<QWidget> m_focusBefore; // had the focus before the holder took it
  QStackedLayout* m_views;         // the channel view, then the function view
  BandFrame* m_band = nullptr;
  SelectCallFrame* m_selectCall = nullptr;
  ChannelFrame* m_channels = nullptr;
  KeyFrame* m_keys = nullptr;
  FiveToneFrame* m_fiveTone = nullptr;
  TtsFrame* m_tts = nullptr;
  ResetTimeFrame* m_resetTime = nullptr;
  EditHistory* m_history = nullptr; // cleared by each fill
  ChannelCommands* m_commands = nullptr;
  std::vector<SettingsFrame*> m_frames; // all, in the order of a fill
};

} // namespace mr4500x
