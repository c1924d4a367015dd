// The user's actions for single radios: choosing the row of the next one, and dismissing failed ones.
#include "fleet_setup.h"
#include "frm_fleet.h"
#include "journal_queries.h"
#include "shown_text.h"
#include "words.h"

#include <QLineEdit>
#include <QListWidget>

namespace mr4500x {

void FrmFleet::ChooseRow() {
  const std::string text = m_next->text().trimmed().toStdString();
  m_next->clear();
  if (text.empty()) {
    m_session->ForgetChoices();
    return ShowMessage(tr("Rows are given out in the order of the list."));
  }
  const JournalRow* const row = FindRow(m_rows.Rows(), text);
  const bool isChosen = row != nullptr && CanBeChosen(*row);
  if (isChosen) m_session->ChooseRow(row->row);
  Beep(isChosen ? 1 : 3); // a user with a scanner looks at the radio
  m_chosen = isChosen ? row->row : 0;
  m_choiceReply = Shown(LineForChoice(row, text));
  ShowMessage(m_choiceReply);
}

void FrmFleet::ShowCommand(const Attempt& note) {
  if (!note.text.empty()) {
    m_open.Record(note);
    ShowFailed();
    Beep(3);
  }
  if (m_session && m_tally.HasEnded()) End();
}

void FrmFleet::ShowFailed() {
  const QListWidgetItem* const current = m_failed->currentItem();
  const QVariant selected = current == nullptr ? QVariant() : current->data(Qt::UserRole);
  m_failed->clear();
  const std::string today = LocalTimestamp(UtcTimestamp()).substr(0, 10);
  const auto add = [&](const Attempt& attempt, const std::string& line) {
    const std::string time = LocalTimestamp(attempt.end.empty() ? attempt.start : attempt.end).substr(0, 16);
    const std::string shown = time.starts_with(today) ? time.substr(11) : time;
    auto* const item = new QListWidgetItem(Shown(shown + "  " + line), m_failed);
    item->setToolTip(item->text());
    item->setData(Qt::UserRole, Shown(attempt.idNumber));
    if (item->data(Qt::UserRole) == selected) m_failed->setCurrentItem(item);
  };
  for (const auto& [idNumber, attempt] : m_open.Failed())
    add(attempt, LineForFailed(attempt));
  for (const auto& [key, note] : m_open.Notes())
    add(note, LineForCommand(note));
  m_failedBox->setVisible(m_failed->count() > 0);
}

std::optional<std::string> FrmFleet::SelectedFailed() const {
  const QListWidgetItem* const current = m_failed->currentItem();
  return current == nullptr ? std::nullopt : std::optional(current->data(Qt::UserRole).toString().toStdString());
}

void FrmFleet::DismissFailed() {
  const auto radio = SelectedFailed();
  if (!radio) return ShowMessage(tr("Select the radio in the list first."));
  if (m_plan)
    EnterDecision({AttemptOutcome::Dismissed, m_plan->plan.key, 0, "", m_setup->Choice().operatorName, *radio});
}

} // namespace mr4500x
