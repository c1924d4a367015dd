// What the fleet's window asks of the journal, and enters about a row.
#include "fleet_setup.h"
#include "frm_fleet.h"
#include "journal_queries.h"
#include "shown_text.h"
#include "sql_journal.h"
#include "words.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QInputDialog>
#include <QItemSelectionModel>
#include <QPlainTextEdit>
#include <QTableView>
#include <QVBoxLayout>

namespace mr4500x {

// The menu of the table, also by its key.
void FrmFleet::BuildRowMenu() {
  struct Entry {
    const char* text;
    AttemptOutcome outcome;
    const char* question;
    RowState needs; // Free: any
  };
  using enum AttemptOutcome;
  static constexpr Entry Entries[] = {
      {"&Free Row...", Freed, QT_TR_NOOP("%1 is taken. Free it for the next radio? Reason:"), RowState::Taken},
      {"&Reissue Row...", Reissued, QT_TR_NOOP("%1 is done. Give it out again? Reason:"), RowState::Done},
      {"&Note...", Note, QT_TR_NOOP("Note about %1:"), RowState::Free},
  };
  m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
  std::vector<std::pair<QAction*, RowState>> actions;
  for (const Entry& entry : Entries) {
    auto* const action = new QAction(tr(entry.text), m_table);
    connect(action, &QAction::triggered, this, [this, &entry] { DecideAboutRow(entry.outcome, tr(entry.question)); });
    actions.emplace_back(action, entry.needs);
  }
  auto* const radio = new QAction(tr("&All about the Radio"), m_table);
  connect(radio, &QAction::triggered, this, &FrmFleet::ShowRadio);
  for (const auto& [action, needs] : actions)
    m_table->addAction(action);
  m_table->addAction(radio);
  const auto enable = [this, actions, radio] {
    const JournalRow* const row = CurrentRow();
    for (const auto& [action, needs] : actions)
      action->setEnabled(row != nullptr && (needs == RowState::Free || needs == row->state));
    radio->setEnabled(row != nullptr && !(row->idNumber + row->radio).empty());
  };
  connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this, enable);
  connect(&m_rows, &QAbstractItemModel::dataChanged, this, enable);
  connect(&m_rows, &QAbstractItemModel::modelReset, this, enable);
  enable();
}

const JournalRow* FrmFleet::CurrentRow() const {
  const QModelIndex index = m_filtered.mapToSource(m_table->currentIndex());
  return index.isValid() ? &m_rows.Rows()[static_cast<std::size_t>(index.row())] : nullptr;
}

void FrmFleet::DecideAboutRow(AttemptOutcome outcome, const QString& question) {
  const JournalRow* const row = CurrentRow();
  if (row == nullptr || !m_plan) return;
  RowDecision decision{outcome, m_plan->plan.key, row->row, {}, m_setup->Choice().operatorName};
  const QString name = tr("Row %1").arg(row->row) + (row->label.empty() ? "" : ", " + Shown(row->label));
  bool isGiven = false;
  const QString text = QInputDialog::getText(this, windowTitle(), question.arg(name), QLineEdit::Normal, {}, &isGiven);
  decision.text = text.trimmed().toStdString();
  if (!isGiven || (outcome == AttemptOutcome::Note && decision.text.empty())) return;
  EnterDecision(decision);
}

void FrmFleet::EnterDecision(const RowDecision& decision) {
  const auto work = [this, address = m_journal, decision] { return Decide(m_files, address, decision); };
  RunInWorker(work, [this](const std::variant<Attempt, JournalFailure>& entered) {
    if (const auto* const failure = std::get_if<JournalFailure>(&entered)) return ShowFailure(*failure);
    Attempt shown = std::get<Attempt>(entered);
    m_open.Record(shown);
    ShowFailed();
    ShowCounts();
    shown.start = LocalTimestamp(shown.start);
    ShowMessage(Shown(LineFor(shown)));
    RefreshRows();
  });
}

void FrmFleet::ShowRadio() {
  const JournalRow* const row = CurrentRow();
  if (row == nullptr) return;
  const std::string number = row->idNumber.empty() ? row->radio : row->idNumber;
  ShowLines(tr("Radio %1").arg(Shown(number)),
            [number](const std::vector<Attempt>& attempts) { return LinesForRadio(attempts, number); });
}

void FrmFleet::ShowStatistics() {
  ShowLines(tr("Statistics"),
            [](const std::vector<Attempt>& attempts) { return LinesForStatistics(StatisticsOf(attempts)); });
}

// `linesOf` is called in the worker's thread, with all attempts of the journal.
void FrmFleet::ShowLines(const QString& title,
                         std::function<std::vector<std::string>(const std::vector<Attempt>&)> linesOf) {
  using Found = std::variant<QString, JournalFailure>;
  const auto work = [address = m_journal, linesOf = std::move(linesOf)]() -> Found {
    const std::unique_ptr<Journal> journal = OpenJournal(address, JournalUse::List);
    const auto attempts = journal->Attempts("");
    if (!attempts) return journal->Failure();
    QStringList lines;
    for (const std::string& line : linesOf(*attempts))
      lines.append(Shown(line));
    return lines.join(QLatin1Char('\n'));
  };
  RunInWorker(work, [this, title](const Found& found) {
    if (const auto* const failure = std::get_if<JournalFailure>(&found)) return ShowFailure(*failure);
    auto* const dialog = new QDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title);
    auto* const text = new QPlainTextEdit(std::get<QString>(found));
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto* const layout = new QVBoxLayout(dialog);
    layout->addWidget(text);
    layout->addWidget(buttons);
    dialog->resize(width() * 3 / 4, height() / 2);
    dialog->show();
  });
}

} // namespace mr4500x
