// Which serial ports work, and which of them the port dialog offers first. Showing them is left to the dialog.
#pragma once

#include <array>
#include <functional>

#include "serial_port.h"

namespace mr4500x {

inline constexpr int PortCount = 16; // COM1 to COM16

// Whether port `number` can be opened and closed again.
[[nodiscard]] bool TestPort(SerialPort& port, int number);

struct PortChoice {
  std::array<bool, PortCount> enabled{}; // option COMn at n - 1
  // The port to use when none is chosen: CommPortNumber, or the lowest that works in its place; 0 for none.
  int number = 0;
  int preselected = 1; // the option that the dialog opens with
};

[[nodiscard]] PortChoice ChoosePort(int commPortNumber, const std::function<bool(int)>& portWorks);

} // namespace mr4500x
