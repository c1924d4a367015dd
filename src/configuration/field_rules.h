// The rules for typed input in the editor's fields: the accepted value, and the message for a wrong one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

// The unit of a frequency text in MHz with five decimals.
using TensOfHertz = std::int64_t;
[[nodiscard]] std::optional<TensOfHertz> ReadFrequency(std::string_view text, char separator);
[[nodiscard]] std::string FrequencyText(TensOfHertz frequency, char separator);

// The limits in whole MHz. `step` below is 250 or 625 tens of Hz.
struct Band {
  int lower, upper;
};

// Clamps to [lower, upper - step].
[[nodiscard]] TensOfHertz ClampToBand(TensOfHertz frequency, Band band, int step);

// The committed text of the frequency editor: rounded to the step grid (ties to the even count), then clamped. nullopt
// if the text is not a number.
[[nodiscard]] std::optional<std::string> CommitFrequency(std::string_view text, Band band, int step, char separator);

// One step up or down, neither rounded nor clamped; the same text at the end of the band. nullopt if it is not a
// number.
[[nodiscard]] std::optional<std::string> StepFrequency(std::string_view text, bool up, Band band, int step,
                                                       char separator);

// The character that a key press enters in an ID box: a digit, "#", "*" or "A" to "D". Lower case becomes upper case.
[[nodiscard]] std::optional<char> IdCharacter(char key);
// The characters above and "-".
[[nodiscard]] bool IdTextValid(std::string_view text);

struct Range {
  int lowest, highest;
};
inline constexpr Range TtsFrequencies = {288, 3000}; // Hz
inline constexpr Range ResetTimes = {1, 255};        // s
inline constexpr int LowestBandLimit = 136;
inline constexpr int HighestBandLimit = 520;
enum class BandEntry { Accepted, Refused, Empty };
struct BandCheck {
  BandEntry entry;
  int value; // the limited number when accepted
};
// Validation of a band box, from the texts of both boxes.
[[nodiscard]] BandCheck CheckLowerBand(std::string_view lower, std::string_view upper);
[[nodiscard]] BandCheck CheckUpperBand(std::string_view lower, std::string_view upper);

// The auto reset time box, in seconds.
struct ResetTimeCheck {
  std::string text;
  bool off; // the OFF box becomes checked
};
[[nodiscard]] ResetTimeCheck LimitResetTime(std::string_view text);                       // validates the text
[[nodiscard]] std::optional<ResetTimeCheck> StepResetTime(std::string_view text, int by); // nullopt: not a number
[[nodiscard]] std::optional<std::string> SpinResetTime(std::string_view text, int by);    // never touches OFF

// A 5-tone code. A text that is not accepted is cut off or padded with zeros to five digits.
enum class CodeEntry { Accepted, NotDigits, NotFive };
struct CodeCheck {
  CodeEntry entry;
  std::string text;
};
[[nodiscard]] CodeCheck CheckFiveToneCode(std::string_view text);

// Clamps a TTS frequency. "288" for an empty text, nullopt if it is not a number.
[[nodiscard]] std::optional<std::string> LimitTtsFrequency(std::string_view text);

} // namespace mr4500x
