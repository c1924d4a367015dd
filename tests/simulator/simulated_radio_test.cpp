#include "simulated_radio.h"

#include "hex_bytes.h"

#include <numeric>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;
using Moment = SimulatedRadio::Moment;

// Each byte its own address, so that a record from the wrong place shows; the band is 440 to 470 MHz.
RadioMemory NumberedMemory() {
  RadioMemory memory;
  std::iota(memory.begin(), memory.end(), std::uint8_t{0});
  const auto band = FromHex("B8 01 D6 01");
  std::copy(band.begin(), band.end(), memory.begin() + 0x3F0);
  return memory;
}

std::string Ask(SimulatedRadio& radio, const std::string& bytes, Moment at = 1s) {
  radio.Hear(FromHex(bytes), at);
  return ToHex(radio.TakeReplies(at));
}

std::string Request(std::size_t address) {
  return ToHex({0x57, static_cast<std::uint8_t>(address / 256), static_cast<std::uint8_t>(address % 256), 8});
}

TEST(SimulatedRadio, IsReadWholeAndEndedByEitherEndPacket) {
  for (const std::string end : {"57 AA AA AA", "END"}) {
    SimulatedRadio radio(NumberedMemory(), 0us);
    EXPECT_EQ(Ask(radio, Request(0)), "") << "before the wake-up";
    EXPECT_EQ(Ask(radio, "READ"), "06");
    for (std::size_t address = 0; address < RadioMemoryBytes; address += 8) {
      const auto data = radio.Memory().begin() + static_cast<std::ptrdiff_t>(address);
      EXPECT_EQ(Ask(radio, Request(address)), Request(address) + " " + ToHex({data, data + 8}));
    }
    EXPECT_EQ(Ask(radio, end), "");
    EXPECT_EQ(radio.EndedSessions(), 1U);
    EXPECT_EQ(Ask(radio, Request(0)), "") << "after the end";
  }
}

TEST(SimulatedRadio, StoresWhatIsWrittenButItsIdentityAndVersion) {
  SimulatedRadio radio(NumberedMemory(), 0us);
  EXPECT_EQ(Ask(radio, "WRITE"), "52 B8 01 D6 01 00 30 00 00");
  RadioMemory expected = NumberedMemory();
  for (const std::size_t address : {0x000U, 0x1E8U, 0x1F0U, 0x1F8U, 0x200U, 0x3F0U, 0x3F8U}) {
    EXPECT_EQ(Ask(radio, Request(address) + " 57 AA AA AA 55 06 07 08"), "06");
    const bool isReadOnly = address == 0x1F0 || address == 0x1F8 || address == 0x3F8;
    const auto data = FromHex("57 AA AA AA 55 06 07 08"); // data may look like anything
    if (!isReadOnly) std::copy(data.begin(), data.end(), expected.begin() + static_cast<std::ptrdiff_t>(address));
  }
  EXPECT_EQ(radio.Memory(), expected);
  EXPECT_EQ(Ask(radio, "END"), "4F 4B");
  EXPECT_EQ(radio.EndedSessions(), 1U);
  EXPECT_EQ(Ask(radio, Request(0) + " 1 2 3 4 5 6 7 8"), "");
}

TEST(SimulatedRadio, FindsItsWayBackIntoTheDialogue) {
  constexpr auto Soon = 1s;
  constexpr auto Later = 1s + 80ms; // no message pauses that long
  struct Case {
    const char* what;
    std::string first;
    Moment then;
    std::string second;
    std::string answers;
  };
  const std::string record0 = "57 00 00 08 00 01 02 03 04 05 06 07";
  const std::string identity = "52 B8 01 D6 01 00 30 00 00";
  const Case cases[] = {
      {"noise before a wake-up", "FF 72 00 57 72", Soon, "READ", "06"},
      {"a wake-up in two parts", "72 45", Soon, "41 44", "06"},
      {"a wake-up that was given up", "72 45", Later, "READ", "06"},
      {"a wake-up amid a write", "WRITE 57 00 00 08 01 02", Later, "READ 57 00 00 08", identity + " 06 " + record0},
      {"a wake-up amid a request", "READ 57 00", Later, "WRITE", "06 " + identity},
      {"a wake-up right after half a request", "READ 57 00", Soon, "WRITE", "06 " + identity},
      {"a wake-up after the end mark of a write", "WRITE 57 AA AA AA", Soon, "READ", identity + " 06"},
      {"a request after noise", "READ AA 55", Soon, "57 00 00 08", "06 " + record0},
      {"a request after a damaged one", "READ 57 00 04 57 04", Soon, "57 00 00 09 57 00 00 08", "06 " + record0},
      {"data that reads like a wake-up", "WRITE 57 01 00 08 00 00 00 00", Soon, "READ END", identity + " 06 4F 4B"},
      {"a request while writing", "WRITE 57 00 00 08", Later, "END", identity + " 4F 4B"},
  };
  for (const Case& c : cases) {
    SimulatedRadio radio(NumberedMemory(), 0us);
    radio.Hear(FromHex(c.first), Soon);
    auto answers = radio.TakeReplies(Soon);
    radio.Hear(FromHex(c.second), c.then);
    const auto more = radio.TakeReplies(c.then);
    answers.insert(answers.end(), more.begin(), more.end());
    EXPECT_EQ(ToHex(answers), c.answers) << c.what;
  }
}

TEST(SimulatedRadio, KeepsTheLinesPace) {
  constexpr auto Character = 1250us;
  SimulatedRadio radio(NumberedMemory(), Character);
  radio.Hear(FromHex("READ"), 1s);
  EXPECT_EQ(radio.NextReplyAt(), 1s + 5 * Character);
  EXPECT_TRUE(radio.TakeReplies(1s + 5 * Character - 1us).empty());
  EXPECT_EQ(radio.TakeReplies(1s + 5 * Character).size(), 1U);
  EXPECT_EQ(radio.NextReplyAt(), std::nullopt);

  // Written in two goes, the second while the line still carries the first: no gap arises.
  radio.Hear(FromHex("57 00"), 2s);
  radio.Hear(FromHex("00 08"), 2s + 1ms);
  EXPECT_EQ(radio.NextReplyAt(), 2s + 16 * Character);
  // The answer to a second request leaves only after the first's.
  radio.Hear(FromHex("57 00 08 08"), 2s + 5ms);
  EXPECT_EQ(radio.TakeReplies(2s + 27 * Character).size(), 12U);
  EXPECT_EQ(radio.NextReplyAt(), 2s + 28 * Character);
}

} // namespace
} // namespace mr4500x
