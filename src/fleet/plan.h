// What a fleet of radios is to hold: a template, and a row for each radio with what differs from it.
#pragma once

#include "changes.h"

#include "journal.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

struct PlanRow {
  std::size_t line = 0; // in the list of rows
  std::string label;
  std::string radio;              // identity number of the only radio for this row; "": the next one that comes
  std::vector<Assignment> values; // as the radio shows them, in the order of the table of settings
  std::optional<std::string> embeddedInfo; // UTF-8; nullopt: the radio keeps its text
  std::string content{};                   // checksum of all that the radio gets: where it is the same, so is that
};

struct Plan {
  std::string key; // SHA-256 over the template and what the rows mean: benches with the same key share the rows
  std::string name;
  std::string templateKey; // SHA-256 of the template
  RadioImage image;        // the template
  std::vector<PlanRow> rows;
  bool isEndless = false; // no list of rows: every radio gets the template
};

struct PlanCheck {
  Plan plan;
  std::vector<std::string> problems; // "line 7, global.connect_id: 12a, allowed: 5 digits". Not usable if there are any
};

using Sha256 = std::string (*)(std::string_view bytes); // in hexadecimal digits

// Checks all of the list, as CSV: its heading names settings (see FindSettingColumn), "embedded_info", "radio" and
// "label". An empty cell leaves the template's value. nullopt: no list.
[[nodiscard]] PlanCheck MakePlan(const RadioImage& image, std::string name, std::optional<std::string_view> rows,
                                 const FieldTexts& texts, Sha256 sha256);

// What a radio gets with a row; row 0 and the rows of an endless plan are the template.
[[nodiscard]] RadioImage ImageFor(const Plan& plan, std::size_t row, const FieldTexts& texts);

[[nodiscard]] std::vector<JournalRow> JournalRowsOf(const Plan& plan);

} // namespace mr4500x
