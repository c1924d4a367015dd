// Tests the serial ports, and finds the one that the port dialog preselects.
#pragma once

#include <array>
#include <functional>

#include "serial_port.h"

namespace mr4500x {

// Opens and closes port `number`. Returns the system's reason if it can't be opened.
[[nodiscard]] std::optional<std::string> TestPort(SerialPort& port, int number);

struct PortChoice {
  std::array<std::optional<std::string>, PortCount> failures; // at n - 1: why COMn can't be chosen
  // The port to use until the user chooses: CommPortNumber, or else the lowest that works, or 0 if there is none.
  int number = 0;
  int preselected = 1;
};

[[nodiscard]] PortChoice ChoosePort(int commPortNumber, const std::function<std::optional<std::string>(int)>& test);

} // namespace mr4500x
