// Any radio on the line: every exchange ends in bounded time with the port closed and changes only its own blocks of
// the image, and the next exchange with a working radio succeeds.
#include "fuzz_input.h"

#include "scripted_radio.h"

namespace mr4500x {
namespace {

constexpr Clock::Moment LongestExchange = 60s;

// Spoils the radio's answers as the input says.
class Fuzzer {
public:
  Fuzzer(FuzzInput& input, ScriptedRadio& radio) : m_input(input), m_radio(radio) {
    m_radio.spoil = [this](std::size_t, LineBytes& reply) { Spoil(reply); };
  }

  void Heal() {
    m_radio.spoil = nullptr;
    m_radio.operationsLeft = ScriptedRadio::MostOperations;
    m_radio.stuck = false;
    m_radio.now += 2s; // before the user tries again
  }

private:
  void Spoil(LineBytes& reply) {
    if (m_correctAnswers > 0 || m_input.IsEmpty()) {
      --m_correctAnswers;
      return;
    }
    const int way = m_input.Below(10);
    if (way == 0) {
      m_correctAnswers = m_input.Byte();
      return;
    }
    const std::uint8_t value = m_input.Byte();
    const auto at = reply.begin() + (reply.empty() ? 0 : static_cast<std::ptrdiff_t>(value % reply.size()));
    if (way == 1) reply.clear();
    if (way == 2) reply.erase(at, reply.end());
    if (way == 3 && !reply.empty()) *at = m_input.Byte();
    if (way == 4) reply.insert(at, m_input.Byte());
    if (way == 5) {
      const std::string raw = m_input.Text();
      reply.assign(raw.begin(), raw.end());
    }
    if (way == 6) m_radio.gap = {0, 5ms * value};
    if (way == 7) m_radio.stuck = value < 8;
    if (way == 9) m_radio.open = false;
    if (way >= 8) m_radio.operationsLeft = value;
  }

  FuzzInput& m_input;
  ScriptedRadio& m_radio;
  int m_correctAnswers = 0;
};

Outcome RunInTime(Desk& desk, Transfer transfer) {
  const Clock::Moment begin = desk.radio.now;
  const Outcome outcome = desk.Run(transfer).outcome;
  Require(desk.radio.now - begin < LongestExchange, "an exchange takes its bounded time");
  return outcome;
}

} // namespace

void Fuzz(FuzzInput input) {
  const std::uint8_t options = input.Byte();
  const auto transfer = static_cast<Transfer>(options & 3);
  Desk desk;
  ResetToDefaults(desk.image, {2001, 2, 3, 4, 5, 6});
  desk.image.PatrolWorkBlock.fill(0x5A);
  desk.image.RadioIdBlock.fill(0x66);
  desk.canShow = (options & 4) == 0;
  desk.acceptsBand = (options & 8) != 0;
  desk.speed = (options & 16) != 0 ? Speed::Quick : Speed::Prescribed;
  Fuzzer fuzzer(input, desk.radio);
  const RadioImage before = desk.image;

  RunInTime(desk, transfer);
  RadioImage rest = desk.image;
  rest.WriteStampBlock = before.WriteStampBlock;
  if (transfer == Transfer::ReadInfo) rest.EmbeddedInfoBlock = before.EmbeddedInfoBlock;
  Require(transfer == Transfer::Read || rest == before, "an exchange changes only its own blocks");
  Require(desk.image.PatrolWorkBlock == before.PatrolWorkBlock &&
              desk.image.FiveToneStandard == before.FiveToneStandard,
          "what no radio holds stays");
  fuzzer.Heal();
  desk.canShow = true;
  desk.acceptsBand = true;
  Require(RunInTime(desk, transfer) == Outcome::Complete, "the next try with a sound radio works");
}

} // namespace mr4500x
