// What differs between two configurations, setting by setting, in the words of the windows, and between two images.
#pragma once

#include "fields.h"

#include <string>
#include <vector>

namespace mr4500x {

struct Difference {
  FieldAt at;
  std::string before, after; // as ShownTextOf gives them; a code without a text as ValueOf gives it
};

// In the order of the table of settings. Identity number and firmware version are no settings.
[[nodiscard]] std::vector<Difference> DifferencesBetween(const Configuration& before, const Configuration& after);

// A byte that differs in bits that no setting explains.
struct ByteDifference {
  ImageBlock block{};
  std::size_t offset = 0;
  std::uint8_t before = 0, after = 0;
  std::uint8_t bits = 0; // that differ and that no setting explains
};
struct ImageDifferences {
  std::vector<Difference> settings;
  std::vector<ByteDifference> bytes;
  [[nodiscard]] bool IsEmpty() const { return settings.empty() && bytes.empty(); }
};
// Compares what files hold and a write sends: not the radio's identity and firmware, the write stamp, the embedded
// information and the file's own number FiveToneStandard.
[[nodiscard]] ImageDifferences CompareImages(const RadioImage& before, const RadioImage& after,
                                             const FieldTexts& texts);

// Gives the image the bits of `after`; those of settings stay.
void TakeByte(RadioImage& image, const ByteDifference& difference);

// A difference in words: a setting without its unit ("CH3 Rx Freq"), or a byte ("ChannelBlock 37", "0x08").
struct DifferenceWords {
  FieldAt at; // nothing for a byte
  std::string name, before, after;
  ByteDifference byte; // nothing for a setting
};
[[nodiscard]] std::vector<DifferenceWords> WordsFor(const ImageDifferences& differences);

// What a user calls a setting: "CH3 Rx Freq (MHz)", "TTS 2 Gap Time(s)", "Beep Enable".
[[nodiscard]] std::string NameOf(FieldAt at);
// A heading without its line break.
[[nodiscard]] std::string OnOneLine(std::string_view label);
// The text of a setting, but "ON" or "OFF" for a check box, "yes" or "no" in a grid.
[[nodiscard]] std::string ShownTextOf(const Configuration& configuration, FieldAt at);

} // namespace mr4500x
