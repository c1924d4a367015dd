#include "field_rules.h"

#include "decimal.h"
#include "text.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr TensOfHertz TensPerMegahertz = 100'000;
constexpr std::size_t FiveToneDigits = 5;

// `box` is the limit that is being checked.
BandCheck CheckBand(std::string_view lower, std::string_view upper, std::string_view box) {
  const std::optional<int> low = ParseWhole(lower);
  const std::optional<int> high = ParseWhole(upper);
  if (!low || !high) return {BandEntry::Empty, 0};
  if (*low >= *high) return {BandEntry::Refused, 0};
  return {BandEntry::Accepted, std::clamp(*ParseWhole(box), LowestBandLimit, HighestBandLimit)};
}

} // namespace

std::optional<TensOfHertz> ReadFrequency(std::string_view text, char separator) {
  const std::optional<Decimal> megahertz = ParseDecimal(text, separator);
  if (!megahertz) return std::nullopt;
  return CountOfUnits(*megahertz, 5, 1);
}

std::string FrequencyText(TensOfHertz frequency, char separator) {
  const std::string digits = FormatDecimal(frequency < 0 ? -frequency : frequency, 3, 5, separator);
  return frequency < 0 ? "-" + digits : digits;
}

TensOfHertz ClampToBand(TensOfHertz frequency, Band band, int step) {
  if (frequency < band.lower * TensPerMegahertz) return band.lower * TensPerMegahertz;
  if (frequency >= band.upper * TensPerMegahertz) return band.upper * TensPerMegahertz - step;
  return frequency;
}

std::optional<std::string> CommitFrequency(std::string_view text, Band band, int step, char separator) {
  const std::optional<Decimal> megahertz = ParseDecimal(text, separator);
  if (!megahertz) return std::nullopt;
  const TensOfHertz onGrid = CountOfUnits(*megahertz, 5, step) * step;
  return FrequencyText(ClampToBand(onGrid, band, step), separator);
}

std::optional<std::string> StepFrequency(std::string_view text, bool up, Band band, int step, char separator) {
  const std::optional<TensOfHertz> frequency = ReadFrequency(text, separator);
  if (!frequency) return std::nullopt;
  const TensOfHertz end = up ? band.upper * TensPerMegahertz - step : band.lower * TensPerMegahertz;
  if (*frequency == end) return std::string(text);
  return FrequencyText(*frequency + (up ? step : -step), separator);
}

std::optional<char> IdCharacter(char key) {
  if (IsDigit(key) || key == '#' || key == '*' || (key >= 'A' && key <= 'D')) return key;
  if (key >= 'a' && key <= 'd') return static_cast<char>(key - 'a' + 'A');
  return std::nullopt;
}

bool IdTextValid(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return IsDigit(c) || c == '#' || c == '*' || c == '-' || (c >= 'A' && c <= 'D'); });
}

BandCheck CheckLowerBand(std::string_view lower, std::string_view upper) {
  return CheckBand(lower, upper, lower);
}

BandCheck CheckUpperBand(std::string_view lower, std::string_view upper) {
  return CheckBand(lower, upper, upper);
}

ResetTimeCheck LimitResetTime(std::string_view text) {
  const std::optional<int> seconds = ParseWhole(text);
  if (!seconds) return {"1", false};
  if (*seconds < 1) return {"1", true};
  return {std::to_string(std::min(*seconds, ResetTimes.highest)), false};
}

std::optional<ResetTimeCheck> StepResetTime(std::string_view text, int by) {
  const std::optional<int> seconds = ParseWhole(text);
  if (!seconds) return std::nullopt;
  return LimitResetTime(std::to_string(std::max(*seconds + by, 0)));
}

std::optional<std::string> SpinResetTime(std::string_view text, int by) {
  const std::optional<int> seconds = ParseWhole(text);
  if (!seconds) return std::nullopt;
  return std::to_string(std::clamp(*seconds + by, ResetTimes.lowest, ResetTimes.highest));
}

CodeCheck CheckFiveToneCode(std::string_view text) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), IsDigit);
  std::string digits(text.begin(), end);
  const CodeEntry entry = end != text.end()                 ? CodeEntry::NotDigits
                          : digits.size() != FiveToneDigits ? CodeEntry::NotFive
                                                            : CodeEntry::Accepted;
  digits.resize(FiveToneDigits, '0');
  return {entry, digits};
}

std::optional<std::string> LimitTtsFrequency(std::string_view text) {
  if (text.empty()) return std::to_string(TtsFrequencies.lowest);
  const std::optional<int> hertz = ParseWhole(text);
  if (!hertz) return std::nullopt;
  return std::to_string(std::clamp(*hertz, TtsFrequencies.lowest, TtsFrequencies.highest));
}

} // namespace mr4500x
