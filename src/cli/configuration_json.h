// The configuration as a JSON document, and back. docs/configuration.schema.json describes it.
#pragma once

#include "changes.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// Scripts rely on the keys and their order. Values that break the editor's rules, as values in a radio may, are listed
// again at the end, under "as_stored".
[[nodiscard]] std::string ConfigurationJson(const Configuration& configuration);

// The value of one setting in the document.
[[nodiscard]] std::string ValueAsJson(const Configuration& configuration, FieldAt at);
// A document with only these settings, for ReadChanges.
[[nodiscard]] std::string PartJson(const Configuration& configuration, const std::set<FieldAt>& fields);

struct Changes {
  std::vector<Assignment> assignments;
  std::vector<std::string> problems; // one line for each invalid value; the valid ones are in the assignments
  std::string syntaxError{};         // "3:17: …", line and column, if it is not a JSON document
};
// Reads the document or a part of it. Entries of "channels" are found by their number, entries of "tts" by their
// position. A value under "as_stored" may break the rules.
[[nodiscard]] Changes ReadChanges(std::string_view document);

} // namespace mr4500x
