// What the fleet's window asks of the journal, and enters about a row.
#include "fleet_setup.h"
#include "frm_fleet.h"
#include "journal_queries.h"
#include "shown_text.h"
#include "sql_journal.h"
#include "utf8.h"
#include "words.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QInputDialog>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTableView>
#include <QVBoxLayout>

namespace mr4500x {
namespace {

// Opens a menu of the list's actions at the entry under the pointer, or with the Menu key at the current one.
class EntryMenu final : public QObject {
public:
  explicit EntryMenu(QAbstractItemView* list) : QObject(list), m_list(list) {
    list->installEventFilter(this);
    list->viewport()->installEventFilter(this);
  }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::ContextMenu) return false;
    const auto* const request = static_cast<const QContextMenuEvent*>(event);
    const bool isByKey = request->reason() == QContextMenuEvent::Keyboard;
    const QWidget* const area = m_list->viewport();
    const QModelIndex entry =
        isByKey ? m_list->currentIndex() : m_list->indexAt(area->mapFromGlobal(request->globalPos()));
    if (!entry.isValid()) return true;
    m_list->setCurrentIndex(entry);
    m_list->scrollTo(entry);
    auto* const menu = new QMenu(m_list);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(m_list->actions());
    menu->popup(isByKey ? area->mapToGlobal(m_list->visualRect(entry).bottomLeft()) : request->globalPos());
    return true;
  }

private:
  QAbstractItemView* m_list;
};

} // namespace

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
  new EntryMenu(m_table);
  std::vector<std::pair<QAction*, RowState>> actions;
  for (const Entry& entry : Entries) {
    auto* const action = new QAction(tr(entry.text), m_table);
    connect(action, &QAction::triggered, this, [this, &entry] { DecideAboutRow(entry.outcome, tr(entry.question)); });
    actions.emplace_back(action, entry.needs);
  }
  auto* const radio = new QAction(tr("&All about the Radio"), m_table);
  connect(radio, &QAction::triggered, this, [this] {
    const JournalRow* const row = CurrentRow();
    if (row != nullptr) ShowRadio(row->idNumber.empty() ? row->radio : row->idNumber);
  });
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

// The menu of the radios that need attention.
void FrmFleet::BuildFailedMenu() {
  new EntryMenu(m_failed);
  const auto add = [this](const QString& text, const auto& act) {
    auto* const action = new QAction(text, m_failed);
    connect(action, &QAction::triggered, this, [this, act] {
      if (const auto radio = SelectedFailed(); radio && m_plan) act(*radio);
    });
    m_failed->addAction(action);
  };
  add(tr("&Dismiss"), [this](const std::string&) { DismissFailed(); });
  add(tr("&Note..."), [this](const std::string& radio) {
    AskAndEnter({AttemptOutcome::Note, m_plan->plan.key, 0, {}, m_setup->Choice().operatorName, radio},
                tr("Note about %1:"), radio.empty() ? tr("a radio") : tr("radio %1").arg(Shown(radio)));
  });
  add(tr("&All about the Radio"), [this](const std::string& radio) { ShowRadio(radio); });
}

const JournalRow* FrmFleet::CurrentRow() const {
  const QModelIndex index = m_filtered.mapToSource(m_table->currentIndex());
  return index.isValid() ? &m_rows.Rows()[static_cast<std::size_t>(index.row())] : nullptr;
}

void FrmFleet::DecideAboutRow(AttemptOutcome outcome, const QString& question) {
  const JournalRow* const row = CurrentRow();
  if (row == nullptr || !m_plan) return;
  AskAndEnter({outcome, m_plan->plan.key, row->row, {}, m_setup->Choice().operatorName, row->idNumber}, question,
              tr("Row %1").arg(row->row) + (row->label.empty() ? "" : ", " + Shown(Printable(row->label))));
}

void FrmFleet::AskAndEnter(RowDecision decision, const QString& question, const QString& name) {
  bool isGiven = false;
  const QString text = QInputDialog::getText(this, windowTitle(), question.arg(name), QLineEdit::Normal, {}, &isGiven);
  if (m_next->isEnabled()) m_next->setFocus(); // for the next scan
  decision.text = text.trimmed().toStdString();
  if (!isGiven || (decision.outcome == AttemptOutcome::Note && decision.text.empty())) return;
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

void FrmFleet::ShowRadio(const std::string& idNumber) {
  ShowLines(tr("Radio %1").arg(Shown(idNumber)),
            [idNumber](const std::vector<Attempt>& attempts) { return LinesForRadio(attempts, idNumber); });
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
    text->setAccessibleName(title);
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
