#include "require.h"
#include "scripted_radio.h"

#include <thread>

namespace mr4500x {
namespace {

// Reads a radio, gives all its channels one more than they held, and writes it.
void ReadAndWrite(Desk& desk) {
  desk.acceptsBand = true;
  EXPECT_EQ(desk.Run(Transfer::Read).outcome, Outcome::Complete);
  for (std::uint8_t& byte : BlockBytes(desk.image, ImageBlock::ChannelBlock))
    ++byte;
  for (const Transfer transfer : {Transfer::Write, Transfer::ReadInfo, Transfer::WriteInfo})
    EXPECT_EQ(desk.Run(transfer).outcome, Outcome::Complete);
}

// Two exchanges in two threads, each on its own port.
TEST(TwoRadios, AreReadAndWrittenSideBySide) {
  Desk desks[2];
  std::ranges::reverse(desks[1].radio.memory);
  const std::array before = {desks[0].radio.memory, desks[1].radio.memory};
  {
    std::jthread first([&] { ReadAndWrite(desks[0]); });
    std::jthread second([&] { ReadAndWrite(desks[1]); });
  }
  for (std::size_t radio : {0u, 1u}) {
    SCOPED_TRACE(radio);
    for (std::size_t address = 0; address < 0x100; ++address)
      ASSERT_EQ(desks[radio].radio.memory[address], static_cast<std::uint8_t>(before[radio][address] + 1));
  }
}

} // namespace
} // namespace mr4500x
