#include "simulated_radio.h"

#include <gtest/gtest.h>

#include <QByteArray>

#include <numeric>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;
using Moment = SimulatedRadio::Moment;

// "57 00 08"; words in capitals stand for whole messages.
std::vector<std::uint8_t> FromHex(const std::string& text) {
  QByteArray hex = QByteArray::fromStdString(text);
  hex.replace("READ", "72 45 41 44").replace("WRITE", "77 52 49 54 45");
  const QByteArray bytes = QByteArray::fromHex(hex.replace("END", "57 AA AA AA 55 55 55 55 55 55 55 55"));
  return {bytes.begin(), bytes.end()};
}

std::string ToHex(const std::vector<std::uint8_t>& bytes) {
  const std::string characters(bytes.begin(), bytes.end());
  return QByteArray::fromStdString(characters).toHex(' ').toUpper().toStdString();
}

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
  EXPECT_EQ(Ask(radio, Request(0) + " 01 02 03 04 05 06 07 08"), "");
}

} // namespace
} // namespace mr4500x
