// Changes of several settings at once, as scripts make them: all of them or none.
#pragma once

#include "set_field.h"

#include <string>
#include <vector>

namespace mr4500x {

struct Assignment {
  FieldAt at;
  std::string value;     // as ValueOf gives it
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
// afterwards; if there is one, the image stays as it was.
[[nodiscard]] std::vector<RefusedValue> ApplyChanges(RadioImage& image, std::vector<Assignment> assignments,
                                                     const FieldTexts& texts);
// The same in a configuration, as the editor holds it.
[[nodiscard]] std::vector<RefusedValue> ApplyChanges(Configuration& configuration, std::vector<Assignment> assignments,
                                                     const FieldTexts& texts);

} // namespace mr4500x
