#include "differences.h"

#include "comparison.h"
#include "random_image.h"
#include "set_field.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

class DifferencesTest : public testing::Test {
protected:
  std::vector<std::string> Between(const RadioImage& before, const RadioImage& after) {
    std::vector<std::string> lines;
    const ImageDifferences differences = CompareImages(before, after, texts);
    for (const auto& [at, old, now] : differences.settings)
      lines.push_back(NameOf(at) + ": " + old + " -> " + now);
    for (const auto& [block, offset, old, now, bits] : differences.bytes)
      lines.push_back(std::string(NameOf(block)) + ' ' + std::to_string(offset) + ": " + std::to_string(old) + " -> " +
                      std::to_string(now));
    return lines;
  }

  using Lines = std::vector<std::string>;
  const FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  Configuration configuration = NewConfiguration(image, texts, {2026, 1, 2, 3, 4, 5});
};

TEST_F(DifferencesTest, BytesAreTheOnesThatNoSettingShows) {
  const struct {
    const char* name;
    void (*plant)(RadioImage&);
    Lines lines;
  } cases[] = {
      {"nothing", [](RadioImage&) {}, {}},
      {"a kept bit", [](RadioImage& i) { i.ChannelBlock(2, 12) ^= 0x01; }, {"ChannelBlock 44: 168 -> 169"}},
      {"a bit that an encode clears",
       [](RadioImage& i) { i.RadioSettingsBlock[1] |= 0x80; },
       {"RadioSettingsBlock 1: 2 -> 130"}},
      {"a byte with both",
       [](RadioImage& i) { i.ChannelBlock(2, 12) ^= 0x11; },
       {"CH3 PTT ID Enable: OFF -> ON", "ChannelBlock 44: 168 -> 185"}},
      {"a list's code without a text",
       [](RadioImage& i) { i.RadioSettingsBlock[1] |= 0x0F; },
       {"Tx TOT: 60s -> {\"code\": 15}"}},
      {"the code of a tone that is off", [](RadioImage& i) { i.ChannelBlock(0, 4) = 7; }, {"ChannelBlock 4: 0 -> 7"}},
      {"a tone that goes off, and its code",
       [](RadioImage& i) { i.ChannelBlock(5, 0) ^= 0x30, i.ChannelBlock(5, 4) = 0; },
       {"CH6 Rx CTC/DCS: CTC88.5 -> OFF"}},
      {"what no file holds", [](RadioImage& i) { i.RadioIdBlock[0] = i.WriteStampBlock[0] = 1; }, {}},
  };
  image.RadioSettingsBlock[1] = 0x02;
  image.ChannelBlock(5, 0) |= 0x30;
  image.ChannelBlock(5, 4) = 8;
  for (const auto& [name, plant, lines] : cases) {
    RadioImage other = image;
    plant(other);
    EXPECT_EQ(Between(image, other), lines) << name;
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
