#include "field_texts.h"

#include "decimal.h"
#include "tone_codes.h"

namespace mr4500x {

FieldTexts BuildFieldTexts(char decimalSeparator) {
  FieldTexts texts;
  texts.decimalSeparator = decimalSeparator;
  for (std::size_t i = 0; i < CtcssToneCount; ++i)
    texts.CtcssNames[i] = "CTC" + FormatDecimal(CtcssToneTable[i], 2, 1, decimalSeparator);
  texts.WideBandText = FormatDecimal(25, 2, 0, decimalSeparator);
  texts.NarrowBandText = FormatDecimal(125, 2, 1, decimalSeparator);
  return texts;
}

std::vector<std::string> ToneChoiceList(const FieldTexts& texts) {
  std::vector<std::string> choices = {"OFF"};
  choices.reserve(1 + CtcssToneCount + 2 * DcsCodeTable.size());
  choices.insert(choices.end(), texts.CtcssNames.begin(), texts.CtcssNames.end());
  for (const char* const polarity : {"DCS", "-DCS"})
    for (const int code : DcsCodeTable)
      choices.push_back(polarity + FormatDecimal(code, 3, 0, texts.decimalSeparator));
  return choices;
}

} // namespace mr4500x
