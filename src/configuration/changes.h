// Changes several settings at once, either all of them or none, for scripts and imported tables.
#pragma once

#include "set_field.h"

#include <string>
#include <vector>

namespace mr4500x {

struct Assignment {
  FieldAt at;
  std::string value;     // in the form of ValueOf
  bool asStored = false; // it may break the rules if the radio's bytes can hold it
};

struct RefusedValue {
  FieldAt at;
  std::string value;
  Refusal refusal;
};

// Applies the changes in the order of the table of settings, with their effects on other settings (see set_field.h). A
// given value wins over such an effect, and may need another given one first: a frequency its step, an upper band limit
// the lower one. Two different values of one setting are refused. Returns the values that the image would not show
// afterwards. If there are any, the image is not changed.
[[nodiscard]] std::vector<RefusedValue> ApplyChanges(RadioImage& image, std::vector<Assignment> assignments,
                                                     const FieldTexts& texts);
// Applies the changes to a configuration instead of an image.
[[nodiscard]] std::vector<RefusedValue> ApplyChanges(Configuration& configuration, std::vector<Assignment> assignments,
                                                     const FieldTexts& texts);

} // namespace mr4500x
