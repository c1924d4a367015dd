// The dialogs behind the selective-call and group-call cells. Each edits the text of a cell.
#pragma once

#include "message_view.h"

#include <QDialog>

#include <array>

class QComboBox;
class QPushButton;
class QRadioButton;

namespace mr4500x {

class EntryBox;

class CellDialog : public QDialog {
  Q_OBJECT
public:
  [[nodiscard]] const QString& CellText() const { return m_cellText; } // the new one after OK

protected:
  CellDialog(const char* objectName, const QString& title, const QString& cellText, QWidget* parent);
  QRadioButton* AddOption(int row, int number, const QString& caption, const QString& accessibleName);
  QComboBox* AddList(int row, const QString& objectName, const QStringList& items, const QString& accessibleName);

  QString m_cellText;
};

// The receive or transmit selective call of a channel. The other mode's controls are hidden. The others have the
// colour.
class FrmTwoFive : public CellDialog {
  Q_OBJECT
public:
  FrmTwoFive(const QString& cellText, bool ttsMode, QRgb colour, MessageView& messages, QWidget* parent);

private:
  enum Option : std::size_t { Off, Tts, FiveTone };

  void LayOut();
  void ShowCell();
  void optSig_Click();
  void txtFiveSig_Validate();
  void txtFiveSig_LostFocus(Qt::FocusReason reason);
  void cmdOK_Click();

  MessageView& m_messages;
  std::array<QRadioButton*, 3> m_optSig{};
  QComboBox* m_cboTwoSig = nullptr;
  EntryBox* m_txtFiveSig = nullptr;
  QPushButton* m_cmdOK = nullptr;
  QPushButton* m_cmdCancel = nullptr;
  bool m_validating = false; // the message box also takes the focus
};

// The group call of a channel. Only the current mode's controls are enabled.
class FrmGroup : public CellDialog {
  Q_OBJECT
public:
  FrmGroup(const QString& cellText, bool ttsMode, QWidget* parent);

private:
  void cmdOK_Click(std::size_t mode);

  std::array<QComboBox*, 2> m_cboTwoSig{};
};

} // namespace mr4500x
