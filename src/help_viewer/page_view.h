// A page of the help on the screen. Everything on it comes from the help file; nothing is fetched from elsewhere.
#pragma once

#include <QTextBrowser>

#include <functional>

namespace mr4500x {

class HelpBook;

class PageView final : public QTextBrowser {
  Q_OBJECT

public:
  // Links that leave the help go to `openLink`.
  PageView(const HelpBook& book, std::function<void(const QUrl&)> openLink);

  // Marks the next place with the text, from the top again after the last one. False when there is none.
  bool FindText(const QString& text, bool backwards = false);

  QVariant loadResource(int type, const QUrl& name) override;

protected:
  void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;

private:
  const HelpBook& m_book;
  std::function<void(const QUrl&)> m_openLink;
};

} // namespace mr4500x
