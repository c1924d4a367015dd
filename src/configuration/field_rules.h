// The rules of the editor's fields, without the fields: what a text becomes, which message is due. Windows call these
// for every decision.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

// Frequencies in tens of Hz: a text of five decimals is a whole number of them.
using TensOfHertz = std::int64_t;
[[nodiscard]] std::optional<TensOfHertz> ReadFrequency(std::string_view text, char separator);
[[nodiscard]] std::string FrequencyText(TensOfHertz frequency, char separator);

// The whole-MHz limits of the band boxes and the step (250 or 625) that the upper edge is kept off by.
struct Band {
  int lower, upper;
};

// The frequency moved into [lower, upper - step].
[[nodiscard]] TensOfHertz ClampToBand(TensOfHertz frequency, Band band, int step);

// What the commit of the frequency editor makes of a text: rounded to the step grid (ties to the even count), then
// clamped. Nothing when the text is no number.
[[nodiscard]] std::optional<std::string> CommitFrequency(std::string_view text, Band band, int step, char separator);

// A frequency one step up or down from the text, neither rounded nor clamped; the text itself at the band's end.
// Nothing when the text is no number.
[[nodiscard]] std::optional<std::string> StepFrequency(std::string_view text, bool up, Band band, int step,
                                                       char separator);

// The character that a key press puts into an ID box: digits, "#", "*", "A" to "D" (small letters become capitals).
[[nodiscard]] std::optional<char> IdCharacter(char key);
// An ID text may hold those and "-".
[[nodiscard]] bool IdTextValid(std::string_view text);

inline constexpr int LowestBandLimit = 136;
inline constexpr int HighestBandLimit = 520;
[[nodiscard]] int LimitToBandRange(int megahertz); // 136 to 520

enum class BandEntry { Accepted, Refused, Empty };
struct BandCheck {
  BandEntry entry;
  int value; // the limited number when accepted
};
// Validation of a band box: the number itself and that of the other box, as texts.
[[nodiscard]] BandCheck CheckLowerBand(std::string_view lower, std::string_view upper);
[[nodiscard]] BandCheck CheckUpperBand(std::string_view lower, std::string_view upper);

// The auto reset time box, in seconds.
struct ResetTimeCheck {
  std::string text;
  bool off; // the OFF box becomes checked
};
[[nodiscard]] ResetTimeCheck LimitResetTime(std::string_view text);                       // at validation
[[nodiscard]] std::optional<ResetTimeCheck> StepResetTime(std::string_view text, int by); // nothing: the box is empty
[[nodiscard]] std::optional<std::string> SpinResetTime(std::string_view text, int by);    // never touches OFF

// The five digits of a 5-tone code, padded or cut where the message of the outcome is due.
enum class CodeEntry { Accepted, NotDigits, NotFive };
struct CodeCheck {
  CodeEntry entry;
  std::string text;
};
[[nodiscard]] CodeCheck CheckFiveToneCode(std::string_view text);

// A TTS frequency text limited to 288 to 3000 Hz, "288" for an empty one; nothing when it is no number.
[[nodiscard]] std::optional<std::string> LimitTtsFrequency(std::string_view text);

} // namespace mr4500x
