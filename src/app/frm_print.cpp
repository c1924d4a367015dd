#include "dialogs.h"

#include "frame_parts.h"
#include "program_title.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace mr4500x {
namespace {

constexpr std::array<const char*, 3> Reports = {"Channel Settings and Global Settings", "TTS", "Embedded Information"};
constexpr char NothingChosenText[] = "Please select items you want to print.";

class FrmPrint final : public QDialog {
public:
  FrmPrint(const ReportChoice& ticked, Printers& printers, MessageView& messages, QWidget* parent);
  [[nodiscard]] ReportChoice Choice() const { return {m_chk0, m_chk1, m_chk2}; } // after OK

private:
  void AddButton(QVBoxLayout& side, const char* name, const QString& text, const std::function<void()>& clicked);
  void SetAll(bool ticked);
  void cmdOK_Click();

  MessageView& m_messages;
  std::array<QCheckBox*, 3> m_chkPrintOutput{};
  bool m_chk0 = false, m_chk1 = false, m_chk2 = false;
};

FrmPrint::FrmPrint(const ReportChoice& ticked, Printers& printers, MessageView& messages, QWidget* parent)
    : QDialog(parent), m_messages(messages) {
  setObjectName(QStringLiteral("frmPrint"));
  setWindowTitle(tr("Print Output"));
  auto* const boxes = new QVBoxLayout;
  for (std::size_t i = 0; i < Reports.size(); ++i) {
    m_chkPrintOutput[i] = new QCheckBox(QString::fromUtf8(Reports[i]));
    m_chkPrintOutput[i]->setObjectName(QStringLiteral("chkPrintOutput(%1)").arg(i));
    boxes->addWidget(m_chkPrintOutput[i]);
  }
  m_chkPrintOutput[0]->setChecked(ticked.channels);
  m_chkPrintOutput[1]->setChecked(ticked.tts);
  m_chkPrintOutput[2]->setChecked(ticked.info);
  boxes->addStretch();
  auto* const side = new QVBoxLayout;
  AddButton(*side, "cmdSelAll", tr("Select &All"), [this] { SetAll(true); });
  AddButton(*side, "cmdClrAll", tr("C&lear All"), [this] { SetAll(false); });
  AddButton(*side, "cmdPrintSet", tr("&Printer..."), [&printers] { printers.SetUpPrinter("Printer Setup"); });
  const OkCancel buttons = NewOkCancel(*this);
  connect(buttons.ok, &QPushButton::clicked, this, &FrmPrint::cmdOK_Click);

  auto* const top = new QHBoxLayout;
  top->addLayout(boxes);
  top->addSpacing(fontMetrics().averageCharWidth() * 3);
  top->addLayout(side);
  auto* const layout = new QVBoxLayout(this);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addLayout(top);
  layout->addSpacing(fontMetrics().height() / 2);
  layout->addLayout(buttons.row);
  m_chkPrintOutput.front()->setFocus();
}

void FrmPrint::AddButton(QVBoxLayout& side, const char* name, const QString& text,
                         const std::function<void()>& clicked) {
  auto* const button = new QPushButton(text);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(false); // Return always means OK
  connect(button, &QPushButton::clicked, this, clicked);
  side.addWidget(button);
}

void FrmPrint::SetAll(bool ticked) {
  for (QCheckBox* const box : m_chkPrintOutput)
    box->setChecked(ticked);
}

void FrmPrint::cmdOK_Click() {
  m_chk0 = m_chkPrintOutput[0]->isChecked();
  m_chk1 = m_chkPrintOutput[1]->isChecked();
  m_chk2 = m_chkPrintOutput[2]->isChecked();
  if (Choice().Any())
    accept();
  else
    m_messages.Show(MessageIcon::Information, ProgramTitle, NothingChosenText, MessageButtons::Ok);
}

} // namespace

std::optional<ReportChoice> AskReports(const ReportChoice& ticked, Printers& printers, MessageView& messages,
                                       QWidget* parent) {
  FrmPrint dialog(ticked, printers, messages, parent);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Choice();
}

} // namespace mr4500x
