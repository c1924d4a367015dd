// Our own messages for the errors of a database.
#pragma once

#include <QSqlError>

#include <cstdint>

namespace mr4500x {

enum class SqlFailure : std::uint8_t {
  Busy,   // another connection holds a lock
  Double, // the entry exists
  Other,
};

struct SqlFailureWords {
  SqlFailure failure;
  const char* words;
};
[[nodiscard]] SqlFailureWords WordsFor(const QSqlError& error, bool isServer);

} // namespace mr4500x
