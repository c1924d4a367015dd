// The journal of a plan on paper.
#pragma once

#include "fleet_session.h"

#include <QString>

class QPrinter;

namespace mr4500x {

// A line for each attempt, under a heading with the counts and the rows that are not done. False if the printer does
// not take it.
[[nodiscard]] bool PrintJournal(QPrinter& printer, const QString& planName, const JournalContent& content);

} // namespace mr4500x
