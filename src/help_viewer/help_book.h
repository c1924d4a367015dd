// The help file, opened. What its pages look like and how they are chosen is left to the window.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <memory>

class QHelpEngine;
class QTemporaryDir;

namespace mr4500x {

enum class BookOutcome { Opened, Missing, Damaged, NoRoom };

class HelpBook {
public:
  HelpBook();
  ~HelpBook();
  Q_DISABLE_COPY_MOVE(HelpBook)

  [[nodiscard]] BookOutcome Open(const QString& file);

  [[nodiscard]] static QUrl Home();
  [[nodiscard]] QHelpEngine& Engine() { return *m_engine; } // once the book is open
  [[nodiscard]] QList<QUrl> Pages() const;
  // A page, style sheet or picture of the book; empty for everything else.
  [[nodiscard]] QByteArray Content(const QUrl& url) const;

private:
  [[nodiscard]] bool PrepareCatalogue();

  std::unique_ptr<QTemporaryDir> m_folder; // of the engine's catalogue; it goes after the engine
  std::unique_ptr<QHelpEngine> m_engine;
};

// What the user is told when the book could not be opened.
[[nodiscard]] QString BookMessage(BookOutcome outcome, const QString& file);

} // namespace mr4500x
