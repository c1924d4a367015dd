// The editor panel: all frames of both views. Fills them from the image and collects the image from them; between the
// two the controls are the only copy of the configuration. What the frames show and check is left to them.
#pragma once

#include "configuration.h"
#include "message_view.h"

#include <QWidget>

#include <array>
#include <memory>

class QPushButton;

namespace mr4500x {

class EntryBox;
struct EditorViews;

class EditorPanel : public QWidget {
  Q_OBJECT
public:
  EditorPanel(RadioImage& image, const FieldTexts& texts, MessageView& messages, QWidget* parent = nullptr);
  ~EditorPanel() override;

  // Sets every control from the image, in order, each selection handled as a user's. Tells of conflicting keys; on an
  // invalid standard it tells so and leaves the standard, the TTS table and the reset time as they were.
  DecodeEnd Fill();
  // The new configuration, from the image reset to its defaults.
  void FillReset(const LocalTime& now);
  void Collect();
  [[nodiscard]] Configuration Shown() const; // what the controls show

  void CommitOpenEditors(); // takes what they hold; no field has the focus then
  void HideOpenEditors();   // without taking their text
  void Copy();              // the whole text of the open frequency box, if there is one
  void Paste();

  void ShowChannelView();
  void ShowFunctionView();

signals:
  void Changed();

protected:
  void mousePressEvent(QMouseEvent* event) override;

private:
  void ConnectFrames();
  [[nodiscard]] EntryBox* OpenEntry() const;
  void SetControls(const Decoded& decoded);
  void ShowSelcallMode();
  void ReinitialiseChannels(int lowerLimit);
  [[nodiscard]] std::array<ChannelTexts, ChannelCount> ChannelsOfImage() const;

  RadioImage& m_image;
  const FieldTexts& m_texts;
  MessageView& m_messages;
  QPushButton* m_focusHolder; // Command1: has the focus when no field has it
  std::unique_ptr<EditorViews> m_views;
};

} // namespace mr4500x
