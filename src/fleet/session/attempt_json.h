// Attempts as JSON documents, with the columns of the CSV, and their statistics.
#pragma once

#include "journal_queries.h"

#include <string>
#include <vector>

namespace mr4500x {

[[nodiscard]] std::string AttemptsJson(const std::vector<Attempt>& attempts);
[[nodiscard]] std::string AttemptJson(const Attempt& attempt); // in one line
[[nodiscard]] std::string StatisticsJson(const std::vector<PortDay>& statistics);

} // namespace mr4500x
