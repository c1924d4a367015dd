// The connection to the database of a journal.
#pragma once

#include "sql_failure.h"
#include "sql_journal.h"
#include "sql_statements.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mr4500x {

using Values = std::vector<std::pair<QString, QVariant>>; // for the names in a statement

// False and nullopt are failures, and Error has the reason. A failure gives up the connection, and with it the
// transaction. The next Open connects again.
class SqlConnection {
public:
  // `mayCommit`: false once no one waits any more for what is being done.
  SqlConnection(const std::string& address, JournalUse use, std::function<bool()> mayCommit);
  ~SqlConnection();
  SqlConnection(const SqlConnection&) = delete;
  SqlConnection& operator=(const SqlConnection&) = delete;

  // Connects if necessary and brings the schema up to date.
  [[nodiscard]] bool Open();
  [[nodiscard]] bool InTransaction(const std::function<bool()>& steps);
  // One statement; what stands in braces is filled in, and the values that it names.
  [[nodiscard]] std::optional<QSqlQuery> Run(const QString& statement, const Values& values = {});
  // In one round trip. The result is the last one's.
  [[nodiscard]] std::optional<QSqlQuery> RunAll(const QStringList& statements, const Values& values);
  [[nodiscard]] std::optional<int> Change(const QString& statement, const Values& values); // how many rows
  [[nodiscard]] bool IsEmpty() const { return m_isEmpty; } // it is open to list a database without any tables
  [[nodiscard]] const std::string& Error() const { return m_error; }
  [[nodiscard]] const std::string& Details() const { return m_details; } // the database's own words
  // Another connection held what the last call needed, or has made the row that it made.
  [[nodiscard]] bool IsBusy() const { return m_failure == SqlFailure::Busy; }
  [[nodiscard]] bool IsDouble() const { return m_failure == SqlFailure::Double; }

private:
  struct FileId {
    std::uint64_t device, number;
    bool operator==(const FileId&) const = default;
  };

  [[nodiscard]] QSqlDatabase Database() const { return QSqlDatabase::database(m_name, false); }
  void UseServer(QSqlDatabase& database);
  [[nodiscard]] bool OpenDatabase();
  [[nodiscard]] bool CheckFile();
  [[nodiscard]] bool UpgradeSchema();
  [[nodiscard]] std::optional<int> SchemaVersion();
  [[nodiscard]] bool UpgradeOnce();
  [[nodiscard]] std::optional<QSqlQuery> Execute(const QString& sql, int results);
  bool Fail(const QString& error);
  bool Fail(const QSqlError& error);

  const std::string m_address, m_file; // the file is "" for a server
  const JournalUse m_use;
  const QString m_name;
  const Dialect& m_dialect;
  const std::function<bool()> m_mayCommit;
  std::optional<FileId> m_fileId; // of the file that was opened
  std::string m_error, m_details;
  SqlFailure m_failure = SqlFailure::Other;
  bool m_isEmpty = false;
};

} // namespace mr4500x
