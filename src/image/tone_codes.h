// CTCSS tones and DCS codes, the text of a channel's tone, and all texts that depend on the decimal separator.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// In 0.1 Hz. A record stores the position, from 1. The last entry is out of order, as in the radio.
inline constexpr std::array<int, 39> CtcssToneTable = {670,  719,  744,  770,  797,  825,  854,  885,  915,  948,
                                                       974,  1000, 1035, 1072, 1109, 1148, 1188, 1230, 1273, 1318,
                                                       1365, 1413, 1462, 1514, 1567, 1622, 1679, 1738, 1799, 1862,
                                                       1928, 2035, 2107, 2181, 2257, 2336, 2418, 2503, 693};

// Octal codes, written as decimal numbers.
inline constexpr std::array<int, 83> DcsCodeTable = {
    23,  25,  26,  31,  32,  43,  47,  51,  54,  65,  71,  72,  73,  74,  114, 115, 116, 125, 131, 132, 134,
    143, 152, 155, 156, 162, 165, 172, 174, 205, 223, 226, 243, 244, 245, 251, 261, 263, 265, 271, 306, 311,
    315, 331, 343, 346, 351, 364, 365, 371, 411, 412, 413, 423, 431, 432, 445, 464, 465, 466, 503, 506, 516,
    532, 546, 565, 606, 612, 624, 627, 631, 632, 654, 662, 664, 703, 712, 723, 731, 732, 734, 743, 754};

// Built once at start-up.
struct FieldTexts {
  char decimalSeparator;
  std::array<std::string, 2> StepTexts;    // "2.5", "6.25": by StepCode
  std::string WideBandText;                // "25"
  std::string NarrowBandText;              // "12.5"
  std::vector<std::string> ToneChoiceList; // "OFF", "CTC67.0" …, "DCS023" …, "-DCS023" …: 206 choices
  std::vector<std::string> TtsTimes;       // "0.1" to "10.0"
};
// The separator is "." or ",".
[[nodiscard]] FieldTexts BuildFieldTexts(char decimalSeparator);
// With ".": in files and for scripts they are the same in every locale.
[[nodiscard]] const FieldTexts& PointTexts();

// The tone of one side of a channel record: bits 4 to 6 of its flag byte and two code bytes.
//   CTCSS: codeA = position in CtcssToneTable from 1, codeB not used.
//   DCS:   codeA = second and third digit (high and low nibble), codeB = first digit (only its low nibble is read).
struct ToneField {
  std::uint8_t flags = 0;
  std::uint8_t codeA = 0;
  std::uint8_t codeB = 0;
  bool operator==(const ToneField&) const = default;
};

inline constexpr std::uint8_t ToneOnBit = 0x10;
inline constexpr std::uint8_t ToneCtcssBit = 0x20;     // clear for DCS
inline constexpr std::uint8_t ToneDcsNormalBit = 0x40; // clear for inverted DCS, CTCSS and "OFF"

// "OFF", "CTC88.5", "DCS023" or "-DCS023". A CTCSS position outside the table reads as "CTC#" and its number, a DCS
// digit above 9 as a hexadecimal digit, so that ApplyToneText can restore them.
[[nodiscard]] std::string ToneText(ToneField tone, const FieldTexts& texts);

// Sets the three flag bits and, unless it is "OFF", the code bytes. A text that ToneText never returns changes nothing.
void ApplyToneText(ToneField& tone, std::string_view text, const FieldTexts& texts);

} // namespace mr4500x
