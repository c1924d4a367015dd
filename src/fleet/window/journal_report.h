// Prints the journal of a plan.
#pragma once

#include "fleet_session.h"

#include <QString>

class QPrinter;

namespace mr4500x {

// Prints a line for each attempt, below a heading with the counts and the rows that are not done. False if the printer
// refuses the job.
[[nodiscard]] bool PrintJournal(QPrinter& printer, const QString& planName, const JournalContent& content);

} // namespace mr4500x
