#include "band_frame.h"
#include "channel_text.h"
#include "comparison.h"
#include "dialogs.h"
#include "edit_history.h"
#include "editor_panel.h"
#include "fill_messages.h"
#include "input.h"
#include "window_parts.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCollator>
#include <QDialog>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace mr4500x {
namespace {

constexpr char TakeText[] = "Take Other Value";
constexpr char FileChangedText[] = "The file has changed. Nothing was taken. Check the new list first.";
constexpr char FileLostText[] =
    "The file is missing, damaged or unreadable. The list shows its last content, and no value can be taken.";
constexpr QSize DesignSize(100, 28); // characters and lines

struct CompareColumn {
  const char* heading;
  QString (*text)(const DifferenceWords& words);
};

const char* SectionOf(FieldAt at) {
  static constexpr std::array sections = {"General", "Band", "Global", "Scan", "Keys", "TTS", "Channels"};
  return at.field == nullptr ? "Bytes" : sections[static_cast<std::size_t>(at.field->group)];
}

constexpr std::array CompareColumns = {
    CompareColumn{"Section", [](auto& words) { return QString::fromUtf8(SectionOf(words.at)); }},
    CompareColumn{"Field", [](auto& words) { return QString::fromStdString(words.name); }},
    CompareColumn{"Here", [](auto& words) { return QString::fromStdString(words.before); }},
    CompareColumn{"There", [](auto& words) { return QString::fromStdString(words.after); }},
};

bool IsRedo(const QKeyEvent& key) {
  return key.matches(QKeySequence::Redo) || (key.key() == Qt::Key_Y && key.modifiers() == Qt::ControlModifier);
}

class DifferenceTable final : public QAbstractTableModel {
public:
  using QAbstractTableModel::QAbstractTableModel;

  void Show(std::vector<DifferenceWords> rows) {
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
  }
  [[nodiscard]] const DifferenceWords& Row(const QModelIndex& index) const {
    return m_rows[static_cast<std::size_t>(index.row())];
  }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
  }
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(CompareColumns.size());
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    return CompareColumns[static_cast<std::size_t>(index.column())].text(Row(index));
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    return QString::fromUtf8(CompareColumns[static_cast<std::size_t>(section)].heading);
  }

private:
  std::vector<DifferenceWords> m_rows;
};

class DifferenceOrder final : public QSortFilterProxyModel {
public:
  explicit DifferenceOrder(QObject* parent) : QSortFilterProxyModel(parent) { m_texts.setNumericMode(true); }

protected:
  [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override { // CH2 before CH10
    return m_texts.compare(left.data().toString(), right.data().toString()) < 0;
  }

private:
  QCollator m_texts{QLocale::English}; // the C locale does not sort by numbers
};

class FrmCompare final : public QDialog {
public:
  FrmCompare(EditorPanel& panel, FileSystem& files, const ComparedSource& source, const RadioImage& other,
             MessageView& messages, QWidget* parent);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  enum class FileState : std::uint8_t { Same, Changed, Lost };

  void BuildTable();
  void AddAction(const QString& text, const QList<QKeySequence>& keys, void (FrmCompare::*run)());
  void Filter(const QString& text);
  FileState ReadAgain();
  [[nodiscard]] const char* Title() const { return m_source.isFile ? "Compare with File" : "Compare with Radio"; }
  void Renew();
  void WidenColumns();
  void ShowResult(bool isLost);
  void Take(); // what the file has in the selected rows
  void Copy();
  [[nodiscard]] QModelIndexList SelectedRows() const; // from top to bottom, or the current row if none is selected

  EditorPanel& m_panel;
  FileSystem& m_files;
  const ComparedSource m_source;
  MessageView& m_messages;
  std::optional<Comparison> m_comparison;
  std::optional<RadioImage> m_here; // the image that the list shows
  DifferenceTable* m_differences = new DifferenceTable(this);
  DifferenceOrder* m_order = new DifferenceOrder(this);
  QTableView* m_table = new QTableView;
  QLabel* m_result = new QLabel;
  QLineEdit* m_filter = new QLineEdit;
  QTimer m_look;
};

FrmCompare::FrmCompare(EditorPanel& panel, FileSystem& files, const ComparedSource& source, const RadioImage& other,
                       MessageView& messages, QWidget* parent)
    : QDialog(parent), m_panel(panel), m_files(files), m_source(source), m_messages(messages),
      m_comparison(std::in_place, other, panel.Texts()) {
  setObjectName(QStringLiteral("frmCompare"));
  setAttribute(Qt::WA_DeleteOnClose);
  ShowTitle(*this, "Compare with " + source.name);
  m_filter->setObjectName(QStringLiteral("txtFilter"));
  m_filter->setClearButtonEnabled(true);
  auto* const label = new QLabel(tr("&Filter:"));
  label->setBuddy(m_filter);
  m_result->setObjectName(QStringLiteral("lblResult"));
  m_result->setWordWrap(true);
  BuildTable();
  auto* const top = new QHBoxLayout;
  top->addWidget(label);
  top->addWidget(m_filter);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(m_table);
  layout->addWidget(m_result);
  const QSize wanted(DesignSize.width() * fontMetrics().averageCharWidth(),
                     DesignSize.height() * fontMetrics().height());
  resize(wanted.boundedTo(screen()->availableSize()));

  connect(m_filter, &QLineEdit::textChanged, this, &FrmCompare::Filter);
  addActions(panel.actions()); // undo and redo
  m_look.setSingleShot(true);
  m_look.callOnTimeout(this, &FrmCompare::Renew);
  connect(&panel, &EditorPanel::Changed, this, [this] { m_look.start(0); });
  QCoreApplication::instance()->installEventFilter(this);
  Renew();
  m_table->setFocus();
}

void FrmCompare::BuildTable() {
  m_order->setSourceModel(m_differences);
  m_order->setFilterKeyColumn(-1); // all of them
  m_order->setFilterCaseSensitivity(Qt::CaseInsensitive);
  m_table->setObjectName(QStringLiteral("tblDifferences"));
  m_table->setAccessibleName(tr("Differences"));
  m_table->setModel(m_order);
  m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
  m_table->setTabKeyNavigation(false);
  m_table->setWordWrap(false);
  m_table->verticalHeader()->hide();
  m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  m_table->horizontalHeader()->setStretchLastSection(true);
  m_table->horizontalHeader()->setHighlightSections(false);     // otherwise a selected row makes all headings bold
  m_table->horizontalHeader()->setSortIndicatorClearable(true); // back to the order of the sections
  m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  m_table->setSortingEnabled(true);
  m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
  AddAction(tr(TakeText), {Qt::Key_Return, Qt::Key_Enter}, &FrmCompare::Take);
  AddAction(tr("Copy"), {QKeySequence::Copy}, &FrmCompare::Copy);
  // Runs after the press, because a message inside it would swallow the release.
  connect(m_table, &QTableView::doubleClicked, this, &FrmCompare::Take, Qt::QueuedConnection);
}

void FrmCompare::AddAction(const QString& text, const QList<QKeySequence>& keys, void (FrmCompare::*run)()) {
  QAction* const action = new QAction(text, m_table);
  action->setShortcuts(keys);
  action->setShortcutContext(Qt::WidgetShortcut);
  connect(action, &QAction::triggered, this, run);
  m_table->addAction(action);
}

// Not all controls report their changes, so the editor is checked after each input. The file may have changed while
// another window was active.
bool FrmCompare::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (MayEdit(type) || type == QEvent::WindowActivate) m_look.start(0);
  // The filter undoes its own text, so it must also redo it.
  const bool isKey = type == QEvent::ShortcutOverride || type == QEvent::KeyPress;
  if (watched != m_filter || !isKey || !IsRedo(static_cast<const QKeyEvent&>(*event)))
    return QDialog::eventFilter(watched, event);
  event->accept();
  if (type == QEvent::KeyPress) m_filter->redo();
  return true;
}

void FrmCompare::Filter(const QString& text) {
  m_order->setFilterFixedString(text);
  if (m_table->selectionModel()->selectedRows().isEmpty()) m_table->selectRow(0); // the selected ones are hidden
  m_table->scrollTo(m_table->currentIndex());
  Renew();
}

FrmCompare::FileState FrmCompare::ReadAgain() {
  if (!m_source.isFile) return FileState::Same;
  RadioImage file;
  if (LoadInput(m_files, m_source.name, nullptr, file).outcome != LoadOutcome::Loaded ||
      Decode(file, m_panel.Texts()).end == DecodeEnd::DataError)
    return FileState::Lost;
  if (file == m_comparison->File()) return FileState::Same;
  m_comparison.emplace(file, m_panel.Texts());
  m_here.reset();
  return FileState::Changed;
}

void FrmCompare::Renew() {
  const bool isLost = ReadAgain() == FileState::Lost;
  const RadioImage here = m_panel.Collected();
  if (m_here != here) { // otherwise the selection is kept
    m_here = here;
    const int current = std::max(m_table->currentIndex().row(), 0);
    m_differences->Show(m_comparison->Rows(here));
    WidenColumns();
    m_table->selectRow(std::min(current, m_order->rowCount() - 1)); // for the next Enter
  }
  ShowResult(isLost);
}

// They never get narrower, because columns that jump with each edit are hard to read.
void FrmCompare::WidenColumns() {
  for (int column = 0; column < m_order->columnCount() - 1; ++column) {
    const int width = m_table->columnWidth(column);
    m_table->resizeColumnToContents(column);
    m_table->setColumnWidth(column, std::max(width, m_table->columnWidth(column)));
  }
}

void FrmCompare::ShowResult(bool isLost) {
  const int all = m_differences->rowCount(), shown = m_order->rowCount();
  const QString count = shown == all ? QString::number(all) : tr("%1 of %2").arg(shown).arg(all);
  m_result->setText(isLost     ? tr(FileLostText)
                    : all == 0 ? tr("There are no differences.")
                               : tr("Differences: %1. Enter or a double-click takes the value from there.").arg(count));
}

QModelIndexList FrmCompare::SelectedRows() const {
  QModelIndexList rows = m_table->selectionModel()->selectedRows();
  if (rows.isEmpty() && m_table->currentIndex().isValid()) rows.append(m_table->currentIndex());
  std::ranges::sort(rows, {}, &QModelIndex::row);
  return rows;
}

void FrmCompare::Take() {
  if (const FileState file = ReadAgain(); file != FileState::Same) {
    Renew();
    m_messages.Show(MessageIcon::Exclamation, Title(), file == FileState::Lost ? FileLostText : FileChangedText,
                    MessageButtons::Ok);
    return;
  }
  std::vector<DifferenceWords> rows;
  for (const QModelIndex& index : SelectedRows())
    rows.push_back(m_differences->Row(m_order->mapToSource(index)));
  m_panel.CommitCells();
  const Comparison::Taken taken = m_comparison->Take(m_panel.ShownUnfinished(), m_panel.Collected(), rows);
  Refusals refusals;
  for (const auto& [at, value, refusal] : taken.refused)
    refusals.push_back(NameOf(at) + ": " + value + ", " + ReasonOf(refusal));
  if (!refusals.empty()) {
    m_messages.Show(MessageIcon::Exclamation, Title(), MessageOf(refusals), MessageButtons::Ok);
    return;
  }
  const bool isAgreed = !taken.isNewLimit || AgreesToLowerLimit(m_messages);
  activateWindow(); // the message belongs to the main window
  if (!isAgreed) return;
  if (taken.image) // a step without a setting that could name it
    m_panel.Change(taken.values, *taken.image, tr(TakeText));
  else
    m_panel.Change(taken.values);
  Renew();
}

// A table with a heading, for spreadsheets.
void FrmCompare::Copy() {
  QStringList lines(1);
  for (const CompareColumn& column : CompareColumns)
    lines.front() += (lines.front().isEmpty() ? "" : "\t") + QString::fromUtf8(column.heading);
  for (const QModelIndex& index : SelectedRows()) {
    QStringList cells;
    for (int column = 0; column < m_order->columnCount(); ++column)
      cells.append(index.siblingAtColumn(column).data().toString());
    lines.append(cells.join('\t'));
  }
  QGuiApplication::clipboard()->setText(lines.join('\n') + '\n');
}

} // namespace

void ShowComparison(EditorPanel& panel, FileSystem& files, const ComparedSource& source, const RadioImage& other,
                    MessageView& messages, QWidget* parent) {
  if (Decode(other, panel.Texts()).end == DecodeEnd::DataError)
    messages.Show(MessageIcon::Exclamation, DataErrorTitle, DataErrorText, MessageButtons::Ok);
  else
    (new FrmCompare(panel, files, source, other, messages, parent))->show();
}

} // namespace mr4500x
