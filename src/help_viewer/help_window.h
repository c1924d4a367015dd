// The window of the help: contents, index and search beside a page.
#pragma once

#include "help_book.h"

#include <QMainWindow>

#include <functional>
#include <memory>

class QAction;
class QHelpContentWidget;
class QTabWidget;

namespace mr4500x {

class FindBar;
class IndexTab;
class PageView;
class SearchTab;

class HelpWindow final : public QMainWindow {
  Q_OBJECT

public:
  // An open book; links that leave it go to `openLink`.
  HelpWindow(std::unique_ptr<HelpBook> book, std::function<void(const QUrl&)> openLink);
  ~HelpWindow() override;

  // Each also raises the window.
  void ShowContents();
  void ShowIndex();

signals:
  void Closed();

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

private:
  void BuildTabs();
  void BuildToolbar();
  void OpenPage(const QUrl& url);
  void MarkInContents(const QUrl& url);
  void Raise();

  std::unique_ptr<HelpBook> m_book;
  PageView* m_page;
  FindBar* m_findBar;
  QTabWidget* m_tabs;
  QHelpContentWidget* m_contents;
  IndexTab* m_index;
  SearchTab* m_search;
  QAction* m_home = nullptr;
};

} // namespace mr4500x
