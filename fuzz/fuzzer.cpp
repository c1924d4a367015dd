// The fuzzer's entry point of a target.
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mr4500x::Fuzz(mr4500x::FuzzInput({data, size}));
  return 0;
}
