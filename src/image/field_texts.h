// The texts that depend on the user's decimal separator, built once at start-up.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace mr4500x {

inline constexpr std::size_t CtcssToneCount = 39;

struct FieldTexts {
  char decimalSeparator;
  std::array<std::string, CtcssToneCount> CtcssNames; // "CTC67.0" …, as CtcssToneTable
  std::string WideBandText;                           // "25"
  std::string NarrowBandText;                         // "12.5"
};

// The separator is "." or ",".
[[nodiscard]] FieldTexts BuildFieldTexts(char decimalSeparator);

// The 206 choices of the tone editor: "OFF", the CTCSS names, "DCS" and each code, "-DCS" and each code.
[[nodiscard]] std::vector<std::string> ToneChoiceList(const FieldTexts& texts);

} // namespace mr4500x
