// "TTS": the table of the two-tone entries and the two editors that open over its cells, one at a time.
#pragma once

#include "clipboard.h"
#include "configuration.h"
#include "message_view.h"

#include <QGroupBox>

namespace mr4500x {

class ChoiceBox;
class EntryBox;
class TtsGrid;

class TtsFrame : public QGroupBox {
  Q_OBJECT
public:
  // Times have the separator of the user's numbers.
  TtsFrame(MessageView& messages, Clipboard& clipboard, char decimalSeparator, QWidget* parent = nullptr);

  void Fill(const Configuration& values);
  void Gather(Configuration& values) const;
  void SetTtsMode(bool tts);

  void CommitEditors(); // takes the text of an open frequency editor and hides both
  void HideEditors();   // without taking it
  [[nodiscard]] bool HasOpenFrequencyEditor() const { return m_open == Editor::Frequency; }
  // With no frequency editor open these do nothing.
  void Copy();
  void Paste();

signals:
  void Changed();

protected:
  void changeEvent(QEvent* event) override;

private:
  enum class Editor { None, Frequency, Time };

  void gridTTS_Open(int row, int column);
  void Place(QWidget& editor);
  void Close();
  void StoreFrequency();
  void ReportFrequency();
  void txtTTSFreq_Enter();
  void txtTTSFreq_Step(int by);
  void cmbTTST_Click();

  MessageView& m_messages;
  Clipboard& m_clipboard;
  TtsGrid* m_grid = nullptr;
  EntryBox* m_frequency;
  ChoiceBox* m_time;
  Editor m_open = Editor::None;
  int m_row = 0, m_column = 0; // of the cell that the open editor stands over
};

} // namespace mr4500x
