// A PostgreSQL server of a test: in a temporary folder, on a local socket only, and as an ordinary user.
#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <string>

namespace mr4500x {

class PostgresServer {
public:
  PostgresServer();
  ~PostgresServer();
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;

  [[nodiscard]] static bool IsInstalled();
  [[nodiscard]] bool Start();       // waits until it answers
  void Crash();                     // no session is ended properly
  void Pause() { Signal("-STOP"); } // holds the connections without answering
  void Resume() { Signal("-CONT"); }
  [[nodiscard]] int Statements() const;                            // the number of statements received so far
  [[nodiscard]] QString Folder() const { return m_folder.path(); } // used as its host name
  [[nodiscard]] std::string Address() const {
    return "postgresql://bench@localhost:5433/postgres?host=" + Folder().toStdString();
  }

private:
  void Signal(const char* signal);

  QTemporaryDir m_folder; // short enough for a socket's path
  QProcess m_server;
};

} // namespace mr4500x
