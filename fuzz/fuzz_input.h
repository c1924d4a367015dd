// The input of the fuzz targets, taken piece by piece, and their checks.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <utility>

namespace mr4500x {

// Aborts with a message unless the condition holds.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "Does not hold: %s\n", what);
  std::abort();
}

// Past its end the input continues with zeros.
class FuzzInput {
public:
  explicit FuzzInput(std::span<const std::uint8_t> bytes) : m_rest(bytes) {}

  [[nodiscard]] bool IsEmpty() const { return m_rest.empty(); }
  std::uint8_t Byte() {
    if (m_rest.empty()) return 0;
    const std::uint8_t byte = m_rest.front();
    m_rest = m_rest.subspan(1);
    return byte;
  }
  int Below(int end) { return Byte() % end; }
  // A length byte and that many bytes, or what is left.
  std::string Text() {
    const std::size_t length = Byte();
    const auto taken = m_rest.first(std::min(length, m_rest.size()));
    m_rest = m_rest.subspan(taken.size());
    return {taken.begin(), taken.end()};
  }
  std::string Rest() {
    const auto taken = std::exchange(m_rest, {});
    return {taken.begin(), taken.end()};
  }

private:
  std::span<const std::uint8_t> m_rest;
};

void Fuzz(FuzzInput input); // defined by each target, called by the fuzzer and the replay

} // namespace mr4500x
