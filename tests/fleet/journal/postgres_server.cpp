#include "postgres_server.h"

#include <QDeadlineTimer>
#include <QDir>

#include <csignal>

#include <grp.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace mr4500x {
namespace {

constexpr char Folders[] = "/usr/lib/postgresql"; // Debian's, one for each version

QString Program(const QString& name) {
  const QStringList versions = QDir(Folders).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
  return versions.empty() ? QString() : QString("%1/%2/bin/%3").arg(Folders, versions.last(), name);
}

// The server refuses to run as root. It ends with its test, however that ends.
void Prepare(QProcess& process, const QString& folder) {
  const passwd* const user = geteuid() == 0 ? getpwnam("nobody") : nullptr;
  const uid_t userId = user != nullptr ? user->pw_uid : geteuid();
  const gid_t groupId = user != nullptr ? user->pw_gid : getegid();
  const bool isRoot = user != nullptr;
  if (isRoot && chown(folder.toLocal8Bit().constData(), userId, groupId) != 0) return;
  process.setWorkingDirectory(folder);
  process.setChildProcessModifier([=] {
    if (isRoot && (setgroups(0, nullptr) != 0 || setgid(groupId) != 0 || setuid(userId) != 0)) _exit(1);
    prctl(PR_SET_PDEATHSIG, SIGQUIT);
  });
}

} // namespace

PostgresServer::PostgresServer() {
  QProcess maker;
  Prepare(maker, Folder());
  maker.start(Program("initdb"), {"--pgdata=" + Folder() + "/data", "--username=bench", "--auth=trust", "--no-sync",
                                  "--wal-segsize=1", "--locale=C", "--encoding=UTF8"});
  maker.waitForFinished();
  Prepare(m_server, Folder());
  m_server.setStandardErrorFile(Folder() + "/log");
}

PostgresServer::~PostgresServer() {
  Crash();
}

bool PostgresServer::IsInstalled() {
  return QFile::exists(Program("postgres"));
}

bool PostgresServer::Start() {
  m_server.start(Program("postgres"), {"-D", Folder() + "/data", "-k", Folder(), "-p", "5433", "-c",
                                       "listen_addresses=", "-c", "log_statement=all", "-F"});
  const QDeadlineTimer deadline(30000);
  while (m_server.state() != QProcess::NotRunning && !deadline.hasExpired())
    if (QProcess::execute(Program("pg_isready"), {"-q", "-p", "5433", "-h", Folder()}) == 0) return true;
  return false;
}

void PostgresServer::Crash() {
  if (m_server.state() == QProcess::NotRunning) return;
  kill(static_cast<pid_t>(m_server.processId()), SIGQUIT);
  m_server.waitForFinished();
}

// Each of its processes is in a session of its own.
void PostgresServer::Signal(const char* signal) {
  const QString server = QString::number(m_server.processId());
  QProcess::execute("kill", {signal, server});
  QProcess::execute("pkill", {signal, "-P", server});
}

int PostgresServer::Statements() const {
  QFile log(Folder() + "/log");
  return log.open(QFile::ReadOnly) ? static_cast<int>(log.readAll().count("LOG:  statement: ")) : -1;
}

} // namespace mr4500x
