#include "tone_codes.h"

#include "decimal.h"
#include "text.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr std::string_view UnlistedCtcss = "CTC#";
constexpr std::string_view DcsNormal = "DCS";
constexpr std::string_view DcsInverted = "-DCS";
constexpr int LongestTtsTime = 100; // longest time in the editor, in 0.1 s

std::optional<std::uint8_t> CtcssIndex(std::string_view text, const FieldTexts& texts) {
  const auto first = texts.ToneChoiceList.begin() + 1, end = first + CtcssToneTable.size();
  const auto found = std::find(first, end, text);
  if (found != end) return static_cast<std::uint8_t>(found - first + 1);
  const std::optional<std::uint8_t> index = ByteAfter(text, UnlistedCtcss);
  return index && (*index == 0 || *index > CtcssToneTable.size()) ? index : std::nullopt;
}

void SetToneFlags(ToneField& tone, unsigned bits) {
  constexpr unsigned all = ToneOnBit | ToneCtcssBit | ToneDcsNormalBit;
  tone.flags = static_cast<std::uint8_t>((tone.flags & ~all) | bits);
}

void ApplyDcsDigits(ToneField& tone, std::string_view text, unsigned polarity) {
  const auto digits = HexDigitsAfter<3>(text, polarity != 0 ? DcsNormal : DcsInverted);
  if (!digits) return;
  SetToneFlags(tone, ToneOnBit | polarity);
  tone.codeA = static_cast<std::uint8_t>((*digits)[1] * 16 + (*digits)[2]);
  tone.codeB = (*digits)[0];
}

} // namespace

FieldTexts BuildFieldTexts(char decimalSeparator) {
  const auto text = [=](std::int64_t value, int integerDigits, int decimals) {
    return FormatDecimal(value, integerDigits, decimals, decimalSeparator);
  };
  FieldTexts texts{decimalSeparator, {text(25, 1, 1), text(625, 1, 2)}, text(25, 2, 0), text(125, 2, 1), {"OFF"}, {}};
  for (const int tone : CtcssToneTable)
    texts.ToneChoiceList.push_back("CTC" + text(tone, 2, 1));
  for (const std::string_view polarity : {DcsNormal, DcsInverted})
    for (const int code : DcsCodeTable)
      texts.ToneChoiceList.push_back(std::string(polarity) + text(code, 3, 0));
  for (int tenths = 1; tenths <= LongestTtsTime; ++tenths)
    texts.TtsTimes.push_back(text(tenths, 1, 1));
  return texts;
}

const FieldTexts& PointTexts() {
  static const FieldTexts texts = BuildFieldTexts('.');
  return texts;
}

std::string ToneText(ToneField tone, const FieldTexts& texts) {
  if ((tone.flags & ToneOnBit) == 0) return "OFF";
  if ((tone.flags & ToneCtcssBit) != 0) {
    if (tone.codeA >= 1 && tone.codeA <= CtcssToneTable.size()) return texts.ToneChoiceList[tone.codeA];
    return std::string(UnlistedCtcss) + std::to_string(tone.codeA);
  }
  std::string text((tone.flags & ToneDcsNormalBit) != 0 ? DcsNormal : DcsInverted);
  for (const int digit : {tone.codeB & 0x0F, tone.codeA >> 4, tone.codeA & 0x0F})
    text += HexDigit(digit);
  return text;
}

void ApplyToneText(ToneField& tone, std::string_view text, const FieldTexts& texts) {
  if (text == "OFF") return SetToneFlags(tone, 0);
  if (text.starts_with(DcsNormal)) return ApplyDcsDigits(tone, text, ToneDcsNormalBit);
  if (text.starts_with(DcsInverted)) return ApplyDcsDigits(tone, text, 0);
  if (const auto index = CtcssIndex(text, texts)) {
    SetToneFlags(tone, ToneOnBit | ToneCtcssBit);
    tone.codeA = *index;
  }
}

} // namespace mr4500x
