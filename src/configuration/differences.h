// The differences between two configurations, setting by setting with the window's labels, and between two images.
#pragma once

#include "fields.h"

#include <string>
#include <vector>

namespace mr4500x {

struct Difference {
  FieldAt at;
  std::string before, after; // from ShownTextOf, or from ValueOf for a code without a text
};

// In the order of the table of settings. Identity number and firmware version are not settings.
[[nodiscard]] std::vector<Difference> DifferencesBetween(const Configuration& before, const Configuration& after);

// A byte that differs in bits that no setting explains.
struct ByteDifference {
  ImageBlock block{};
  std::size_t offset = 0;
  std::uint8_t before = 0, after = 0;
  std::uint8_t bits = 0; // the bits that differ without a setting that explains them
};
struct ImageDifferences {
  std::vector<Difference> settings;
  std::vector<ByteDifference> bytes;
  [[nodiscard]] bool IsEmpty() const { return settings.empty() && bytes.empty(); }
};
// Compares the data that both files and writes contain. This excludes the radio's identity and firmware, the write
// stamp, the embedded information and the file's FiveToneStandard.
[[nodiscard]] ImageDifferences CompareImages(const RadioImage& before, const RadioImage& after,
                                             const FieldTexts& texts);

// Copies the bits of `after` into the image, except the bits of settings.
void TakeByte(RadioImage& image, const ByteDifference& difference);

// A difference as text: a setting without its unit ("CH3 Rx Freq"), or a byte ("ChannelBlock 37", "0x08").
struct DifferenceWords {
  FieldAt at; // nothing for a byte
  std::string name, before, after;
  ByteDifference byte; // nothing for a setting
};
[[nodiscard]] std::vector<DifferenceWords> WordsFor(const ImageDifferences& differences);

// The name of a setting for the user: "CH3 Rx Freq (MHz)", "TTS 2 Gap Time(s)", "Beep Enable".
[[nodiscard]] std::string NameOf(FieldAt at);
// A heading without its line break.
[[nodiscard]] std::string OnOneLine(std::string_view label);
// The text of a setting. Check boxes read "ON" or "OFF", and in a grid "yes" or "no".
[[nodiscard]] std::string ShownTextOf(const Configuration& configuration, FieldAt at);

} // namespace mr4500x
