// The configurations of a fleet of radios: a template, and a row for each radio with the values that differ from it.
#pragma once

#include "changes.h"

#include "journal.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

struct PlanRow {
  std::size_t line = 0; // line in the list of rows
  std::string label;
  std::string radio;                       // identity number of the only radio for this row; "": the next radio
  std::vector<Assignment> values;          // as the radio shows them, in the order of the table of settings
  std::optional<std::string> embeddedInfo; // UTF-8; nullopt: the radio keeps its text
  std::string content{};                   // checksum of all that the radio gets: where it is the same, so is that
};

struct Plan {
  std::string key; // SHA-256 of the template and the meaning of the rows; benches with the same key share the rows
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

// Checks the whole list, a CSV text whose heading names settings (see FindSettingColumn), "embedded_info", "radio" and
// "label". An empty cell keeps the template's value. nullopt means that there is no list.
[[nodiscard]] PlanCheck MakePlan(const RadioImage& image, std::string name, std::optional<std::string_view> rows,
                                 const FieldTexts& texts, Sha256 sha256);

// The image for a row. Row 0 and the rows of an endless plan are the template.
[[nodiscard]] RadioImage ImageFor(const Plan& plan, std::size_t row, const FieldTexts& texts);

[[nodiscard]] std::vector<JournalRow> JournalRowsOf(const Plan& plan);

} // namespace mr4500x
