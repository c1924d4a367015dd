// The connection to the database of a journal.
#pragma once

#include "sql_journal.h"
#include "sql_statements.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
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
  SqlConnection(const std::string& address, JournalUse use);
  ~SqlConnection();
  SqlConnection(const SqlConnection&) = delete;
  SqlConnection& operator=(const SqlConnection&) = delete;

  // Connects if necessary and brings the schema up to date.
  [[nodiscard]] bool Open();
  [[nodiscard]] bool InTransaction(const std::function<bool()>& steps);
  // One statement; what stands in braces is filled in, and the values that it names.
  [[nodiscard]] std::optional<QSqlQuery> Run(const QString& statement, const Values& values = {});
  [[nodiscard]] std::optional<int> Change(const QString& statement, const Values& values); // how many rows
  [[nodiscard]] const std::string& Error() const { return m_error; }
  [[nodiscard]] const QString& Name() const { return m_name; } // unlike any other connection's

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
  bool Fail(const QString& error);

  const std::string m_address, m_file; // the file is "" for a server
  const JournalUse m_use;
  const QString m_name;
  const Dialect& m_dialect;
  std::optional<FileId> m_fileId; // of the file that was opened
  std::string m_error;
};

} // namespace mr4500x
