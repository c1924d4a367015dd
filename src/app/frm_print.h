// The print dialog, frmPrint: the choice of reports, and the printer setup.
#pragma once

#include "message_view.h"
#include "print_reports.h"

#include <QDialog>

#include <array>
#include <optional>

class QCheckBox;

namespace mr4500x {

class FrmPrint final : public QDialog {
  Q_OBJECT

public:
  FrmPrint(Printers& printers, MessageView& messages, QWidget* parent);
  [[nodiscard]] ReportChoice Choice() const { return {m_chk0, m_chk1, m_chk2}; } // after OK

private:
  void SetAll(bool ticked);
  void cmdPrintSet_Click();
  void cmdOK_Click();

  Printers& m_printers;
  MessageView& m_messages;
  std::array<QCheckBox*, 3> m_chkPrintOutput{};
  bool m_chk0 = false, m_chk1 = false, m_chk2 = false;
};

// The chosen reports, at least one; nullopt when cancelled.
[[nodiscard]] std::optional<ReportChoice> AskReports(Printers& printers, MessageView& messages, QWidget* parent);

} // namespace mr4500x
