#include "differences.h"

#include "comparison.h"
#include "image_bytes.h"
#include "random_image.h"
#include "set_field.h"

namespace mr4500x {
namespace {

class DifferencesTest : public testing::Test {
protected:
  // Joined by bars.
  std::string Between(const RadioImage& before, const RadioImage& after) {
    std::string lines;
    const ImageDifferences differences = CompareImages(before, after, texts);
    for (const auto& [at, old, now] : differences.settings)
      lines += " | " + NameOf(at) + ": " + old + " -> " + now;
    for (const auto& [block, offset, old, now, bits] : differences.bytes)
      lines.append(" | ").append(NameOf(block)) +=
          ' ' + std::to_string(offset) + ": " + std::to_string(old) + " -> " + std::to_string(now);
    return lines.substr(std::min<std::size_t>(lines.size(), 3));
  }

  const FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  Configuration configuration = NewConfiguration(image, texts, {2026, 1, 2, 3, 4, 5});
};

TEST_F(DifferencesTest, BytesAreTheOnesThatNoSettingShows) {
  PutBytes(image, "050=31 054=08 101=02");
  for (const Row& row : RowsOf(CASES "differences.txt", "[^:]+: ?(.*) => ?(.*)")) {
    RadioImage other = image;
    PutBytes(other, row[1]);
    EXPECT_EQ(Between(image, other), row[2]) << row[0];
  }
}

// Every byte that differs is explained by a setting or listed.
TEST_F(DifferencesTest, NoDifferenceIsMissed) {
  std::mt19937 random(12);
  for (int round = 0; round < 200; ++round) {
    const RadioImage before = RandomImage(random);
    RadioImage after = before;
    const BlockLocation& place = RecordMap[random() % 8];
    const auto bytes = BlockBytes(after, place.block);
    bytes[random() % bytes.size()] ^= static_cast<std::uint8_t>(1U << random() % 8);
    ASSERT_FALSE(CompareImages(before, after, texts).IsEmpty()) << round;
    ASSERT_TRUE(CompareImages(after, after, texts).IsEmpty()) << round;
  }
}

// These include the digits of an ID that the other side does not send.
TEST_F(DifferencesTest, AllBytesThatNoSettingShowsAreTakenAndLeaveTheSettings) {
  std::mt19937 random(7);
  const auto bytesOf = [&](const Comparison& comparison, const RadioImage& here) {
    std::vector<DifferenceWords> rows = comparison.Rows(here);
    std::erase_if(rows, [](const DifferenceWords& row) { return row.at.field != nullptr; });
    return rows;
  };
  for (int round = 0; round < 100; ++round) {
    RadioImage here = RandomImage(random);
    Configuration shown = Decode(here, texts).configuration;
    SettleAfterFill(here);
    Encode(shown, here, texts); // the editor's image after a save
    shown = Decode(here, texts).configuration;
    const Comparison comparison(RandomImage(random), texts);
    const Comparison::Taken taken = comparison.Take(shown, here, bytesOf(comparison, here));
    ASSERT_TRUE(taken.image && taken.refused.empty() && !taken.isNewLimit) << round;
    ASSERT_EQ(Decode(*taken.image, texts).configuration, shown) << round;
    ASSERT_TRUE(bytesOf(comparison, *taken.image).empty()) << round;
  }
}

} // namespace
} // namespace mr4500x
