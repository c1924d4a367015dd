// The serial device of the simulated radio: the radio's side of a pseudo-terminal, and an optional symbolic link to it.
#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include <csignal>

namespace mr4500x {

class PseudoTerminal {
public:
  // Replaces a link of an earlier run, but no other file. Throws if the terminal or the link can't be created.
  explicit PseudoTerminal(const std::string& link); // empty: none
  ~PseudoTerminal();                                // removes the link unless it no longer leads to this device
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  [[nodiscard]] const std::string& Device() const { return m_device; }

  // Waits for bytes, the end of the time, or a signal that is not in `blocked`.
  void Wait(std::chrono::nanoseconds atMost, const sigset_t& blocked) const;
  [[nodiscard]] std::vector<std::uint8_t> Read() const;
  void Write(std::span<const std::uint8_t> bytes) const;

  // Allows other programs to open the device after a program with exclusive access was killed.
  void EndExclusiveUse() const;

private:
  void MakeLink(const std::string& path);

  int m_master = -1;
  // Kept open. Otherwise the device would hang up whenever a program closes it.
  int m_slave = -1;
  std::string m_device;
  std::string m_link;
};

} // namespace mr4500x
