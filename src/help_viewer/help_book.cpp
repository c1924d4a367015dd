// The engine wants a catalogue file beside the help file. Filling a new one takes a few milliseconds, so each viewer
// has one of its own for its lifetime: there is none to be shared, to be out of date or to be damaged.
#include "help_book.h"

#include <QDir>
#include <QFileInfo>
#include <QHelpEngine>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace mr4500x {
namespace {

constexpr char Namespace[] = "mr4500x";
constexpr char Scheme[] = "qthelp";

} // namespace

HelpBook::HelpBook() = default;
HelpBook::~HelpBook() = default;

QUrl HelpBook::Home() {
  return QUrl(QStringLiteral("qthelp://mr4500x/help/index.html"));
}

// The user's run-time folder lies in memory; where it is full or missing, another folder does as well.
bool HelpBook::PrepareCatalogue() {
  const QString places[] = {qEnvironmentVariable("XDG_RUNTIME_DIR"), QDir::tempPath(),
                            QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)};
  for (const QString& place : places) {
    if (place.isEmpty() || !QDir().mkpath(place)) continue;
    auto folder = std::make_unique<QTemporaryDir>(QDir(place).canonicalPath() + QStringLiteral("/MR4500X-help-XXXXXX"));
    if (!folder->isValid()) continue;
    auto engine = std::make_unique<QHelpEngine>(folder->filePath(QStringLiteral("catalogue.qhc")));
    engine->setReadOnly(false);
    if (!engine->setupData()) continue;
    m_engine = std::move(engine);
    m_folder = std::move(folder);
    return true;
  }
  return false;
}

BookOutcome HelpBook::Open(const QString& file) {
  // The catalogue keeps a relative path, which leads astray where a link is part of it.
  const QString path = QFileInfo(file).canonicalFilePath();
  if (path.isEmpty()) return BookOutcome::Missing;
  if (!QFileInfo(path).isFile()) return BookOutcome::Damaged; // a pipe would never be read to its end
  if (QHelpEngineCore::namespaceName(path) != QLatin1String(Namespace)) return BookOutcome::Damaged;
  if (!PrepareCatalogue()) return BookOutcome::NoRoom;
  const bool isKnown = m_engine->registerDocumentation(path) && m_engine->setupData();
  return isKnown && !Content(Home()).isEmpty() ? BookOutcome::Opened : BookOutcome::Damaged;
}

QList<QUrl> HelpBook::Pages() const {
  return m_engine->files(QLatin1String(Namespace), QString(), QStringLiteral("html"));
}

QByteArray HelpBook::Content(const QUrl& url) const {
  if (url.scheme() != QLatin1String(Scheme)) return {};
  return m_engine->fileData(url.adjusted(QUrl::RemoveFragment));
}

QString BookMessage(BookOutcome outcome, const QString& file) {
  switch (outcome) {
  case BookOutcome::Missing:
    return QString::fromUtf8("The help file %1 is missing.").arg(file);
  case BookOutcome::Damaged:
    return QString::fromUtf8("The help file %1 is damaged or can't be read.").arg(file);
  case BookOutcome::NoRoom:
    return QString::fromUtf8("The help file %1 can't be opened: there is no room for a temporary file.").arg(file);
  case BookOutcome::Opened:
    break;
  }
  return {};
}

} // namespace mr4500x
