#include "qt_help_viewer.h"

#include "child_process.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QtEndian>

#include <utility>

namespace mr4500x {
namespace {

constexpr char HelpTitle[] = "Help";
constexpr char MissingText[] = "The help file %1 is missing.";
constexpr char DamagedText[] = "The help file %1 is damaged or can't be read.";
constexpr char NoViewerText[] = "The help viewer is missing. Please install the package assistant-qt6.";
constexpr char NotStartedText[] = "The help viewer %1 can't be started: %2";
constexpr char FailedText[] = "The help viewer %1 has failed: %2";

constexpr char ContentsCommands[] = "show contents;expandToc 1;setSource qthelp://mr4500x/help/index.html\n";
constexpr char IndexCommands[] = "show index\n";

constexpr QSize StartSize(1000, 700);
constexpr int EndMilliseconds = 1000; // granted to Assistant to exit

// The build puts a checksum beside the help file. A help file that was copied without it counts as undamaged.
bool AgreesWithChecksum(QFile& file) {
  QFile checksum(file.fileName() + QStringLiteral(".sha256"));
  if (!checksum.open(QIODevice::ReadOnly)) return true;
  QCryptographicHash hash(QCryptographicHash::Sha256);
  return file.seek(0) && hash.addData(&file) && checksum.readLine().startsWith(hash.result().toHex());
}

// The help file is an SQLite database. Assistant shows an empty window for a truncated one.
bool IsWhole(const QString& path) {
  constexpr char Magic[] = "SQLite format 3";
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return false; // a pipe would block
  const QByteArray header = file.read(100);
  if (header.size() < 100 || !header.startsWith(Magic)) return false;
  const qint64 pageSize = qFromBigEndian<quint16>(header.constData() + 16);
  const qint64 pageCount = qFromBigEndian<quint32>(header.constData() + 28);
  return file.size() == pageSize * pageCount && AgreesWithChecksum(file);
}

// Debian installs Assistant with Qt's tools, outside of PATH.
QString FindProgram(const QString& name) {
  const QString withQt = QStandardPaths::findExecutable(name, {QLibraryInfo::path(QLibraryInfo::BinariesPath)});
  return withQt.isEmpty() ? QStandardPaths::findExecutable(name) : withQt;
}

// Assistant's default window is too narrow for the manual's tables.
QString StartGeometry() {
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  QRect place({}, StartSize.boundedTo(room.size()));
  place.moveCenter(room.center());
  return QStringLiteral("%1x%2+%3+%4").arg(place.width()).arg(place.height()).arg(place.x()).arg(place.y());
}

} // namespace

QtHelpViewer::QtHelpViewer(MessageView& messages, std::string helpFile, std::string assistant)
    : m_messages(messages), m_helpFile(std::move(helpFile)), m_assistant(std::move(assistant)) {}

QtHelpViewer::~QtHelpViewer() {
  if (!IsRunning()) return;
  m_process->terminate();
  m_process->waitForFinished(EndMilliseconds); // after which QProcess kills it
}

bool QtHelpViewer::IsRunning() const {
  return m_process && m_process->state() != QProcess::NotRunning;
}
void QtHelpViewer::OpenContents() {
  Request(ContentsCommands);
}
void QtHelpViewer::OpenIndex() {
  Request(IndexCommands);
}
void QtHelpViewer::OpenPage(const std::string& page) {
  Request("show contents;setSource qthelp://mr4500x/help/" + QByteArray::fromStdString(page) + ";syncContents\n");
}
void QtHelpViewer::Request(const QByteArray& commands) {
  if (IsRunning() || Start()) m_process->write(commands);
}

bool QtHelpViewer::Start() {
  // When Assistant fails it only writes to standard error and shows no window, so the next request reports it.
  if (const auto failed = std::exchange(m_process, nullptr);
      failed && failed->exitStatus() == QProcess::NormalExit && failed->exitCode() != 0) {
    const QString reason = QString::fromLocal8Bit(failed->readAllStandardError()).trimmed().section('\n', -1);
    Report(QString::fromUtf8(FailedText).arg(failed->program(), reason));
    return false;
  }
  const QFileInfo helpFile(QString::fromStdString(m_helpFile));
  // Assistant permanently removes a missing help file from its collection.
  if (!helpFile.exists()) return Report(QString::fromUtf8(MissingText).arg(helpFile.filePath())), false;
  if (!IsWhole(helpFile.filePath())) return Report(QString::fromUtf8(DamagedText).arg(helpFile.filePath())), false;
  const QString assistant = FindProgram(QString::fromStdString(m_assistant));
  if (assistant.isEmpty()) return Report(QString::fromUtf8(NoViewerText)), false;

  m_process = std::make_unique<QProcess>();
  m_process->setStandardOutputFile(QProcess::nullDevice());
  EndWithProgram(*m_process);
  const QString collection = helpFile.path() + '/' + helpFile.completeBaseName() + QStringLiteral(".qhc");
  m_process->start(assistant,
                   {"-collectionFile", collection, "-enableRemoteControl", "-qwindowgeometry", StartGeometry()});
  if (m_process->waitForStarted()) return true;
  Report(QString::fromUtf8(NotStartedText).arg(assistant, m_process->errorString()));
  m_process.reset();
  return false;
}

void QtHelpViewer::Report(const QString& text) {
  m_messages.Show(MessageIcon::Exclamation, HelpTitle, text.toStdString(), MessageButtons::Ok);
}

} // namespace mr4500x
