#include "frm_print.h"

#include "program_title.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace mr4500x {

constexpr std::array<const char*, 3> Reports = {"Channel Settings and Global Settings", "TTS", "Embedded Information"};
constexpr char NothingChosenText[] = "Please select items you want to print.";

FrmPrint::FrmPrint(Printers& printers, MessageView& messages, QWidget* parent)
    : QDialog(parent), m_printers(printers), m_messages(messages) {
  setObjectName(QStringLiteral("frmPrint"));
  setWindowTitle(tr("Print Output"));
  const auto button = [](const char* name, const QString& text) {
    auto* const made = new QPushButton(text);
    made->setObjectName(QLatin1String(name));
    made->setAutoDefault(false); // Return always means OK
    return made;
  };

  auto* const boxes = new QVBoxLayout;
  for (std::size_t i = 0; i < Reports.size(); ++i) {
    m_chkPrintOutput[i] = new QCheckBox(QString::fromUtf8(Reports[i]));
    m_chkPrintOutput[i]->setObjectName(QStringLiteral("chkPrintOutput(%1)").arg(i));
    boxes->addWidget(m_chkPrintOutput[i]);
  }
  boxes->addStretch();
  QPushButton* const all = button("cmdSelAll", tr("Select &All"));
  QPushButton* const none = button("cmdClrAll", tr("C&lear All"));
  QPushButton* const setup = button("cmdPrintSet", tr("&Printer..."));
  connect(all, &QPushButton::clicked, this, [this] { SetAll(true); });
  connect(none, &QPushButton::clicked, this, [this] { SetAll(false); });
  connect(setup, &QPushButton::clicked, this, &FrmPrint::cmdPrintSet_Click);

  auto* const side = new QVBoxLayout;
  for (QPushButton* const one : {all, none, setup})
    side->addWidget(one);
  auto* const buttons = new QDialogButtonBox;
  QPushButton* const ok = buttons->addButton(tr("&OK"), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("cmdOK"));
  ok->setDefault(true);
  buttons->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("cmdCancel"));
  connect(buttons, &QDialogButtonBox::accepted, this, &FrmPrint::cmdOK_Click);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* const top = new QHBoxLayout;
  top->setSpacing(fontMetrics().averageCharWidth() * 4);
  top->addLayout(boxes);
  top->addLayout(side);
  auto* const layout = new QVBoxLayout(this);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addLayout(top);
  layout->addSpacing(fontMetrics().height() / 2);
  layout->addWidget(buttons);
  m_chkPrintOutput.front()->setFocus();
}

void FrmPrint::SetAll(bool ticked) {
  for (QCheckBox* const box : m_chkPrintOutput)
    box->setChecked(ticked);
}

void FrmPrint::cmdPrintSet_Click() {
  m_printers.SetUpPrinter("Printer Setup");
}

void FrmPrint::cmdOK_Click() {
  const ReportChoice ticked = {m_chkPrintOutput[0]->isChecked(), m_chkPrintOutput[1]->isChecked(),
                               m_chkPrintOutput[2]->isChecked()};
  if (!ticked.Any()) {
    m_messages.Show(MessageIcon::Information, ProgramTitle, NothingChosenText, MessageButtons::Ok);
    return;
  }
  m_chk0 = ticked.channels;
  m_chk1 = ticked.tts;
  m_chk2 = ticked.info;
  accept();
}

std::optional<ReportChoice> AskReports(Printers& printers, MessageView& messages, QWidget* parent) {
  FrmPrint dialog(printers, messages, parent);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Choice();
}

} // namespace mr4500x
