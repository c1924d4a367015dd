// The fleet's journal in a database, and the keys for its entries.
#pragma once

#include "journal.h"

#include <memory>
#include <string>
#include <string_view>

namespace mr4500x {

enum class JournalUse : std::uint8_t {
  Enter, // creates a missing journal
  List,  // changes nothing
};

// "PATH" or "sqlite:PATH" is a file, "postgresql://user@host:port/database?name=value" a server's database; the names
// are libpq's. Nothing is opened yet. Each call connects if necessary, so the database may be unavailable for a while.
// A file must stay the one that was opened first. The journal belongs to the thread that creates it, with a
// QCoreApplication.
[[nodiscard]] std::unique_ptr<Journal> OpenJournal(const std::string& address, JournalUse use);
// Why a bench could not enter anything in a server's journal, without an error if it could. Changes nothing.
[[nodiscard]] JournalFailure WhyServerNotEntered(const std::string& address);
// The file at an address, "" for a server's.
[[nodiscard]] std::string FileOfJournal(const std::string& address);

[[nodiscard]] std::string Sha256Of(std::string_view bytes); // in hexadecimal digits
[[nodiscard]] std::string NewAttemptKey();

} // namespace mr4500x
