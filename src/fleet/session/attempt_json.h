// Attempts as JSON documents, with the columns of the CSV.
#pragma once

#include "journal.h"

#include <string>
#include <vector>

namespace mr4500x {

[[nodiscard]] std::string AttemptsJson(const std::vector<Attempt>& attempts);
[[nodiscard]] std::string AttemptJson(const Attempt& attempt); // in one line

} // namespace mr4500x
