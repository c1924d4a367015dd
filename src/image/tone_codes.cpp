#include "tone_codes.h"

#include "decimal.h"
#include "hex_digit.h"

#include <algorithm>
#include <optional>

namespace mr4500x {
namespace {

constexpr std::string_view UnlistedCtcss = "CTC#";
constexpr std::string_view DcsNormal = "DCS";
constexpr std::string_view DcsInverted = "-DCS";

std::optional<std::uint8_t> CtcssIndex(std::string_view text, const FieldTexts& texts) {
  const auto* const found = std::find(texts.CtcssNames.begin(), texts.CtcssNames.end(), text);
  if (found != texts.CtcssNames.end()) return static_cast<std::uint8_t>(found - texts.CtcssNames.begin() + 1);
  const std::optional<std::uint8_t> index = ByteAfter(text, UnlistedCtcss);
  if (!index || (*index >= 1 && *index <= CtcssToneCount)) return std::nullopt;
  return index;
}

void SetToneFlags(ToneField& tone, unsigned bits) {
  constexpr unsigned all = ToneOnBit | ToneCtcssBit | ToneDcsNormalBit;
  tone.flags = static_cast<std::uint8_t>((tone.flags & ~all) | bits);
}

void ApplyDcsDigits(ToneField& tone, std::string_view digits, unsigned polarity) {
  if (digits.size() != 3) return;
  const auto hundreds = HexValue(digits[0]);
  const auto tens = HexValue(digits[1]);
  const auto units = HexValue(digits[2]);
  if (!hundreds || !tens || !units) return;
  SetToneFlags(tone, ToneOnBit | polarity);
  tone.codeA = static_cast<std::uint8_t>(*tens * 16 + *units);
  tone.codeB = *hundreds;
}

} // namespace

std::string ToneText(ToneField tone, const FieldTexts& texts) {
  if ((tone.flags & ToneOnBit) == 0) return "OFF";
  if ((tone.flags & ToneCtcssBit) != 0) {
    if (tone.codeA >= 1 && tone.codeA <= CtcssToneCount) return texts.CtcssNames[tone.codeA - 1U];
    return std::string(UnlistedCtcss) + std::to_string(tone.codeA);
  }
  std::string text((tone.flags & ToneDcsNormalBit) != 0 ? DcsNormal : DcsInverted);
  text += HexDigit(tone.codeB & 0x0F);
  text += HexDigit(tone.codeA >> 4);
  text += HexDigit(tone.codeA & 0x0F);
  return text;
}

void ApplyToneText(ToneField& tone, std::string_view text, const FieldTexts& texts) {
  if (text == "OFF") {
    SetToneFlags(tone, 0);
  } else if (text.starts_with(DcsNormal)) {
    ApplyDcsDigits(tone, text.substr(DcsNormal.size()), ToneDcsNormalBit);
  } else if (text.starts_with(DcsInverted)) {
    ApplyDcsDigits(tone, text.substr(DcsInverted.size()), 0);
  } else if (const auto index = CtcssIndex(text, texts)) {
    SetToneFlags(tone, ToneOnBit | ToneCtcssBit);
    tone.codeA = *index;
  }
}

} // namespace mr4500x
