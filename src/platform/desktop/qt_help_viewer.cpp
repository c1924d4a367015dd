#include "qt_help_viewer.h"

#include <QProcess>

#include <utility>

namespace mr4500x {
namespace {

constexpr char HelpTitle[] = "Help";
constexpr char NotStartedText[] = "The help viewer %1 can't be started: %2";

constexpr int EndMilliseconds = 1000; // for the viewer to end by itself

} // namespace

QtHelpViewer::QtHelpViewer(MessageView& messages, std::string viewerProgram, std::string helpFile)
    : m_messages(messages), m_viewerProgram(std::move(viewerProgram)), m_helpFile(std::move(helpFile)) {}

QtHelpViewer::~QtHelpViewer() {
  if (!IsRunning()) return;
  m_viewer->closeWriteChannel();
  if (m_viewer->waitForFinished(EndMilliseconds)) return;
  m_viewer->kill();
  m_viewer->waitForFinished(EndMilliseconds);
}

bool QtHelpViewer::IsRunning() const {
  return m_viewer && m_viewer->state() != QProcess::NotRunning;
}

void QtHelpViewer::Request(const char* line) {
  if (IsRunning() || Start()) m_viewer->write(line);
}

bool QtHelpViewer::Start() {
  m_viewer = std::make_unique<QProcess>();
  m_viewer->setProcessChannelMode(QProcess::ForwardedChannels);
  m_viewer->start(QString::fromStdString(m_viewerProgram), {QString::fromStdString(m_helpFile)});
  if (m_viewer->waitForStarted()) return true;
  const QString text =
      QString::fromUtf8(NotStartedText).arg(QString::fromStdString(m_viewerProgram), m_viewer->errorString());
  m_messages.Show(MessageIcon::Exclamation, HelpTitle, text.toStdString(), MessageButtons::Ok);
  return false;
}

} // namespace mr4500x
