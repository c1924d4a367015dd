#include "qt_help_viewer.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace mr4500x {
namespace {

constexpr char HelpTitle[] = "Help";
constexpr char MissingText[] = "The help file %1 is missing.";
constexpr char NoViewerText[] = "The help file %1 can't be shown: there is no browser.";

} // namespace

QtHelpViewer::QtHelpViewer(MessageView& messages, const std::string& helpFile)
    : m_messages(messages), m_folder(QFileInfo(QString::fromStdString(helpFile)).path().toStdString() + "/manual/") {}

void QtHelpViewer::OpenContents() {
  OpenPage("contents.html");
}
void QtHelpViewer::OpenIndex() {
  OpenPage("keywords.html");
}

// Windows starts a browser with a file, but not with a place in it. The manual has a file for each place, which leads
// there.
void QtHelpViewer::OpenPage(const std::string& page) {
  QString file = QString::fromStdString(m_folder + page);
  if (file.contains('#')) file = file.replace(QLatin1String(".html#"), QLatin1String("-")) + QLatin1String(".html");
  const bool exists = QFileInfo::exists(file);
  if (exists && QDesktopServices::openUrl(QUrl::fromLocalFile(file))) return;
  const QString text = QString::fromUtf8(exists ? NoViewerText : MissingText).arg(QDir::toNativeSeparators(file));
  m_messages.Show(MessageIcon::Exclamation, HelpTitle, text.toStdString(), MessageButtons::Ok);
}

} // namespace mr4500x
