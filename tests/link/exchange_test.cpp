#include "require.h"
#include "scripted_radio.h"

namespace mr4500x {
namespace {

std::size_t Address(const LineBytes& frame) {
  return frame.at(1) * 256u + frame.at(2);
}

TEST(Exchange, ShowsItsProgressAndTakesItsWaitsAndLineTimeOnly) {
  using enum Speed;
  const struct {
    const char* name;
    Transfer transfer;
    Speed speed;
    int maximum, first, last, end; // progress values in steps of 5, then at the end
    Clock::Moment records;         // the time for wake-up, records and end
  } cases[] = {
      {"read", Transfer::Read, Prescribed, 505, 0, 510, 505,
       (5ms + 40ms + 10ms) + 103 * (10ms + 5ms + 40ms + 10ms) + 5ms + 50ms},
      {"write", Transfer::Write, Prescribed, 330, 0, 325, 310,
       (6250us + 40ms + 10ms) + 20ms + 66 * (15ms + 20ms + 20ms) + 15ms + 50ms + 20ms},
      // 2 ms are the radio's, and the answers are looked for every 0.5 ms.
      {"quick read", Transfer::Read, Quick, 505, 0, 510, 505,
       (5ms + 40ms + 10ms) + 103 * (5ms + 2ms + 15ms) + 30ms + 5ms + 50ms},
      {"quick write", Transfer::Write, Quick, 330, 0, 325, 310,
       (6250us + 40ms + 10ms) + 20ms + 66 * (15ms + 2ms + 1500us) + 30ms + 15ms + 50ms + 20ms},
      {"read info", Transfer::ReadInfo, Prescribed, 160, 5, 160, 160,
       (5ms + 40ms) + 32 * (10ms + 5ms + 40ms) + 5ms + 50ms},
      {"write info", Transfer::WriteInfo, Prescribed, 150, 5, 150, 150,
       (6250us + 40ms + 10ms) + 20ms + 30 * (15ms + 40ms) + 15ms + 50ms},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Computer computer;
    computer.speed = c.speed;
    EXPECT_EQ(computer.Run(c.transfer).outcome, Outcome::Complete);
    EXPECT_EQ(computer.maximum, c.maximum);
    EXPECT_EQ(computer.values.front(), c.first);
    EXPECT_EQ(computer.values.end()[-2], c.last);
    EXPECT_EQ(computer.values.back(), c.end);
    EXPECT_EQ(computer.radio.now, 80ms + 80ms + c.records);
    EXPECT_EQ(computer.completions, 1);
  }
}

TEST(Exchange, ReturnsToThePausesWithARadioThatNeedsThem) {
  for (const Transfer transfer : {Transfer::Read, Transfer::Write})
    for (const Clock::Moment deafness : {2ms, 10ms, 20ms}) {
      SCOPED_TRACE(std::to_string(static_cast<int>(transfer)) + ' ' + std::to_string(deafness.count()));
      Computer prescribed, quick;
      quick.speed = Speed::Quick;
      quick.radio.deafness = deafness;
      ASSERT_EQ(prescribed.Run(transfer).outcome, Outcome::Complete);
      ASSERT_EQ(quick.Run(transfer).outcome, Outcome::Complete);
      EXPECT_EQ(quick.image, prescribed.image);
      EXPECT_EQ(quick.radio.memory, prescribed.radio.memory);
      EXPECT_GT(quick.radio.now, prescribed.radio.now);
      prescribed.radio.frames.insert(prescribed.radio.frames.begin() + 2, prescribed.radio.frames[2]); // repeated
      EXPECT_EQ(quick.radio.frames, prescribed.radio.frames);
    }
}

TEST(ReadRadio, RequestsEveryRecordInOrderAndStoresIt) {
  Computer computer;
  ASSERT_EQ(computer.Run(Transfer::Read).outcome, Outcome::Complete);
  const auto& frames = computer.radio.frames;
  ASSERT_EQ(frames.size(), 105u);
  for (std::size_t i = 0; i < 103; ++i)
    EXPECT_EQ(Address(frames[1 + i]), 8 * (i <= 40 ? i : i <= 44 ? i + 7 : i <= 100 ? i + 11 : i + 25)) << i;
  EXPECT_EQ(frames.back(), (LineBytes{0x57, 0xAA, 0xAA, 0xAA}));
  for (const BlockLocation& place : RecordMap) {
    const auto bytes = BlockBytes(computer.image, place.block);
    EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), computer.radio.memory.begin() + place.address)) << place.address;
  }
}

TEST(ReadRadio, StoresARecordWhereItsReplySays) {
  Computer computer;
  computer.radio.spoil = [](std::size_t frame, LineBytes& reply) {
    if (frame == 1) reply = {0x57, 0x03, 0xF8, 2, 'V', '1', 0, 0, 0, 0, 0, 0}; // requested 0x000
    if (frame == 103) reply[2] = 0xE0;                                         // requested 0x3F8: belongs nowhere
  };
  ASSERT_EQ(computer.Run(Transfer::Read).outcome, Outcome::Complete);
  EXPECT_EQ(computer.image.ChannelBlock(0, 0), 0);
  EXPECT_EQ(computer.image.FirmwareVersionBlock, (std::array<std::uint8_t, 8>{'V', '1'}));
}

TEST(WriteRadio, WritesEveryRecordInOrderWithTheStampToAnotherBandIfTheUserAgrees) {
  Computer source, computer;
  ASSERT_EQ(source.Run(Transfer::Read).outcome, Outcome::Complete);
  auto expected = source.radio.memory;
  const std::pair<int, int> unwritten[] = {{0x118, 0x12F}, {0x148, 0x17F}, {0x1A0, 0x1BF}, {0x1E8, 0x1FF},
                                           {0x210, 0x2FF}, {0x380, 0x3EF}, {0x3F8, 0x3FF}};
  for (const auto& [first, last] : unwritten)
    std::fill(expected.begin() + first, expected.begin() + last + 1, std::uint8_t{0});
  std::copy_n("20041104090507\0", 16, expected.begin() + 0x200);

  computer.image = source.image; // has another band than the radio
  computer.acceptsBand = true;
  computer.radio.memory.fill(0);
  ASSERT_EQ(computer.Run(Transfer::Write).outcome, Outcome::Complete);
  EXPECT_EQ(computer.radio.memory, expected);
  const auto& frames = computer.radio.frames;
  ASSERT_EQ(frames.size(), 68u);
  for (std::size_t i = 2; i < 67; ++i)
    EXPECT_LT(Address(frames[i - 1]), Address(frames[i]));
}

TEST(EmbeddedInfo, IsReadWithTheStampAndNothingElse) {
  Computer computer;
  RadioImage expected = computer.image;
  computer.image.EmbeddedInfoBlock.length = 0;
  computer.radio.spoil = [](std::size_t frame, LineBytes& reply) {
    if (frame == 31) reply = {0x57, 0x02, 0xFD, 3, 0xA1, 0xA2, 0xA3, 0, 0, 0, 0, 0}; // requested 0x2F0
    if (frame == 32) reply[1] = 0x03;                                                // requested 0x2F8
  };
  ASSERT_EQ(computer.Run(Transfer::ReadInfo).outcome, Outcome::Complete);
  std::copy_n(computer.radio.memory.begin() + 0x200, 16, expected.WriteStampBlock.begin());
  std::copy_n(computer.radio.memory.begin() + 0x210, 224, expected.EmbeddedInfoBlock.bytes.begin());
  std::copy_n("\xA1\xA2\xA3", 3, expected.EmbeddedInfoBlock.bytes.end() - 3);
  EXPECT_EQ(computer.image, expected);
}

TEST(EmbeddedInfo, IsWrittenWithZerosAfterTheText) {
  Computer computer;
  computer.image.EmbeddedInfoBlock.length = 10;
  computer.image.EmbeddedInfoBlock.bytes[9] = 0x99;
  computer.radio.identity[4] = 0x02; // another band does not matter
  auto expected = computer.radio.memory;
  std::fill_n(expected.begin() + 0x210, 240, std::uint8_t{0});
  expected[0x219] = 0x99;
  ASSERT_EQ(computer.Run(Transfer::WriteInfo).outcome, Outcome::Complete);
  EXPECT_EQ(computer.radio.memory, expected);
}

} // namespace
} // namespace mr4500x
