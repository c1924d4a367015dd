#include "frm_fleet.h"

#include "fleet_setup.h"
#include "journal_queries.h"
#include "plan_start.h"
#include "port_card.h"
#include "shown_text.h"
#include "sql_journal.h"
#include "tone_codes.h"
#include "words.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSessionManager>
#include <QSettings>
#include <QShortcut>
#include <QStyle>
#include <QTableView>

#include <algorithm>
#include <chrono>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t MostRadios = 10; // that a question names

// What is scanned after a click in the table goes to the box for it.
class RowTable final : public QTableView {
public:
  explicit RowTable(QLineEdit* next) : m_next(next) {}
  void keyboardSearch(const QString& typed) override {
    if (!m_next->isEnabled()) return QTableView::keyboardSearch(typed);
    m_next->setFocus();
    m_next->insert(typed);
  }

private:
  QLineEdit* m_next;
};

// The plan from the files, and how it starts if it is still the shown one.
struct Beginning {
  std::shared_ptr<const LoadedPlan> changed;
  PlanStart start;
};

bool IsSamePlan(const PlanCheck& a, const PlanCheck& b) {
  return a.plan.key == b.plan.key && a.problems == b.problems;
}

std::shared_ptr<const LoadedPlan> Load(FileSystem& files, const FleetChoice& choice) {
  const std::string content = ContentOf(files, choice); // a later change is noticed at the start
  return std::make_shared<const LoadedPlan>(
      LoadedPlan{LoadPlan(files, choice, BuildFieldTexts('.'), nullptr), content});
}

} // namespace

FrmFleet::FrmFleet(FileSystem& files, std::string settingsFile, QString ownSettingsFile)
    : m_files(files), m_settingsFile(std::move(settingsFile)), m_ownSettingsFile(std::move(ownSettingsFile)),
      m_setup(new FleetSetup(
          files, m_settingsFile, [this] { ForgetPlan(); }, [this] { ShowState(); }, [this] { m_storeSoon.start(); })),
      m_counts(new QLabel), m_message(new QLabel), m_next(new QLineEdit), m_problems(new QListWidget),
      m_failed(new QListWidget), m_failedBox(new QWidget), m_cardArea(new QScrollArea), m_cardGrid(new QGridLayout),
      m_table(new RowTable(m_next)), m_start(new QPushButton(tr("&Start"))),
      m_stop(new QPushButton(tr("St&op after these radios"))), m_statistics(new QPushButton(tr("Stat&istics..."))),
      m_save(new QPushButton(tr("Sa&ve journal..."))), m_print(new QPushButton(tr("Print jour&nal..."))) {
  m_worker.setMaxThreadCount(1);
  BuildWindow();
  m_refresh.setInterval(2s);
  connect(&m_refresh, &QTimer::timeout, this, [this] { RefreshRows(); });
  m_loadSoon.setSingleShot(true);
  m_loadSoon.setInterval(300ms);
  connect(&m_loadSoon, &QTimer::timeout, this, [this] { LoadChosenPlan(); });
  m_storeSoon.setSingleShot(true);
  m_storeSoon.setInterval(300ms);
  connect(&m_storeSoon, &QTimer::timeout, this, [this] { StoreChoice(); });
  connect(
      qApp, &QGuiApplication::commitDataRequest, this,
      [this](QSessionManager& session) {
        if (!MayLogOut() && session.allowsInteraction()) session.cancel();
      },
      Qt::DirectConnection);
  const QSettings settings(m_ownSettingsFile, QSettings::IniFormat);
  m_setup->Load(settings);
  m_storeSoon.stop();
  const QSize frame(0, style()->pixelMetric(QStyle::PM_TitleBarHeight)); // the real one is not known yet
  resize(settings.value("Window/Size", QSize(1200, 760)).toSize().boundedTo(screen()->availableSize() - frame));
  ForgetPlan();
}

FrmFleet::~FrmFleet() {
  m_session.reset();
  m_worker.waitForDone();
}

void FrmFleet::ShowMessage(const QString& text, const QString& details) {
  m_message->setText(Breakable(text));
  m_message->setToolTip(details);
}

// The details are the database's own message.
void FrmFleet::ShowFailure(const JournalFailure& failure) {
  ShowMessage(Shown(WithoutPassword(m_journal) + ": " + failure.error), Shown(failure.details));
}

// Until the chosen plan has been loaded, nothing can be started.
void FrmFleet::ForgetPlan() {
  m_plan.reset();
  ++m_loads;
  ShowMessage({});
  m_rows.Show({});
  m_open = {};
  ShowFailed();
  m_counts->clear();
  ShowState();
  m_loadSoon.start(); // after the user has finished typing
}

void FrmFleet::LoadChosenPlan() {
  const FleetChoice choice = m_setup->Choice();
  if (choice.templateFile.empty()) return;
  const auto work = [this, choice] { return Load(m_files, choice); };
  RunInWorker(work, [this, load = m_loads, choice](const std::shared_ptr<const LoadedPlan>& check) {
    if (load != m_loads) return;
    if (m_session || m_isStarting) return;
    if (m_plan && IsSamePlan(*check, *m_plan)) { // keep the selection
      RefreshRows();
      LoadOpenRadios();
    } else {
      ShowPlan(check, choice);
    }
  });
}

void FrmFleet::ShowPlan(const std::shared_ptr<const LoadedPlan>& check, const FleetChoice& choice) {
  m_plan = check;
  RemoveCards(); // of another list
  m_journal = JournalOf(choice);
  m_listedAt = 0;
  m_journalError.clear();
  m_changes.clear();
  m_problems->clear();
  for (const std::string& problem : check->problems)
    m_problems->addItem(Breakable(Shown(problem)));
  m_rows.Show(check->problems.empty() ? JournalRowsOf(check->plan) : std::vector<JournalRow>());
  ShowCounts();
  ShowState();
  RefreshRows();
  LoadOpenRadios();
  if (check->problems.empty()) CompareWithEarlierLists(choice);
}

// Shows the rows that will carry over.
void FrmFleet::CompareWithEarlierLists(const FleetChoice& choice) {
  const auto work = [this, choice, plan = m_plan] { return ComparePlan(m_files, choice, plan->plan); };
  RunInWorker(work, [this, plan = m_plan](const PlanStart& start) {
    if (plan != m_plan || m_session || !start.hasCompared) return;
    m_rows.Show(start.changes.rows);
    m_changes = Shown(LineForChanges(start.changes));
    ShowCounts();
  });
}

// Those that a bench of this computer left in the journal before.
void FrmFleet::LoadOpenRadios() {
  const auto work = [address = m_journal] {
    const auto attempts = OpenJournal(address, JournalUse::List)->Attempts("");
    return attempts ? std::optional(OpenRadiosOf(*attempts)) : std::nullopt;
  };
  RunInWorker(work, [this, plan = m_plan](const std::optional<OpenRadios>& open) {
    if (plan != m_plan || m_session || !open) return; // a bench reports its own
    m_open = *open;
    ShowFailed();
    ShowCounts();
  });
}

void FrmFleet::ShowState() {
  const bool isUsable = m_plan && m_plan->problems.empty(), isRunning = m_session || m_isStarting;
  m_setup->SetRunning(isRunning);
  const FleetChoice choice = m_setup->Choice();
  const QString missing = tr("Choose a template and the ports.");
  const bool isMissing = !isRunning && (choice.templateFile.empty() || choice.ports.empty());
  if (isMissing && m_message->text().isEmpty()) ShowMessage(missing); // keep the message of a command
  if (!isMissing && m_message->text() == missing) ShowMessage({});
  m_start->setEnabled(!isRunning && isUsable && !choice.ports.empty());
  m_stop->setEnabled(m_session && !m_isStopping);
  m_next->setEnabled(m_session && !m_plan->plan.isEndless);
  m_statistics->setEnabled(m_plan != nullptr); // the whole journal's
  m_save->setEnabled(isUsable);
  m_print->setEnabled(isUsable);
  m_problems->setVisible(m_plan && !isUsable);
  m_table->setVisible(!m_problems->isVisibleTo(this));
}

void FrmFleet::Start() {
  if (m_session || m_isStarting || !m_start->isEnabled()) return;
  if (m_setup->AskOperator() && m_start->isEnabled()) StartWith(EarlierRows::Ask);
}

void FrmFleet::StartWith(EarlierRows earlier) {
  m_isStarting = true;
  ShowMessage({});
  ShowState();
  FleetChoice choice = m_setup->Choice();
  choice.earlier = earlier;
  const auto work = [this, choice, plan = m_plan] {
    Beginning beginning;
    if (ContentOf(m_files, choice) != plan->content) beginning.changed = Load(m_files, choice);
    if (beginning.changed && IsSamePlan(*beginning.changed, *plan)) beginning.changed.reset();
    const auto onWait = [this] {
      QMetaObject::invokeMethod(
          this, [this] { ShowMessage(Shown(WaitsForBenchText)); }, Qt::QueuedConnection);
    };
    if (!beginning.changed) beginning.start = BeginPlan(m_files, choice, plan->plan, onWait);
    return beginning;
  };
  RunInWorker(work, [this, choice](const Beginning& beginning) {
    m_isStarting = false;
    if (beginning.changed) {
      ShowPlan(beginning.changed, choice);
      ShowMessage(tr("The template or the rows have changed. Check them and start again."));
    } else if (!beginning.start.failure.error.empty()) {
      ShowFailure(beginning.start.failure);
    } else if (beginning.start.NeedsAnswer()) {
      AskAboutEarlier(beginning.start);
    } else if (!m_closesAtEnd) {
      ShowMessage({});
      StartPorts(choice);
    }
    ShowState();
    // Not the button, because a blank in a scanned label would press it.
    QWidget* const running = m_next->isEnabled() ? static_cast<QWidget*>(m_next) : m_stop;
    (m_session ? running : m_start)->setFocus();
  });
}

// Nothing has been entered yet.
void FrmFleet::AskAboutEarlier(const PlanStart& start) {
  const bool isLost = !start.lost.empty();
  const QString changed = tr("The list has changed: %1. Rows that are carried over stay done.");
  QString asked = isLost ? Shown(start.lost) : changed.arg(Shown(LineForChanges(start.changes)));
  for (const std::string& line : LinesForOutdated(start.changes.outdated, MostRadios))
    asked += QLatin1Char('\n') + Shown(line);
  auto* const box = new QMessageBox(QMessageBox::Question, windowTitle(), asked, QMessageBox::Cancel, this);
  box->setDefaultButton(QMessageBox::Cancel);
  box->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [&](const QString& text, EarlierRows earlier) {
    QPushButton* const button = box->addButton(text, QMessageBox::AcceptRole);
    connect(button, &QPushButton::clicked, this, [this, earlier] { StartWith(earlier); });
    return button;
  };
  if (!isLost) box->setDefaultButton(add(tr("&Carry over"), EarlierRows::CarryOver));
  add(tr("&Start over"), EarlierRows::StartOver);
  box->open();
}

void FrmFleet::StartPorts(const FleetChoice& choice) {
  RemoveCards();
  for (const PortAddress& port : choice.ports)
    m_cards.push_back(
        new PortCard(Shown(DisplayName(port)), [this, index = m_cards.size()] { m_session->GoOn(index); }));
  m_cardArea->show();
  ArrangeCards();
  m_tally = FleetTally(choice.ports.size());
  m_isStopping = false;
  m_changes.clear();
  m_since.start();
  m_refresh.start();
  // Reports from the ports' threads are shown in this thread.
  const auto inWindow = [this](auto show) { QMetaObject::invokeMethod(this, show, Qt::QueuedConnection); };
  m_session = std::make_unique<FleetSession>(
      m_files, m_settingsFile, std::shared_ptr<const Plan>(m_plan, &m_plan->plan), choice,
      BenchEvents{
          .onStatus = [this, inWindow](const PortStatus& status) { inWindow([this, status] { ShowStatus(status); }); },
          .onConflict = [this,
                         inWindow](const Attempt& attempt) { inWindow([this, attempt] { ShowConflict(attempt); }); },
          .onEntered = [this,
                        inWindow](const Attempt& attempt) { inWindow([this, attempt] { m_open.Record(attempt); }); },
      },
      [this, inWindow](const Attempt& note) { inWindow([this, note] { ShowCommand(note); }); });
}

void FrmFleet::ShowStatus(const PortStatus& status) {
  m_cards[status.port]->Show(status);
  if (status.row > 0 && status.row == m_chosen) { // the message about it is out of date
    if (m_message->text() == m_choiceReply) ShowMessage({});
    m_chosen = 0;
  }
  if (m_tally.Record(status)) {
    if (status.state == PortState::Done) Beep(1);
    if (IsBad(status.state)) Beep(3);
    ShowFailed();
    RefreshRows();
  }
  if (m_session && m_tally.HasEnded()) End();
}

void FrmFleet::ShowConflict(const Attempt& attempt) {
  m_open.Record(attempt);
  ShowFailed();
  Beep(3);
  auto* const box =
      new QMessageBox(QMessageBox::Warning, windowTitle(), Shown(LineForConflict(attempt)), QMessageBox::Ok, this);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->show(); // the ports continue
}

void FrmFleet::End() {
  if (m_session->HasCommands()) return ShowMessage(tr("Waiting for the command."));
  if (const std::size_t pending = m_session->PendingCount(); pending > 0)
    ShowMessage(Shown(LineForPending(pending)));
  else
    ShowMessage(tr("All ports are finished."));
  m_session.reset();
  m_refresh.stop();
  RefreshRows();
  m_isStopping = false;
  ShowState();
  m_start->setFocus();
  if (m_closesAtEnd) close();
}

void FrmFleet::StopAfterTheseRadios() {
  if (!m_session || m_isStopping) return;
  m_isStopping = true;
  m_session->StopAfterTheseRadios();
  ShowMessage(tr("Stopping after these radios."));
  ShowState();
}

// Runs in the worker's thread, because the database may be slow. One query at a time.
void FrmFleet::RefreshRows() {
  m_refreshesAgain = m_isRefreshing;
  if (m_isRefreshing || !m_plan || !m_plan->problems.empty()) return;
  m_isRefreshing = true;
  using Listed = std::pair<RowList, JournalFailure>;
  const auto work = [plan = m_plan, address = m_journal, since = m_listedAt] {
    const std::unique_ptr<Journal> journal = OpenJournal(address, JournalUse::List);
    auto list = journal->ChangedRows(plan->plan.key, since);
    return list ? Listed{std::move(*list), JournalFailure()} : Listed{RowList(), journal->Failure()};
  };
  RunInWorker(work, [this, plan = m_plan](const Listed& listed) {
    const auto& [list, failure] = listed;
    m_isRefreshing = false;
    if (plan == m_plan) m_listedAt = list.time;
    if (plan != m_plan || m_refreshesAgain) RefreshRows();
    if (plan != m_plan) return;
    m_rows.Update(list.rows);
    // Before the first start there is no file.
    const bool isMade = !m_cards.empty() || FileOfJournal(m_journal).empty();
    m_journalError = isMade ? Shown(failure.error) : QString();
    m_counts->setToolTip(isMade ? Shown(failure.details) : QString());
    ShowCounts();
  });
}

void FrmFleet::ShowCounts() {
  const int done = m_rows.Count(RowState::Done), taken = m_rows.Count(RowState::Taken), left = m_rows.rowCount() - done;
  QString text = tr("%1 of %2 rows done, %3 taken, %4 free").arg(done).arg(done + left).arg(taken).arg(left - taken);
  if (m_plan && m_plan->plan.isEndless) text = tr("Radios done: %1").arg(done);
  if (!m_changes.isEmpty()) text += tr("; the list has changed: %1").arg(m_changes);
  if (m_plan && !m_plan->problems.empty()) text = tr("Problems in the template and the rows");
  if (!m_journalError.isEmpty()) text = tr("The journal: %1").arg(m_journalError);
  if (!m_open.Failed().empty()) text += tr("; radios not verified: %1").arg(m_open.Failed().size());
  QStringList partly;
  for (const auto& [idNumber, attempt] : m_open.PartlyWritten())
    partly.append(Shown(idNumber));
  if (!partly.isEmpty()) text += tr("; partly programmed: %1").arg(partly.join(QStringLiteral(", ")));
  if (m_session && taken > 0 && m_journalError.isEmpty() && m_tally.Done() > 0 && left > 0)
    text += tr("; about %1 min left").arg(m_since.elapsed() * left / m_tally.Done() / 60'000 + 1);
  m_counts->setText(text);
}

void FrmFleet::Beep(int times) {
  if (!m_setup->HasSound()) return;
  for (int i = 0; i < times; ++i)
    QTimer::singleShot(i * 250ms, this, [] { QApplication::beep(); });
}

void FrmFleet::CloseBySignal() {
  if (m_session) m_session->StopBeforeWrites();
  CloseAfterTheseRadios();
}

bool FrmFleet::MayLogOut() {
  if (m_session) CloseBySignal();
  return !IsAtWork();
}

bool FrmFleet::IsAtWork() const {
  return m_session && std::ranges::any_of(m_cards, [](const PortCard* card) { return IsUnderway(card->State()); });
}

void FrmFleet::CloseAfterTheseRadios() {
  m_closesAtEnd = true;
  StopAfterTheseRadios();
  if (!m_session) close();
}

void FrmFleet::closeEvent(QCloseEvent* event) {
  if (m_session) {
    event->ignore();
    if (m_closesAtEnd) return;
    const auto question = tr("Radios are being programmed. Do you want to stop after these radios and then close?");
    if (!IsAtWork() || QMessageBox::question(this, windowTitle(), question) == QMessageBox::Yes)
      CloseAfterTheseRadios();
    return;
  }
  StoreChoice();
  event->accept();
}

void FrmFleet::StoreChoice() {
  QSettings settings(m_ownSettingsFile, QSettings::IniFormat);
  m_setup->Store(settings);
  settings.setValue("Window/Size", size());
  settings.sync();
  QFile::setPermissions(m_ownSettingsFile, QFile::ReadOwner | QFile::WriteOwner);
}

void FrmFleet::resizeEvent(QResizeEvent* event) {
  ArrangeCards();
  QWidget::resizeEvent(event);
}

// In the meantime a cable may have been plugged in, and the files may have changed.
bool FrmFleet::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && !m_session && !m_isStarting) {
    m_setup->FindPorts();
    LoadChosenPlan();
  }
  return QWidget::event(event);
}

} // namespace mr4500x
