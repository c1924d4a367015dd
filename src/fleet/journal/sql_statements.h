// The journal's tables, and where the two databases differ.
#pragma once

#include <QString>

#include <span>

namespace mr4500x {

struct Dialect {
  const char* driver;                     // Qt's name
  const char* package;                    // that has it, in Debian
  std::span<const char* const> onConnect; // may fail
  const char* begin;
  const char* lockSchema;
  const char* now;   // {now}: seconds by the database's clock; nullptr: this machine's, which never jumps
  const char* lock;  // {lock}: keeps a selected row from others until the end of the transaction
  const char* skip;  // {skip}: the same, and passes over rows that others have locked
  bool takesSeveral; // statements at once, in one round trip
};
extern const Dialect Sqlite, PostgreSql;

// Each version's statements make it from the one before. A version that was released is never changed.
extern const std::span<const std::span<const char* const>> SchemaVersions;

// The statement with what stands in braces filled in. {isSilent}: the row's bench has not been heard of lately.
// {isLost}: an attempt that such a bench has begun.
[[nodiscard]] QString StatementFor(const Dialect& dialect, const QString& statement);

} // namespace mr4500x
