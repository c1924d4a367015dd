// The "Channel Settings" frame: the channel grid with its check boxes, in-place editors and dialogs. The cells' texts
// are the only place where the editor keeps the channels; their values are the field rules'.
#pragma once

#include "channel_grid.h"
#include "clipboard.h"
#include "configuration.h"
#include "field_rules.h"
#include "message_view.h"

#include <QGroupBox>
#include <QTimer>

#include <array>
#include <functional>

class QCheckBox;
class QDialog;

namespace mr4500x {

class FrequencyEditor;
class ToneEditor;

struct ChannelFrameServices {
  MessageView& messages;
  Clipboard& clipboard;
  std::function<Band()> band;         // the whole-MHz limits shown in the band boxes
  std::function<bool()> isTtsMode;    // the "Select Call" choice
  std::function<void()> commitOthers; // commits the editors of the TTS grid
};

class ChannelFrame : public QGroupBox {
  Q_OBJECT

public:
  ChannelFrame(const FieldTexts& texts, ChannelFrameServices services, QWidget* parent = nullptr);

  void LoadChannelGrid(const std::array<ChannelTexts, ChannelCount>& channels);
  void StoreChannelGrid(std::array<ChannelTexts, ChannelCount>& channels) const;

  void CommitEditors(); // an open editor's text is checked, stored and the editor hidden
  void HideEditors();   // without taking their text
  void ResetSelcallCells();

  [[nodiscard]] bool HasOpenFrequencyEditor() const;
  // The whole text of the frequency editor. Nothing while it is hidden.
  void Copy();
  void Paste();

signals:
  void Changed(); // each change notification, those of a load included

protected:
  void changeEvent(QEvent* event) override;

private:
  void AddCheckBoxes();
  void AddEditors();
  void LayOut();
  void LayOutCheckBoxes();

  void chkCH_Click(int channel);
  void chkTx_Click(int channel);
  void ColourRxCells(int channel);
  void ColourTxCells(int channel);
  void SetTailCut(int channel, bool on);

  void gridChannel_Activate();
  void ToggleStep(int channel, GridColumn stepColumn);
  void ToggleTailCut(int channel);
  void ToggleText(int channel, GridColumn column);
  void AskSelectiveCall(int channel, GridColumn column);
  void AskGroupCall(int channel);
  bool Ask(QDialog& dialog, int leftTwips);

  void OpenFrequencyEditor(int channel, GridColumn column);
  void OpenToneEditor(int channel, GridColumn column);
  void CommitFrequencyEditor();
  void CommitToneEditor();
  void RefuseFrequency();
  void StepFrequencyEditor(bool up);
  void Close(QWidget& editor);
  [[nodiscard]] int StepBeside(GridColumn frequencyColumn, int channel) const;

  const FieldTexts m_texts;
  ChannelFrameServices m_services;
  ChannelGrid* m_gridChannel;
  std::array<QCheckBox*, ChannelCount> m_chkCH{};
  std::array<QCheckBox*, ChannelCount> m_chkTx{};
  std::array<QWidget*, 2> m_headings{};
  QTimer m_newLooks; // the desktop's font or colours have changed
  FrequencyEditor* m_txtChFreq;
  ToneEditor* m_cboCTCDCS;
  // The cell under the open editor.
  int m_editedChannel = 0;
  GridColumn m_editedColumn = GridColumn::RxFreq;
  bool m_closing = false; // an editor is being committed or hidden: the focus that leaves it means nothing
};

} // namespace mr4500x
