#include "help_window.h"

#include "find_bar.h"
#include "index_tab.h"
#include "page_view.h"
#include "search_tab.h"

#include <QAction>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QKeyEvent>
#include <QScreen>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include <utility>

namespace mr4500x {
namespace {

constexpr QSize StartSize(1000, 700);
constexpr int TabsWidth = 330;

} // namespace

HelpWindow::HelpWindow(std::unique_ptr<HelpBook> book, std::function<void(const QUrl&)> openLink)
    : m_book(std::move(book)), m_page(new PageView(*m_book, std::move(openLink))), m_findBar(new FindBar(*m_page)),
      m_tabs(new QTabWidget), m_contents(m_book->Engine().contentWidget()), m_index(new IndexTab(m_book->Engine())),
      m_search(new SearchTab(*m_book)) {
  setObjectName(QStringLiteral("frmHelp"));
  setWindowTitle(tr("MR4500X Help"));
  setContextMenuPolicy(Qt::NoContextMenu); // it would offer to hide the toolbar
  BuildTabs();
  BuildToolbar();

  auto* const reading = new QWidget;
  auto* const column = new QVBoxLayout(reading);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(m_page);
  column->addWidget(m_findBar);
  auto* const halves = new QSplitter;
  halves->setChildrenCollapsible(false);
  halves->addWidget(m_tabs);
  halves->addWidget(reading);
  halves->setStretchFactor(1, 1);
  halves->setSizes({TabsWidth, StartSize.width() - TabsWidth});
  setCentralWidget(halves);
  resize(StartSize.boundedTo(screen()->availableSize()));
}

// The engine's own widgets have to go before the engine.
HelpWindow::~HelpWindow() {
  delete takeCentralWidget();
}

void HelpWindow::BuildTabs() {
  m_tabs->setObjectName(QStringLiteral("tabHelp"));
  m_contents->setObjectName(QStringLiteral("treeContents"));
  m_contents->setAccessibleName(tr("Contents"));
  m_tabs->addTab(m_contents, tr("&Contents"));
  m_tabs->addTab(m_index, tr("&Index"));
  m_tabs->addTab(m_search, tr("&Search"));
  const auto open = [this](const QUrl& url) { OpenPage(url); };
  connect(m_contents, &QHelpContentWidget::linkActivated, this, open);
  connect(m_contents, &QHelpContentWidget::clicked, this, [this](const QModelIndex& index) {
    if (const QHelpContentItem* const item = m_book->Engine().contentModel()->contentItemAt(index))
      OpenPage(item->url());
  });
  connect(m_book->Engine().contentModel(), &QHelpContentModel::contentsCreated, this, [this] {
    m_contents->expandToDepth(0);
    MarkInContents(m_page->source());
  });
  connect(m_index, &IndexTab::Chosen, this, open);
  connect(m_search, &SearchTab::Chosen, this, [this](const QUrl& url, const QString& word) {
    OpenPage(url);
    m_page->FindText(word);
  });
  connect(m_page, &PageView::sourceChanged, this, [this](const QUrl& url) {
    m_home->setEnabled(url != HelpBook::Home());
    MarkInContents(url);
  });
}

void HelpWindow::BuildToolbar() {
  QToolBar* const toolbar = addToolBar(tr("Pages"));
  toolbar->setMovable(false);
  toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  const auto add = [&](QStyle::StandardPixmap icon, const QString& text, const char* name, const QKeySequence& keys) {
    QAction* const action = toolbar->addAction(style()->standardIcon(icon), text);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(text, keys.toString(QKeySequence::NativeText)));
    return action;
  };
  QAction* const back = add(QStyle::SP_ArrowBack, tr("Back"), "actBack", QKeySequence(Qt::ALT | Qt::Key_Left));
  QAction* const forward =
      add(QStyle::SP_ArrowForward, tr("Forward"), "actForward", QKeySequence(Qt::ALT | Qt::Key_Right));
  m_home = add(QStyle::SP_DirHomeIcon, tr("Home"), "actHome", QKeySequence(Qt::ALT | Qt::Key_Home));
  toolbar->addSeparator();
  QAction* const find = add(QStyle::SP_FileDialogContentsView, tr("Find in page"), "actFind", QKeySequence::Find);
  connect(back, &QAction::triggered, m_page, &PageView::backward);
  connect(forward, &QAction::triggered, m_page, &PageView::forward);
  connect(m_home, &QAction::triggered, this, [this] { OpenPage(HelpBook::Home()); });
  connect(find, &QAction::triggered, m_findBar, &FindBar::Start);
  connect(m_page, &PageView::backwardAvailable, back, &QAction::setEnabled);
  connect(m_page, &PageView::forwardAvailable, forward, &QAction::setEnabled);
  back->setEnabled(false);
  forward->setEnabled(false);
}

void HelpWindow::OpenPage(const QUrl& url) {
  m_page->setSource(url);
}

// A page that was reached in another way is marked in the tree as well.
void HelpWindow::MarkInContents(const QUrl& url) {
  const QModelIndex index = m_contents->indexOf(url.adjusted(QUrl::RemoveFragment));
  if (index.isValid()) m_contents->setCurrentIndex(index);
}

void HelpWindow::ShowContents() {
  m_tabs->setCurrentWidget(m_contents);
  OpenPage(HelpBook::Home());
  m_contents->setFocus();
  Raise();
}

void HelpWindow::ShowIndex() {
  if (m_page->source().isEmpty()) OpenPage(HelpBook::Home());
  m_tabs->setCurrentWidget(m_index);
  m_index->Start();
  Raise();
}

void HelpWindow::Raise() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QMainWindow::keyPressEvent(event);
}

void HelpWindow::closeEvent(QCloseEvent* event) {
  QMainWindow::closeEvent(event);
  emit Closed();
}

} // namespace mr4500x
