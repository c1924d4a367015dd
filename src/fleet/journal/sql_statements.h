// The journal's tables, and the differences between the two databases.
#pragma once

#include <QString>

#include <span>

namespace mr4500x {

struct Dialect {
  const char* driver;                     // Qt's name
  const char* package;                    // where it comes from
  std::span<const char* const> onConnect; // may fail
  const char* begin;
  const char* lockSchema;
  const char* tables; // their names
  const char* now;    // {now}: seconds by the database's clock; nullptr: this machine's, which never jumps
  const char* lock;   // {lock}: keeps a selected row from others until the end of the transaction
  const char* skip;   // {skip}: like {lock}, but skips rows that others have locked
  bool takesSeveral;  // statements at once, in one round trip
};
extern const Dialect Sqlite, PostgreSql;

// The statements of each version upgrade the previous one. A released version is never changed.
extern const std::span<const std::span<const char* const>> SchemaVersions;

// The statement with the parts in braces filled in. {isSilent}: the row's bench has not reported recently. {isLost}: an
// attempt that such a bench has begun.
[[nodiscard]] QString StatementFor(const Dialect& dialect, const QString& statement);

} // namespace mr4500x
