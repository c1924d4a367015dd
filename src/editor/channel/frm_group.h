// frmGroup: edits the group call of a channel, as the cell's text.
#pragma once

#include <QDialog>

#include <array>

class QComboBox;
class QRadioButton;

namespace mr4500x {

class FrmGroup : public QDialog {
  Q_OBJECT

public:
  // Only the current mode's controls are enabled.
  FrmGroup(const QString& cellText, bool ttsMode, QWidget* parent = nullptr);

  [[nodiscard]] const QString& CellText() const { return m_cellText; } // the new one after OK

private:
  enum Mode : std::size_t { Tts, FiveTone };

  void LayOut();
  void ShowCell();
  void optSig_Click();
  void cmdOK_Click();

  QString m_cellText;
  std::array<QRadioButton*, 2> m_optSig{}; // optSig(1), optSig(2)
  std::array<QComboBox*, 2> m_cboTwoSig{};
};

} // namespace mr4500x
