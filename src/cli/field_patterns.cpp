#include "field_patterns.h"

#include "arguments.h"
#include "decimal.h"
#include "utf8.h"

#include <algorithm>

namespace mr4500x {
namespace {

std::vector<std::string_view> PartsOf(std::string_view identifier) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t dot = identifier.find('.');
    parts.push_back(identifier.substr(0, dot));
    if (dot == std::string_view::npos) return parts;
    identifier.remove_prefix(dot + 1);
  }
}

// Whether the part of a pattern covers an entry, given as a number.
bool Covers(std::string_view part, int entry, std::size_t entries) {
  if (part == "*") return true;
  const std::size_t dash = part.find('-');
  if (dash == std::string_view::npos) return part == std::to_string(entry);
  const auto first = ParseWhole(part.substr(0, dash)), last = ParseWhole(part.substr(dash + 1));
  return first && last && *last <= static_cast<int>(entries) && *first >= 1 && *first <= entry && entry <= *last;
}

bool Matches(FieldAt at, const std::vector<std::string_view>& pattern, bool mayBeGroup) {
  const std::string identifier = IdentifierOf(at);
  const std::vector<std::string_view> parts = PartsOf(identifier);
  if (pattern.size() > parts.size() || (pattern.size() < parts.size() && !mayBeGroup)) return false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const std::optional<int> entry = ParseWhole(parts[i]);  // no other part is a number
    if (mayBeGroup && i > 0 && pattern[i] == "*") continue; // "channels.3.*"
    if (entry ? !Covers(pattern[i], *entry, EntriesOf(at.field->group)) : pattern[i] != parts[i]) return false;
  }
  return true;
}

} // namespace

std::vector<FieldAt> AllFields() {
  std::vector<FieldAt> all;
  for (const Field& field : Fields())
    for (std::size_t entry = 1; entry <= EntriesOf(field.group); ++entry)
      all.push_back({&field, entry});
  return all;
}

std::vector<FieldAt> FieldsNamed(std::string_view pattern, bool mayBeGroup) {
  const std::vector<std::string_view> parts = PartsOf(pattern);
  std::vector<FieldAt> named = AllFields();
  std::erase_if(named, [&](FieldAt at) { return !Matches(at, parts, mayBeGroup); });
  return named;
}

std::string NoSuchSetting(std::string_view name) {
  std::vector<std::string> identifiers;
  for (const FieldAt at : AllFields())
    identifiers.push_back(IdentifierOf(at));
  const std::string nearest = NearestOf(name.substr(0, 100), identifiers);
  return Printable(name) + ": no such setting; " +
         (nearest.empty() ? "`mr4500x-cli fields` lists them" : "did you mean " + nearest + "?");
}

} // namespace mr4500x
