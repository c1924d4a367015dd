// The layout of the fleet's window, and the keys that move between its parts.
#include "fleet_setup.h"
#include "frm_fleet.h"
#include "port_card.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QTableView>

#include <algorithm>

namespace mr4500x {
namespace {

constexpr int MostCardsInARow = 4;
constexpr int LabelColumn = 2;

} // namespace

void FrmFleet::BuildWindow() {
  setWindowTitle(tr("MR4500X Fleet"));
  m_problems->setObjectName(QStringLiteral("lstProblems"));
  m_problems->setAccessibleName(tr("Problems"));
  for (QListWidget* const list : {m_problems, m_failed}) {
    list->setWordWrap(true);
    list->setTextElideMode(Qt::ElideNone);
  }
  BuildCards();
  BuildTable();
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(m_setup);
  layout->addWidget(m_cardArea, 4);
  layout->addLayout(BuildCounts());
  auto* const lists = new QHBoxLayout;
  lists->addWidget(m_problems, 2);
  lists->addWidget(m_table, 2);
  lists->addWidget(BuildFailed(), 1);
  layout->addLayout(lists, 2);
  layout->addLayout(BuildButtons());
  BuildPartKeys();
}

// Ctrl+Tab moves from part to part, past the many cards and boxes of each.
void FrmFleet::BuildPartKeys() {
  const auto move = [this](int step) {
    QList<QWidget*> parts{m_setup, m_cardArea, m_next, m_table, m_failed, m_stop, m_start};
    parts.removeIf([](const QWidget* part) { return !part->isVisible() || !part->isEnabled(); });
    if (parts.isEmpty()) return;
    const QWidget* const focus = focusWidget();
    const auto has = [&](const QWidget* part) {
      return focus != nullptr && (part == focus || part->isAncestorOf(focus));
    };
    const auto at = static_cast<int>(std::ranges::find_if(parts, has) - parts.begin()),
               count = static_cast<int>(parts.size());
    QWidget* next = parts[at == count ? 0 : (at + step + count) % count];
    if (next == m_cardArea) next = m_cards.front();
    const auto takesFocus = [](const QWidget* widget) {
      return (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() && widget->isEnabled();
    };
    for (const QWidget* const part = next; !takesFocus(next) && next->nextInFocusChain() != part;)
      next = next->nextInFocusChain();
    next->setFocus(Qt::TabFocusReason);
  };
  new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Tab), this, [move] { move(1); });
  new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), this, [move] { move(-1); });
}

QWidget* FrmFleet::BuildFailed() {
  m_failed->setObjectName(QStringLiteral("lstFailed"));
  m_failed->setAccessibleName(tr("Needs attention"));
  auto* const caption = new QLabel(tr("Needs attention (&X):"));
  caption->setBuddy(m_failed);
  auto* const dismiss = new QPushButton(tr("&Dismiss"));
  dismiss->setObjectName(QStringLiteral("cmdDismiss"));
  dismiss->setToolTip(tr("Removes the selected radio from this list (Delete); the journal keeps its entries"));
  connect(dismiss, &QPushButton::clicked, this, [this] { DismissFailed(); });
  auto* const byKey = new QShortcut(QKeySequence::Delete, m_failed, [this] { DismissFailed(); });
  byKey->setContext(Qt::WidgetShortcut);
  auto* const line = new QHBoxLayout;
  line->addWidget(caption, 1);
  line->addWidget(dismiss);
  auto* const layout = new QVBoxLayout(m_failedBox);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(line);
  layout->addWidget(m_failed);
  m_failedBox->hide(); // while there is none
  BuildFailedMenu();
  return m_failedBox;
}

void FrmFleet::BuildCards() {
  auto* const cards = new QWidget;
  cards->setLayout(m_cardGrid);
  m_cardGrid->setContentsMargins(0, 0, 0, 0);
  m_cardArea->setWidget(cards);
  m_cardArea->setWidgetResizable(true);
  m_cardArea->setFrameShape(QFrame::NoFrame);
  m_cardArea->setFocusPolicy(Qt::NoFocus);
  m_cardArea->hide(); // until the start
}

void FrmFleet::BuildTable() {
  m_filtered.setSourceModel(&m_rows);
  m_filtered.setFilterCaseSensitivity(Qt::CaseInsensitive);
  m_filtered.setFilterKeyColumn(-1); // all
  m_table->setObjectName(QStringLiteral("gridRows"));
  m_table->setAccessibleName(tr("Rows"));
  m_table->setModel(&m_filtered);
  m_table->setSortingEnabled(true);
  m_table->sortByColumn(1, Qt::AscendingOrder);
  m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
  m_table->setTabKeyNavigation(false);
  m_table->setAlternatingRowColors(true);
  m_table->verticalHeader()->hide();
  m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() * 3 / 2);
  m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  m_table->setWordWrap(false);
  m_table->setTextElideMode(Qt::ElideMiddle); // labels often differ at their ends
  QHeaderView& header = *m_table->horizontalHeader();
  header.setResizeContentsPrecision(100); // rows, as there may be many thousands
  header.setSectionResizeMode(QHeaderView::ResizeToContents);
  header.setSectionResizeMode(LabelColumn, QHeaderView::Stretch); // a long label does not hide the other columns
  BuildRowMenu();
}

// The counts, the box for the next row, and the filter of the table below them.
QLayout* FrmFleet::BuildCounts() {
  m_counts->setObjectName(QStringLiteral("lblCounts"));
  m_counts->setWordWrap(true);
  auto* const filter = new QLineEdit;
  filter->setObjectName(QStringLiteral("txtFilter"));
  filter->setClearButtonEnabled(true);
  filter->setAccessibleName(tr("Filter"));
  filter->setPlaceholderText(tr("Filter (Ctrl+F)"));
  connect(filter, &QLineEdit::textChanged, &m_filtered, &QSortFilterProxyModel::setFilterFixedString);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, filter, [filter] { filter->setFocus(); });
  m_next->setObjectName(QStringLiteral("txtNext"));
  m_next->setAccessibleName(tr("Next row"));
  m_next->setPlaceholderText(tr("Next row: label or radio (Ctrl+L)"));
  m_next->setToolTip(tr("Scan or type a row's label or its radio's number; the next waiting port gets the row"));
  m_next->setEnabled(false); // until the start
  connect(m_next, &QLineEdit::returnPressed, this, [this] { ChooseRow(); });
  new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_L), this, [this] { m_next->setFocus(); });
  auto* const line = new QHBoxLayout;
  line->addWidget(m_counts, 3);
  line->addWidget(m_next, 1);
  line->addWidget(filter, 1);
  return line;
}

QLayout* FrmFleet::BuildButtons() {
  m_message->setObjectName(QStringLiteral("lblMessage"));
  m_message->setTextFormat(Qt::PlainText);
  m_message->setWordWrap(true);
  auto* const line = new QHBoxLayout;
  line->addWidget(m_message, 1);
  const auto add = [&](QPushButton* button, const char* name, void (FrmFleet::*handler)()) {
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, handler);
    line->addWidget(button);
  };
  add(m_statistics, "cmdStatistics", &FrmFleet::ShowStatistics);
  add(m_save, "cmdSave", &FrmFleet::SaveJournal);
  add(m_print, "cmdPrint", &FrmFleet::PrintOnPaper);
  add(m_stop, "cmdStop", &FrmFleet::StopAfterTheseRadios);
  add(m_start, "cmdStart", &FrmFleet::Start);
  return line;
}

void FrmFleet::RemoveCards() {
  qDeleteAll(m_cards);
  m_cards.clear();
  m_cardArea->hide();
}

// As many per row as fit the width of the window.
void FrmFleet::ArrangeCards() {
  if (m_cards.empty()) return;
  const int room = width() - layout()->contentsMargins().left() - layout()->contentsMargins().right();
  const int card = m_cards.front()->minimumSizeHint().width() + m_cardGrid->spacing();
  const int inARow = std::clamp(room / card, 1, MostCardsInARow);
  for (int at = 0; PortCard* const each : m_cards) {
    m_cardGrid->addWidget(each, at / inARow, at % inARow);
    ++at;
  }
  // By default they come last, because the other parts were there first.
  QWidget* before = m_cardArea->previousInFocusChain();
  while (before->focusPolicy() == Qt::NoFocus)
    before = before->previousInFocusChain();
  for (PortCard* const each : m_cards) {
    auto* const goOn = each->findChild<QPushButton*>();
    setTabOrder(before, each);
    setTabOrder(each, goOn);
    before = goOn;
  }
  const int rows = (static_cast<int>(m_cards.size()) + inARow - 1) / inARow;
  const int high = m_cards.front()->sizeHint().height() + m_cardGrid->spacing();
  m_cardArea->setMaximumHeight(rows * high); // the table has the rest
}

} // namespace mr4500x
