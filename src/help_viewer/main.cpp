// MR4500X-help FILE: shows the help file. The main program starts it and tells it on its standard input what to show;
// when that input ends, the main program has ended, and so does the viewer.
#include "help_book.h"
#include "help_window.h"
#include "request_input.h"

#include <QApplication>
#include <QDesktopServices>
#include <QIcon>
#include <QLocale>
#include <QMessageBox>

#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace {

using namespace mr4500x;

int Report(const QString& message) {
  QMessageBox box(QMessageBox::Warning, HelpWindow::tr("MR4500X Help"), message, QMessageBox::Ok);
  box.setObjectName(QStringLiteral("messageBox"));
  box.setTextFormat(Qt::PlainText);
  box.exec();
  return 1;
}

void OpenLink(const QUrl& page) {
  QDesktopServices::openUrl(page);
}

// The input is at its end from now on.
void EndInput(int /*signal*/ = 0) {
  const int nothing = open("/dev/null", O_RDONLY);
  if (nothing > STDIN_FILENO) dup2(nothing, STDIN_FILENO);
}

} // namespace

int main(int argc, char** argv) {
  if (fcntl(STDIN_FILENO, F_GETFD) < 0) EndInput(); // before another file gets its number
  for (const int end : {SIGTERM, SIGHUP, SIGINT})
    std::signal(end, EndInput); // so that the catalogue is removed
  const QApplication application(argc, argv);
  QApplication::setDesktopFileName(QStringLiteral("mr4500x")); // whose menu entry and icon a desktop shows
  if (argc != 2) {
    std::fputs("usage: MR4500X-help FILE\n", stderr);
    return 2;
  }
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/help/program.svg")));
  RequestInput requests(STDIN_FILENO);
  // Queued: the input may have ended already, before there is a loop that could be quit.
  QObject::connect(
      &requests, &RequestInput::Ended, &application, [] { QApplication::exit(); }, Qt::QueuedConnection);

  const QString file = QString::fromLocal8Bit(argv[1]);
  auto book = std::make_unique<HelpBook>();
  const BookOutcome outcome = book->Open(file);
  if (outcome != BookOutcome::Opened) return Report(BookMessage(outcome, file));

  HelpWindow window(std::move(book), OpenLink);
  QObject::connect(&window, &HelpWindow::Closed, &QApplication::quit);
  QObject::connect(&requests, &RequestInput::ContentsWanted, &window, &HelpWindow::ShowContents);
  QObject::connect(&requests, &RequestInput::IndexWanted, &window, &HelpWindow::ShowIndex);
  requests.ReadWaiting();
  if (!window.isVisible()) window.ShowContents();
  return QApplication::exec();
}
