// The window of a bench: the setup at the top, a card for each port, and the rows of the plan at the bottom. Slow work
// is done in a separate thread, and each port has its own thread.
#pragma once

#include "fleet_session.h"
#include "open_radios.h"
#include "row_model.h"

#include <QElapsedTimer>
#include <QSortFilterProxyModel>
#include <QThreadPool>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>

class QGridLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QScrollArea;
class QTableView;

namespace mr4500x {

class FleetSetup;
struct PlanStart;
class PortCard;
struct RowDecision;

struct LoadedPlan : PlanCheck {
  std::string content; // of the files; see ContentOf
};

class FrmFleet final : public QWidget {
public:
  FrmFleet(FileSystem& files, std::string settingsFile, QString ownSettingsFile);
  ~FrmFleet() override;
  Q_DISABLE_COPY_MOVE(FrmFleet)

  void StopAfterTheseRadios();
  void CloseAfterTheseRadios();   // without a question
  void CloseBySignal();           // according to the policy in end_signals.h
  [[nodiscard]] bool MayLogOut(); // while radios are being programmed, false; then it closes as by a signal

protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

private:
  // Runs `work` in the worker's thread, then `then` with its result in this one.
  template<class Work, class Then>
  void RunInWorker(Work work, Then then);

  void BuildWindow();
  void BuildCards();
  void BuildTable();
  [[nodiscard]] QLayout* BuildCounts();
  [[nodiscard]] QLayout* BuildButtons();
  [[nodiscard]] QWidget* BuildFailed();
  void BuildPartKeys();
  void BuildRowMenu();
  void BuildFailedMenu();
  [[nodiscard]] const JournalRow* CurrentRow() const; // of the table
  void DecideAboutRow(AttemptOutcome outcome, const QString& question);
  void AskAndEnter(RowDecision decision, const QString& question, const QString& name);
  void ShowRadio(const std::string& idNumber);
  void ShowStatistics();
  void ShowLines(const QString& title, std::function<std::vector<std::string>(const std::vector<Attempt>&)> linesOf);
  void ForgetPlan();
  void LoadChosenPlan();
  void ShowPlan(const std::shared_ptr<const LoadedPlan>& check, const FleetChoice& choice);
  void Start();
  void StartWith(EarlierRows earlier);
  void AskAboutEarlier(const PlanStart& start);
  void StartPorts(const FleetChoice& choice);
  void ShowStatus(const PortStatus& status);
  void ShowConflict(const Attempt& attempt);
  void LoadOpenRadios();
  void CompareWithEarlierLists(const FleetChoice& choice);
  void ChooseRow();                      // chooses the row that was typed or scanned
  void ShowCommand(const Attempt& note); // shows the result of a command
  void ShowFailed();
  [[nodiscard]] std::optional<std::string> SelectedFailed() const; // its number, which may be ""
  void DismissFailed();                                            // dismisses the selected radio
  void EnterDecision(const RowDecision& decision);
  void StoreChoice();
  void End();
  void RefreshRows();
  void ShowCounts();
  void ArrangeCards();
  void RemoveCards();
  [[nodiscard]] bool IsAtWork() const; // whether radios are being programmed
  void ShowState();                    // what can be done now
  void Beep(int times);
  void WithJournal(std::function<void(const JournalContent&)> use);
  void SaveJournal();
  void SaveJournalAs(const char* proposed); // the pattern of the proposed file type
  void PrintOnPaper();
  void ShowMessage(const QString& text, const QString& details = {});
  void ShowFailure(const JournalFailure& failure);

  FileSystem& m_files;
  std::string m_settingsFile;
  QString m_ownSettingsFile;
  QThreadPool m_worker; // one thread

  FleetSetup* m_setup;
  QLabel *m_counts, *m_message;
  QLineEdit* m_next; // the box "Next row"
  QListWidget *m_problems, *m_failed;
  QWidget* m_failedBox;
  QScrollArea* m_cardArea; // 16 cards need more than a small screen
  QGridLayout* m_cardGrid;
  QTableView* m_table;
  QPushButton *m_start, *m_stop, *m_statistics, *m_save, *m_print;
  RowModel m_rows;
  QSortFilterProxyModel m_filtered;
  std::vector<PortCard*> m_cards;

  std::shared_ptr<const LoadedPlan> m_plan; // the last one loaded
  std::string m_journal;                    // the address of the journal
  std::int64_t m_listedAt = 0;              // the time of the last list of its rows
  unsigned m_loads = 0;                     // the number of the one that counts
  std::unique_ptr<FleetSession> m_session;
  FleetTally m_tally{0};
  OpenRadios m_open; // of the journal and the running bench
  QTimer m_loadSoon, m_storeSoon, m_refresh;
  QElapsedTimer m_since;
  QString m_journalError; // error of the last query
  QString m_changes;      // of a list that has not begun
  QString m_choiceReply;  // the last message about a chosen row
  std::size_t m_chosen = 0;
  bool m_isStarting = false, m_isStopping = false, m_isRefreshing = false, m_refreshesAgain = false,
       m_closesAtEnd = false;
};

template<class Work, class Then>
void FrmFleet::RunInWorker(Work work, Then then) {
  m_worker.start([this, work = std::move(work), then = std::move(then)] {
    auto result = work();
    QMetaObject::invokeMethod(
        this, [then, result = std::move(result)] { then(result); }, Qt::QueuedConnection);
  });
}

} // namespace mr4500x
