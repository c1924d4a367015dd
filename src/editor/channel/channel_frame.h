// The "Channel Settings" frame: the channel grid with its check boxes, in-place editors and dialogs. The editor stores
// the channels only as the texts of the cells.
#pragma once

#include "channel_grid.h"
#include "field_rules.h"
#include "grid_frame.h"

#include <array>
#include <functional>

class QCheckBox;
class QDialog;
class QListView;

namespace mr4500x {

class ChannelFrame : public GridFrame {
  Q_OBJECT
public:
  // `band`: the limits that the band boxes show; `isTtsMode`: the choice of "Select Call".
  ChannelFrame(const FieldTexts& texts, MessageView& messages, std::function<Band()> band,
               std::function<bool()> isTtsMode);

  void Fill(const Configuration& values) override;
  void Collect(Configuration& values) const override;
  void CollectUnfinished(Configuration& values) const override;
  void KeepLabelsInView() override; // includes the headings of the check boxes
  [[nodiscard]] ChannelGrid& Grid() const { return *m_gridChannel; }

protected:
  void CellOpened(int row, int column) override;
  [[nodiscard]] std::optional<QString> CheckedEntry(const QString& typed) const override;
  [[nodiscard]] bool HasEditor(int channel, int tableColumn) const override;
  void Picked(const QString& tone) override;
  void EntryConfirmed() override { m_gridChannel->MoveOn(); }
  void EntryTaken(const QString& typed, const QString& taken) override;
  void LayOut() override;

private:
  void AddCheckBoxes();
  void LayOutCheckBoxes();

  void chkCH_Click(int channel);
  void chkTx_Click(int channel);
  void ColourRxCells(int channel);
  void ColourTxCells(int channel);
  void SetTailCut(int channel, bool on);

  void ToggleStep(int channel, GridColumn stepColumn);
  void ToggleText(int channel, GridColumn column);
  void AskSelectiveCall(int channel, GridColumn column);
  void AskGroupCall(int channel);
  bool Ask(QDialog& dialog, int leftTwips);

  void OpenFrequencyEditor(int channel, GridColumn column);
  void OpenToneEditor(int channel, GridColumn column);
  void txtChFreq_Step(bool up);
  [[nodiscard]] GridColumn EditedColumn() const { return static_cast<GridColumn>(OpenColumn() + 1); }
  [[nodiscard]] int StepOfEditedCell() const;
  [[nodiscard]] std::string Typed(const QString& text) const;
  void ReportIgnored(char sign);

  const FieldTexts m_texts;
  std::function<Band()> m_band;
  std::function<bool()> m_isTtsMode;
  ChannelGrid* m_gridChannel;
  using CheckBoxes = std::array<QCheckBox*, ChannelCount>;
  CheckBoxes m_chkCH{}, m_chkTx{};
  std::array<const CheckBoxes*, 2> m_columns{&m_chkCH, &m_chkTx};
  QWidget* m_tabStop = nullptr; // the check box that Tab goes to
  std::array<QWidget*, 2> m_headings{};
  EntryBox* m_txtChFreq;
  ChoiceBox* m_cboCTCDCS;
  QListView* m_toneView = nullptr; // made when it is first needed
};

} // namespace mr4500x
