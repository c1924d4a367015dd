#include "attempt_json.h"

#include "attempt_records.h"

#include <nlohmann/json.hpp>

namespace mr4500x {
namespace {

void Add(nlohmann::ordered_json& document, const Attempt& attempt) {
  document["row"] = attempt.row;
  document["outcome"] = StoredName(attempt.outcome);
  for (const AttemptColumn& column : AttemptColumns)
    document[std::string(column.heading)] = attempt.*column.text;
}

std::string TextOf(const nlohmann::ordered_json& document, int indent) {
  return document.dump(indent, ' ', false, nlohmann::json::error_handler_t::replace) + '\n';
}

} // namespace

std::string AttemptsJson(const std::vector<Attempt>& attempts) {
  nlohmann::ordered_json all = nlohmann::ordered_json::array();
  for (const Attempt& attempt : attempts)
    Add(all.emplace_back(), attempt);
  return TextOf({{"format", 1}, {"attempts", all}}, 2);
}

std::string StatisticsJson(const std::vector<PortDay>& statistics) {
  nlohmann::ordered_json all = nlohmann::ordered_json::array();
  for (const PortDay& day : statistics)
    all.push_back({{"day", day.day},
                   {"computer", day.computer},
                   {"port", day.port},
                   {"verified", day.verified},
                   {"failed", day.failed},
                   {"yield", day.Yield()},
                   {"mean_seconds", day.seconds}});
  return TextOf({{"format", 1}, {"statistics", all}}, 2);
}

std::string AttemptJson(const Attempt& attempt) {
  nlohmann::ordered_json document = {{"format", 1}};
  Add(document, attempt);
  return TextOf(document, -1);
}

} // namespace mr4500x
