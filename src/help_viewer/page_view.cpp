#include "page_view.h"

#include "help_book.h"

#include <QImage>

#include <algorithm>
#include <utility>

namespace mr4500x {
namespace {

constexpr int WidestPicture = 660; // as wide as the text is in a new window
constexpr char MakersPage[] = "https://www.calvorne-vtr.example/";

// A picture that is too wide is made smaller here, and smoothly, with all the dots that the screen can show of it.
QImage FittedPicture(const QByteArray& data, qreal dotsPerPixel) {
  QImage picture = QImage::fromData(data);
  if (picture.width() <= WidestPicture) return picture;
  const int dots = std::min(picture.width(), static_cast<int>(WidestPicture * dotsPerPixel));
  picture = picture.scaledToWidth(dots, Qt::SmoothTransformation);
  picture.setDevicePixelRatio(static_cast<qreal>(dots) / WidestPicture);
  return picture;
}

} // namespace

PageView::PageView(const HelpBook& book, std::function<void(const QUrl&)> openLink)
    : m_book(book), m_openLink(std::move(openLink)) {
  setObjectName(QStringLiteral("pageView"));
  setAccessibleName(tr("Help page"));
  document()->setDocumentMargin(fontMetrics().averageCharWidth() * 2);
}

void PageView::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
  if (url == QUrl(QLatin1String(MakersPage)))
    m_openLink(url);
  else if (url.isRelative() || url.scheme() == HelpBook::Home().scheme())
    QTextBrowser::doSetSource(url, type);
}

QVariant PageView::loadResource(int type, const QUrl& name) {
  // Of the page that is being opened, which source() is not yet. All pages lie in one folder.
  const QByteArray content = m_book.Content(HelpBook::Home().resolved(name));
  if (type == QTextDocument::ImageResource) return FittedPicture(content, devicePixelRatioF());
  if (type == QTextDocument::HtmlResource && content.isEmpty())
    return tr("<p>This page can't be read. The help file may be damaged.</p>");
  return content;
}

bool PageView::FindText(const QString& text, bool backwards) {
  const QTextDocument::FindFlags direction = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (find(text, direction)) return true;
  const QTextCursor before = textCursor();
  moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
  if (find(text, direction)) return true;
  setTextCursor(before);
  return false;
}

} // namespace mr4500x
