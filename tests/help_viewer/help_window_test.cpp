// The window of the help, worked with as a reader does, and the requests of the main program.
#include "help_window.h"

#include "modal_dialog.h"
#include "page_view.h"
#include "request_input.h"

#include <QAction>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

#include <unistd.h>

namespace mr4500x {
namespace {

class HelpWindowTest : public testing::Test {
protected:
  HelpWindowTest() {
    auto book = std::make_unique<HelpBook>();
    EXPECT_EQ(book->Open(TEST_BOOK), BookOutcome::Opened);
    QHelpEngine& engine = book->Engine();
    QSignalSpy contents(engine.contentModel(), &QHelpContentModel::contentsCreated);
    QSignalSpy index(engine.indexModel(), &QHelpIndexModel::indexCreated);
    window = std::make_unique<HelpWindow>(std::move(book), [this](const QUrl& url) { opened.append(url.toString()); });
    window->ShowContents();
    EXPECT_TRUE(!contents.isEmpty() || contents.wait());
    EXPECT_TRUE(!index.isEmpty() || index.wait());
    page = Find<PageView>("pageView");
  }

  template<typename Widget>
  Widget* Find(const char* name) {
    auto* const widget = window->findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  void Ask(const char* field, const QString& text) {
    auto* const edit = Find<QLineEdit>(field);
    edit->setText(text);
    QTest::keyClick(edit, Qt::Key_Return);
  }
  void Open(const char* name) { page->setSource(page->source().resolved(QUrl(QLatin1String(name)))); }
  std::string Page() { return page->source().toString(QUrl::RemoveScheme).mid(15).toStdString(); }
  // Back, Forward and Home: a letter for each that can be used.
  std::string Ways() {
    std::string ways;
    for (const auto* name : {"actBack", "actForward", "actHome"})
      if (Find<QAction>(name)->isEnabled()) ways += name[3];
    return ways;
  }

  QStringList opened; // in the browser
  std::unique_ptr<HelpWindow> window;
  PageView* page = nullptr;
};

TEST_F(HelpWindowTest, GoesBackForwardAndHome) {
  EXPECT_EQ(Ways(), "");
  Open("tones.html#dcs");
  EXPECT_EQ(Page() + " " + Ways(), "tones.html#dcs BH");
  EXPECT_EQ(Find<QHelpContentWidget>("treeContents")->currentIndex().data().toString(), "Tones");
  Find<QAction>("actBack")->trigger();
  EXPECT_EQ(Page() + " " + Ways(), "index.html F");
  Find<QAction>("actForward")->trigger();
  Find<QAction>("actHome")->trigger();
  EXPECT_EQ(Page() + " " + Ways(), "index.html B");
}

TEST_F(HelpWindowTest, LeavesTheHelpForTheMakersPageOnly) {
  for (const char* url : {"https://www.calvorne-vtr.example/", "https://elsewhere.example/", "file:///etc/hostname"})
    page->setSource(QUrl(QLatin1String(url)));
  EXPECT_EQ(opened, QStringList{"https://www.calvorne-vtr.example/"});
  EXPECT_EQ(Page(), "index.html");
  Open("missing.html");
  EXPECT_TRUE(page->toPlainText().contains("can't be read"));
}

TEST_F(HelpWindowTest, ShowsPicturesOfTheHelpFileNoWiderThanThePage) {
  const auto width = [&](const char* url) {
    const auto picture = page->loadResource(QTextDocument::ImageResource, QUrl(QLatin1String(url))).value<QImage>();
    return picture.deviceIndependentSize().width();
  };
  EXPECT_EQ(width("pictures/reading.png"), 310);
  EXPECT_EQ(width("pictures/channels.png"), 660);
  EXPECT_EQ(width("file://" TEST_PICTURE), 0);
}

TEST_F(HelpWindowTest, FindsKeywords) {
  window->ShowIndex();
  auto* const keyword = Find<QLineEdit>("txtKeyword");
  auto* const list = Find<QHelpIndexWidget>("lstIndex");
  EXPECT_EQ(window->focusWidget(), keyword);
  EXPECT_EQ(list->model()->rowCount(), 3);
  Ask("txtKeyword", "look");
  EXPECT_EQ(Page(), "scan.html");
  WhenDialogOpens([](QWidget* dialog) {
    auto* const choice = qobject_cast<QInputDialog*>(dialog);
    EXPECT_EQ(choice->comboBoxItems().size(), 2);
    choice->setTextValue("Tones");
    choice->accept();
  });
  Ask("txtKeyword", "squ");
  EXPECT_EQ(Page(), "tones.html#dcs");

  window->ShowIndex(); // once more: from the start
  EXPECT_EQ(keyword->text(), "");
  EXPECT_EQ(list->model()->rowCount(), 3);
  EXPECT_EQ(Page(), "tones.html#dcs");
}

TEST_F(HelpWindowTest, SearchesTheTextOfAllPages) {
  Find<QTabWidget>("tabHelp")->setCurrentIndex(2);
  auto* const results = Find<QListWidget>("lstResults");
  Ask("txtSearch", "squelch");
  ASSERT_EQ(results->count(), 2);
  EXPECT_EQ(results->item(0)->text(), "Scan");
  EXPECT_EQ(Find<QLabel>("lblSummary")->text(), "Pages found: 2");
  QTest::mouseClick(results->viewport(), Qt::LeftButton, {}, results->visualItemRect(results->item(1)).center());
  EXPECT_EQ(Page(), "tones.html");
  EXPECT_EQ(page->textCursor().selectedText(), "squelch");
  Ask("txtSearch", "nowhere");
  EXPECT_EQ(results->count(), 0);
}

TEST_F(HelpWindowTest, DoesWhatTheMainProgramAsksFor) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  RequestInput requests(ends[0]);
  QObject::connect(&requests, &RequestInput::ContentsWanted, window.get(), &HelpWindow::ShowContents);
  QObject::connect(&requests, &RequestInput::IndexWanted, window.get(), &HelpWindow::ShowIndex);
  QSignalSpy ended(&requests, &RequestInput::Ended);
  auto* const tabs = Find<QTabWidget>("tabHelp");
  const auto write = [&](const std::string& text) {
    EXPECT_EQ(::write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    requests.ReadWaiting();
  };
  const struct {
    const char* text;
    int tab;
  } cases[] = {{"ind", 0}, {"ex\n", 1}, {"index\ncontents\n", 0}, {"unknown\n", 0}, {"contents\nindex\ncon", 1}};
  for (const auto& [text, tab] : cases) {
    write(text);
    EXPECT_EQ(tabs->currentIndex(), tab) << text;
  }
  window->showMinimized();
  write("tents\n");
  EXPECT_FALSE(window->isMinimized());
  EXPECT_TRUE(ended.isEmpty());
  close(ends[1]);
  EXPECT_TRUE(ended.wait());
  EXPECT_EQ(ended.count(), 1);
  close(ends[0]);
}

} // namespace
} // namespace mr4500x
