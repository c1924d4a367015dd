#include "sql_failure.h"

#include <QString>

#include <algorithm>
#include <array>

namespace mr4500x {
namespace {

constexpr SqlFailureWords Unknown = {SqlFailure::Other, "The database does not answer."},
                          IsBusy = {SqlFailure::Busy, "Another bench is using the journal."},
                          IsDouble = {SqlFailure::Double, "The journal already has this entry."},
                          IsFull = {SqlFailure::Other, "The disk of the journal is full."},
                          IsReadOnly = {SqlFailure::Other, "The journal is write-protected."},
                          NoRights = {SqlFailure::Other, "The server does not give this user the rights."};

struct Case {
  const char* sign;
  SqlFailureWords words;
};
constexpr std::array ServerCodes = {
    Case{"55P03", IsBusy}, Case{"40P01", IsBusy},   Case{"40001", IsBusy},     Case{"23505", IsDouble},
    Case{"53100", IsFull}, Case{"42501", NoRights}, Case{"25006", IsReadOnly},
};
// An attempt to connect has no code.
constexpr std::array ServerTexts = {
    Case{"no password supplied", {SqlFailure::Other, "The server needs a password; see the manual on ~/.pgpass."}},
    Case{"authentication failed", {SqlFailure::Other, "The server refuses the user or the password."}},
    Case{"role \"", {SqlFailure::Other, "The server refuses the user or the password."}},
    Case{"no pg_hba.conf entry", {SqlFailure::Other, "The server refuses this computer or this user."}},
    Case{"database \"", {SqlFailure::Other, "The server has no database of this name."}},
    Case{"definition of service", {SqlFailure::Other, "The service is not in the user's list of services."}},
    Case{"connection option", {SqlFailure::Other, "The address has an unusable parameter."}},
    Case{"sslmode value", {SqlFailure::Other, "The address has an unusable parameter."}},
    Case{"not support SSL", {SqlFailure::Other, "The server has no encryption, which the address requires."}},
    Case{"translate host name", {SqlFailure::Other, "The name of the server is unknown."}},
};
// SQLite's result codes. Only their last byte is used.
constexpr int Busy = 5, Locked = 6, ReadOnly = 8, Corrupt = 11, Full = 13, CanNotOpen = 14, Constraint = 19,
              NoDatabase = 26;

} // namespace

SqlFailureWords WordsFor(const QSqlError& error, bool isServer) {
  if (isServer) {
    const QString code = error.nativeErrorCode(), text = error.databaseText();
    for (const auto& [sign, words] : ServerCodes)
      if (code == QLatin1String(sign)) return words;
    for (const auto& [sign, words] : ServerTexts)
      if (code.isEmpty() && text.contains(QLatin1String(sign))) return words;
    return Unknown;
  }
  switch (error.nativeErrorCode().toInt() & 0xFF) {
  case Busy:
  case Locked:
    return IsBusy;
  case ReadOnly:
    return IsReadOnly;
  case Full:
    return IsFull;
  case Corrupt:
    return {SqlFailure::Other, "The journal is damaged."};
  case CanNotOpen:
    return {SqlFailure::Other, "The file of the journal can't be opened."};
  case Constraint:
    return IsDouble;
  case NoDatabase:
    return {SqlFailure::Other, "The file is not a journal."};
  default:
    return Unknown;
  }
}

} // namespace mr4500x
