// Which serial ports work and which one the port dialog preselects.
#pragma once

#include <array>
#include <functional>

#include "serial_port.h"

namespace mr4500x {

// Whether port `number` can be opened and closed again.
[[nodiscard]] bool TestPort(SerialPort& port, int number);

struct PortChoice {
  std::array<bool, PortCount> enabled{}; // option COMn at n - 1
  // The port to use until the user chooses: CommPortNumber, else the lowest that works, 0 if none does.
  int number = 0;
  int preselected = 1;
};

[[nodiscard]] PortChoice ChoosePort(int commPortNumber, const std::function<bool(int)>& portWorks);

} // namespace mr4500x
