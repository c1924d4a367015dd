// Two radios at once: two exchanges in two threads, each on its own port.
#include "exchange.h"
#include "simulated_radio.h"

#include <gtest/gtest.h>

#include <thread>

namespace mr4500x {
namespace {

// The simulated radio behind a port, on a clock that only waits move.
class SimulatedPort final : public SerialPort, public Clock {
public:
  explicit SimulatedPort(const RadioMemory& memory) : m_radio(memory, CharacterTime) {}

  [[nodiscard]] const RadioMemory& Memory() const { return m_radio.Memory(); }

  Moment Now() override { return m_now; }
  void WaitUntil(Moment moment) override { m_now = std::max(m_now, moment); }

  void SetPortNumber(int /*number*/) override {}
  std::optional<std::string> Open(const LineSettings& /*settings*/) override {
    m_isOpen = true;
    return std::nullopt;
  }
  void Close() override { m_isOpen = false; }
  bool IsOpen() const override { return m_isOpen; }
  std::optional<std::size_t> BytesReceived() override {
    const LineBytes arrived = m_radio.TakeReplies(m_now);
    m_received.insert(m_received.end(), arrived.begin(), arrived.end());
    return m_received.size();
  }
  bool DiscardReceived() override { return TakeReceived().has_value(); }
  std::optional<std::size_t> BytesToTransmit() override { return 0; }
  bool DiscardTransmit() override { return true; }
  bool Write(std::span<const std::uint8_t> bytes) override { return m_radio.Hear(bytes, m_now), true; }
  std::optional<LineBytes> TakeReceived() override {
    static_cast<void>(BytesReceived());
    return std::exchange(m_received, {});
  }

private:
  SimulatedRadio m_radio;
  LineBytes m_received;
  Moment m_now{};
  bool m_isOpen = false;
};

class Agreeing final : public ExchangeObserver {
public:
  void Began(Transfer, int) override {}
  void Progress(int) override {}
  void Ended() override {}
  bool AcceptsOtherBand() override { return true; }
  bool Complete(Transfer) override { return true; }
};

// Reads a radio, gives all its records one more than they held, and writes it.
void ReadAndWrite(SimulatedPort& port, int number, std::vector<Outcome>& outcomes) {
  SerialLine line(port, port, number);
  Agreeing observer;
  RadioImage image;
  const auto now = [] { return LocalTime{2004, 11, 4, 9, 5, 7}; };
  outcomes.push_back(ReadRadio(line, image, observer).outcome);
  for (std::uint8_t& byte : BlockBytes(image, ImageBlock::ChannelBlock))
    ++byte;
  outcomes.push_back(WriteRadio(line, image, now, observer).outcome);
  image.EmbeddedInfoBlock.bytes.fill(static_cast<std::uint8_t>(number));
  image.EmbeddedInfoBlock.length = EmbeddedInfoCapacity;
  outcomes.push_back(WriteEmbeddedInfo(line, image, observer).outcome);
  outcomes.push_back(ReadEmbeddedInfo(line, image, observer).outcome);
}

TEST(TwoRadios, AreReadAndWrittenSideBySide) {
  RadioMemory other = FactoryMemory();
  for (std::size_t address = 0; address < 0x100; ++address)
    other[address] = static_cast<std::uint8_t>(3 * address);
  SimulatedPort ports[] = {SimulatedPort(FactoryMemory()), SimulatedPort(other)};
  const RadioMemory before[] = {FactoryMemory(), other};
  std::vector<Outcome> outcomes[2];
  {
    std::jthread first([&] { ReadAndWrite(ports[0], 1, outcomes[0]); });
    std::jthread second([&] { ReadAndWrite(ports[1], 2, outcomes[1]); });
  }
  for (std::size_t radio : {0u, 1u}) {
    SCOPED_TRACE(radio);
    EXPECT_EQ(outcomes[radio], std::vector<Outcome>(4, Outcome::Complete));
    for (std::size_t address = 0; address < 0x100; ++address)
      ASSERT_EQ(ports[radio].Memory()[address], static_cast<std::uint8_t>(before[radio][address] + 1)) << address;
    EXPECT_EQ(ports[radio].Memory()[0x2FF], radio + 1);
  }
}

} // namespace
} // namespace mr4500x
