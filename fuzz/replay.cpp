// Runs a target with each file of a folder, in builds without a fuzzer.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz_input.h"

int main(int argc, char** argv) {
  int count = 0;
  std::error_code failed;
  for (const auto& entry : std::filesystem::directory_iterator(argc > 1 ? argv[1] : "", failed)) {
    std::printf("%s\n", entry.path().c_str());
    std::fflush(stdout); // a finding aborts the process
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    mr4500x::Fuzz(mr4500x::FuzzInput({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}));
    ++count;
  }
  std::printf("%d inputs\n", count);
  return failed || count == 0 ? 1 : 0;
}
