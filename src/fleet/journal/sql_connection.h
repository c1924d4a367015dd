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

using Values = std::vector<std::pair<QString, QVariant>>; // values for the names in a statement

// False and nullopt mean failure, and Failure has the reason. A failure closes the connection and aborts its
// transaction. The next Open connects again.
class SqlConnection {
public:
  // No statement is executed once `mayContinue` returns false, because the caller no longer waits for the result.
  SqlConnection(const std::string& address, JournalUse use, std::function<bool()> mayContinue);
  SqlConnection(const SqlConnection&) = delete;
  SqlConnection& operator=(const SqlConnection&) = delete;

  // Connects if necessary and brings the schema up to date.
  [[nodiscard]] bool Open();
  [[nodiscard]] bool InTransaction(const std::function<bool()>& steps);
  // Executes one statement after filling in the parts in braces and the named values.
  [[nodiscard]] std::optional<QSqlQuery> Run(const QString& statement, const Values& values = {});
  // Executes several statements in one round trip. Returns the result of the last one.
  [[nodiscard]] std::optional<QSqlQuery> RunAll(const QStringList& statements, const Values& values);
  [[nodiscard]] bool IsEmpty() const { return m_isEmpty; } // opened to list a database without tables
  [[nodiscard]] JournalFailure Failure() const { return {m_error, m_details, m_failure == SqlFailure::Busy}; }
  // Another connection had already made the same row.
  [[nodiscard]] bool IsDouble() const { return m_failure == SqlFailure::Double; }

private:
  struct FileId {
    std::uint64_t device, number;
    bool operator==(const FileId&) const = default;
  };

  void UseServer();
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
  const Dialect& m_dialect;
  const std::function<bool()> m_mayContinue;
  QSqlDatabase m_database;        // invalid without its driver
  std::optional<FileId> m_fileId; // id of the file that was opened
  std::string m_error, m_details;
  SqlFailure m_failure = SqlFailure::Other;
  bool m_isEmpty = false;
};

} // namespace mr4500x
