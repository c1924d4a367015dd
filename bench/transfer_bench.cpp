// A full read and a full write with the simulated radio at the real line speed, compared with the sum of the prescribed
// waits and the time of the bytes on the line. At the quick pace the records should take at most 1.15 times their time
// on the line.
#include "child_process.h"

#include "exchange.h"
#include "machine.h"
#include "machine_port.h"

#include <benchmark/benchmark.h>

#include <signal.h>
#include <unistd.h>

#include <ctime>

namespace mr4500x {
namespace {

constexpr double ByteTime = CharacterTime.count() / 1000.0; // ms
constexpr double PollRound = 20;

constexpr double ReadWakeUp = 80 + (80 + 4 * ByteTime + 2 * PollRound + 10);
constexpr double ReadEnd = 4 * ByteTime + 50;
constexpr double WriteWakeUp = 80 + (80 + 5 * ByteTime + 2 * PollRound + 10) + 20;
constexpr double WriteEnd = 12 * ByteTime + 50 + PollRound;

// Opening, a wake-up answered in its first round, the records, and the wait at the end. A record takes its waits, its
// request on the line, and the rounds up to the one after the check that finds the reply.
constexpr double ReadSum = ReadWakeUp + 103 * (10 + 4 * ByteTime + 2 * PollRound + 10) + ReadEnd;
constexpr double WriteSum = WriteWakeUp + 66 * (12 * ByteTime + 20 + PollRound) + WriteEnd;

// At the quick pace: request and reply, record and acknowledge.
constexpr double QuickReadLine = 103 * 16 * ByteTime;
constexpr double QuickWriteLine = 66 * 13 * ByteTime;
constexpr double MostOverLine = 1.15;

class Silent final : public ExchangeObserver {
public:
  void Began(Transfer, int) override {}
  bool AcceptsOtherBand() override { return true; }
};

class Simulator {
public:
  Simulator() {
    int output = -1;
    m_process = StartProgram({LR7200_SIMULATOR, "--pace", "9600"}, &output);
    char c = 0;
    while (output >= 0 && read(output, &c, 1) == 1 && c != '\n')
      device += c;
    if (output >= 0) close(output);
  }
  ~Simulator() {
    rusage used{};
    if (m_process > 0 && kill(m_process, SIGTERM) == 0) WaitForProgram(m_process, used);
  }
  Simulator(const Simulator&) = delete;
  Simulator& operator=(const Simulator&) = delete;

  std::string device;

private:
  pid_t m_process = -1;
};

template<typename Run>
void Measure(benchmark::State& state, double sum, Run run) {
  Simulator simulator;
  const std::unique_ptr<SerialPort> port = MakeSerialPort(simulator.device);
  SteadyClock clock;
  SerialLine line(*port, clock, 1);
  Silent silent;
  const std::clock_t processor = std::clock();
  const Clock::Moment start = clock.Now();
  for (auto _ : state)
    if (run(line, silent).outcome != Outcome::Complete) state.SkipWithError("the transfer failed");
  const double wall =
      static_cast<double>((clock.Now() - start).count()) / 1000 / static_cast<double>(state.iterations());
  const double used = 1000.0 * static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC;
  state.counters["prescribed_ms"] = sum;
  state.counters["measured_ms"] = wall;
  state.counters["over_percent"] = 100 * (wall / sum - 1);
  state.counters["processor_percent"] = 100 * used / (wall * static_cast<double>(state.iterations()));
}

void MeasureRead(benchmark::State& state, double sum, Speed speed) {
  RadioImage image;
  Measure(state, sum,
          [&](SerialLine& line, ExchangeObserver& observer) { return ReadRadio(line, image, observer, speed); });
}

void MeasureWrite(benchmark::State& state, double sum, Speed speed) {
  RadioImage image;
  ResetToDefaults(image, {2026, 1, 1, 0, 0, 0});
  Measure(state, sum, [&](SerialLine& line, ExchangeObserver& observer) {
    return WriteRadio(
        line, image, [] { return LocalTime{2026, 1, 1, 0, 0, 0}; }, observer, speed);
  });
}

void FullRead(benchmark::State& state) {
  MeasureRead(state, ReadSum, Speed::Prescribed);
}
void FullWrite(benchmark::State& state) {
  MeasureWrite(state, WriteSum, Speed::Prescribed);
}
// Here "prescribed" includes the tolerance of the records over their time on the line.
void QuickRead(benchmark::State& state) {
  MeasureRead(state, ReadWakeUp + MostOverLine * QuickReadLine + ReadEnd, Speed::Quick);
}
void QuickWrite(benchmark::State& state) {
  MeasureWrite(state, WriteWakeUp + MostOverLine * QuickWriteLine + WriteEnd, Speed::Quick);
}
BENCHMARK(FullRead)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1)->Repetitions(3);
BENCHMARK(FullWrite)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1)->Repetitions(3);
BENCHMARK(QuickRead)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1)->Repetitions(3);
BENCHMARK(QuickWrite)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1)->Repetitions(3);

} // namespace
} // namespace mr4500x
