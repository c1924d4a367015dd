// The journal of a plan on paper.
#pragma once

#include "journal.h"

#include <QString>

class QPrinter;

namespace mr4500x {

// One line an attempt, under a heading with the counts. False if the printer does not take it.
[[nodiscard]] bool PrintJournal(QPrinter& printer, const QString& planName, const std::vector<Attempt>& attempts);

} // namespace mr4500x
