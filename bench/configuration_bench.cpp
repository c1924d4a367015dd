// Decoding and encoding a configuration, building and parsing its data file.
#include "allocations.h"

#include "configuration.h"
#include "data_file.h"
#include "radio_memory.h"

#include <benchmark/benchmark.h>

namespace mr4500x {
namespace {

RadioImage FactoryImage() {
  RadioImage image;
  const RadioMemory memory = FactoryMemory();
  for (const BlockLocation& place : RecordMap) {
    const auto block = BlockBytes(image, place.block);
    std::copy_n(memory.begin() + place.address, block.size(), block.begin());
  }
  return image;
}

// Reports the allocations of one run as well as its time.
template<typename Work>
void Measure(benchmark::State& state, Work work) {
  work();
  const std::size_t before = AllocationCount();
  work();
  const std::size_t allocations = AllocationCount() - before;
  for (auto _ : state)
    work();
  state.counters["allocations"] = static_cast<double>(allocations);
}

void DecodeAndEncode(benchmark::State& state) {
  RadioImage image = FactoryImage();
  const FieldTexts texts = BuildFieldTexts('.');
  Measure(state, [&] {
    const Decoded decoded = Decode(image, texts);
    Encode(decoded.configuration, image, texts);
    benchmark::ClobberMemory();
  });
}
BENCHMARK(DecodeAndEncode)->Unit(benchmark::kMicrosecond);

void BuildFile(benchmark::State& state) {
  const RadioImage image = FactoryImage();
  Measure(state, [&] { benchmark::DoNotOptimize(BuildDataFile(image)); });
}
BENCHMARK(BuildFile)->Unit(benchmark::kMicrosecond);

void ParseFile(benchmark::State& state) {
  RadioImage image = FactoryImage();
  const auto file = BuildDataFile(image);
  Measure(state, [&] { benchmark::DoNotOptimize(ParseDataFile(file, image)); });
}
BENCHMARK(ParseFile)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace mr4500x
