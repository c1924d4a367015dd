// The device at which the simulated radio is found: a pseudo-terminal, seen from the radio's end.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <csignal>

namespace mr4500x {

class PseudoTerminal {
public:
  PseudoTerminal() = default;
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  [[nodiscard]] std::optional<std::string> Open(); // on failure the reason
  [[nodiscard]] const std::string& Device() const { return m_device; }

  // Sleeps until bytes come in, the time is over or a signal outside `blocked` arrives.
  void Wait(std::chrono::nanoseconds atMost, const sigset_t& blocked) const;
  [[nodiscard]] std::vector<std::uint8_t> Read() const; // what has come in, possibly nothing
  void Write(std::span<const std::uint8_t> bytes) const;

  // Lets the next program open the device although one that kept it for itself was killed.
  void EndExclusiveUse() const;

private:
  int m_master = -1;
  // Open all the time: without it the device would hang up whenever a program closes it.
  int m_slave = -1;
  std::string m_device;
};

} // namespace mr4500x
