// "TTS": the table of the two-tone entries and its two editors.
#pragma once

#include "grid_frame.h"

namespace mr4500x {

class TtsGrid;

class TtsFrame : public GridFrame {
  Q_OBJECT
public:
  TtsFrame(MessageView& messages, const FieldTexts& texts);

  void Fill(const Configuration& values) override;
  void Collect(Configuration& values) const override;
  void CollectUnfinished(Configuration& values) const override;
  void SetTtsMode(bool tts);

protected:
  [[nodiscard]] bool HasEditor(int /*row*/, int column) const override { return column > 0; }
  void CellOpened(int row, int column) override;
  [[nodiscard]] std::optional<QString> CheckedEntry(const QString& typed) const override;
  void EntryConfirmed() override;
  void LayOut() override;

private:
  void txtTTSFreq_Step(int by);
  void cmbTTST_Click();

  TtsGrid* m_grid;
  EntryBox* m_frequency;
  ChoiceBox* m_time;
};

} // namespace mr4500x
