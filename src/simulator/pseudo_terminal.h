// The serial device of the simulated radio: a pseudo-terminal, seen from the radio's side, and a symbolic link to it
// with a name of the user's choice.
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
  // A link of an earlier run is replaced, but nothing else. Throws if one of them can't be made.
  explicit PseudoTerminal(const std::string& link); // empty: none
  ~PseudoTerminal();                                // removes the link unless it no longer leads to this device
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  [[nodiscard]] const std::string& Device() const { return m_device; }

  // Waits for bytes, the end of the time, or a signal that is not in `blocked`.
  void Wait(std::chrono::nanoseconds atMost, const sigset_t& blocked) const;
  [[nodiscard]] std::vector<std::uint8_t> Read() const;
  void Write(std::span<const std::uint8_t> bytes) const;

  // Lets a program open the device after one that had it exclusively was killed.
  void EndExclusiveUse() const;

private:
  void MakeLink(const std::string& path);

  int m_master = -1;
  // Kept open, or the device would hang up whenever a program closes it.
  int m_slave = -1;
  std::string m_device;
  std::string m_link;
};

} // namespace mr4500x
