// Any radio on the line: every exchange ends in bounded time with the port closed and changes only its own blocks of
// the image, and the next exchange with a working radio succeeds.
#include "fuzz_input.h"

#include "scripted_radio.h"

namespace mr4500x {
namespace {

constexpr Clock::Moment LongestExchange = 60s;

// Corrupts an answer as the input says, or none if its number is too high.
void Spoil(LineBytes& reply, FuzzInput& input, ScriptedRadio& radio, int& correctAnswers) {
  if (correctAnswers > 0 || input.IsEmpty()) return static_cast<void>(--correctAnswers);
  const int way = input.Below(10);
  const std::uint8_t value = input.Byte();
  const auto at = reply.begin() + (reply.empty() ? 0 : static_cast<std::ptrdiff_t>(value % reply.size()));
  if (way == 0) correctAnswers = value;
  if (way == 1) reply.clear();
  if (way == 2) reply.erase(at, reply.end());
  if (way == 3 && !reply.empty()) *at = input.Byte();
  if (way == 4) reply.insert(at, input.Byte());
  if (way == 5) {
    const std::string raw = input.Text();
    reply.assign(raw.begin(), raw.end());
  }
  if (way == 6) radio.gap = {0, 5ms * value};
  if (way == 7) radio.stuck = value < 8;
  if (way == 9) radio.open = false;
  if (way >= 8) radio.operationsLeft = value;
}

Outcome RunInTime(Computer& computer, Transfer transfer) {
  const Clock::Moment begin = computer.radio.now;
  const Outcome outcome = computer.Run(transfer).outcome;
  Require(computer.radio.now - begin < LongestExchange, "an exchange takes its bounded time");
  return outcome;
}

} // namespace

void Fuzz(FuzzInput input) {
  const std::uint8_t options = input.Byte();
  const auto transfer = static_cast<Transfer>(options & 3);
  Computer computer;
  ResetToDefaults(computer.image, {2001, 2, 3, 4, 5, 6});
  computer.image.PatrolWorkBlock.fill(0x5A);
  computer.image.RadioIdBlock.fill(0x66);
  computer.canShow = (options & 4) == 0;
  computer.acceptsBand = (options & 8) != 0;
  computer.speed = (options & 16) != 0 ? Speed::Quick : Speed::Prescribed;
  int correctAnswers = 0;
  computer.radio.spoil = [&](std::size_t, LineBytes& reply) { Spoil(reply, input, computer.radio, correctAnswers); };
  const RadioImage before = computer.image;

  RunInTime(computer, transfer);
  RadioImage rest = computer.image;
  rest.WriteStampBlock = before.WriteStampBlock;
  if (transfer == Transfer::ReadInfo) rest.EmbeddedInfoBlock = before.EmbeddedInfoBlock;
  Require(transfer == Transfer::Read || rest == before, "an exchange changes only its own blocks");
  Require(computer.image.PatrolWorkBlock == before.PatrolWorkBlock &&
              computer.image.FiveToneStandard == before.FiveToneStandard,
          "what no radio holds stays");
  computer.radio.spoil = nullptr;
  computer.radio.operationsLeft = ScriptedRadio::MostOperations;
  computer.radio.stuck = false;
  computer.radio.now += 2s; // before the user tries again
  computer.canShow = true;
  computer.acceptsBand = true;
  Require(RunInTime(computer, transfer) == Outcome::Complete, "the next try with a sound radio works");
}

} // namespace mr4500x
