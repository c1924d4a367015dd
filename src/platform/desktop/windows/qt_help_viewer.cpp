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
  Open(QStringLiteral("contents.html"));
}
void QtHelpViewer::OpenIndex() {
  Open(QStringLiteral("keywords.html"));
}

void QtHelpViewer::OpenPage(const std::string& page) {
  Open(QString::fromStdString(page));
}

void QtHelpViewer::Open(const QString& page) {
  const QString file = QString::fromStdString(m_folder) + page.section('#', 0, 0);
  const bool exists = QFileInfo::exists(file);
  QUrl address = QUrl::fromLocalFile(file);
  address.setFragment(page.section('#', 1));
  if (exists && QDesktopServices::openUrl(address)) return;
  const QString text = QString::fromUtf8(exists ? NoViewerText : MissingText).arg(QDir::toNativeSeparators(file));
  m_messages.Show(MessageIcon::Exclamation, HelpTitle, text.toStdString(), MessageButtons::Ok);
}

} // namespace mr4500x
