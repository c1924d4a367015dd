// frmTwoFive: edits the receive or transmit selective call of a channel, as the cell's text.
#pragma once

#include "message_view.h"

#include <QDialog>

#include <array>

class QComboBox;
class QPushButton;
class QRadioButton;

namespace mr4500x {

class EntryBox;

class FrmTwoFive : public QDialog {
  Q_OBJECT

public:
  // The other mode's controls are hidden; the rest have the text colour `colour`.
  FrmTwoFive(const QString& cellText, bool ttsMode, QRgb colour, MessageView& messages, QWidget* parent = nullptr);

  [[nodiscard]] const QString& CellText() const { return m_cellText; } // the new one after OK

private:
  enum Option : std::size_t { Off, Tts, FiveTone };

  void LayOut();
  void ShowCell();
  void optSig_Click();
  void txtFiveSig_Validate();
  void txtFiveSig_LostFocus(Qt::FocusReason reason);
  void cmdOK_Click();

  MessageView& m_messages;
  QString m_cellText;
  std::array<QRadioButton*, 3> m_optSig{};
  QComboBox* m_cboTwoSig = nullptr;
  EntryBox* m_txtFiveSig = nullptr;
  QPushButton* m_cmdOK = nullptr;
  QPushButton* m_cmdCancel = nullptr;
  bool m_validating = false; // the message box takes the focus too
};

} // namespace mr4500x
