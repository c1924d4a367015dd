#include "port_choice.h"

#include "serial_line.h"

#include <algorithm>
#include <cstddef>

namespace mr4500x {

bool TestPort(SerialPort& port, int number) {
  port.SetPortNumber(number);
  if (!port.IsOpen() && port.Open(RadioLine)) return false;
  if (port.IsOpen()) port.Close();
  return true;
}

PortChoice ChoosePort(int commPortNumber, const std::function<bool(int)>& portWorks) {
  PortChoice choice;
  choice.number = commPortNumber;
  int lowest = 0;
  for (int n = PortCount; n >= 1; --n) {
    const bool works = portWorks(n);
    choice.enabled[static_cast<std::size_t>(n - 1)] = works;
    if (works)
      lowest = n;
    else if (n == commPortNumber)
      choice.number = 0;
  }
  if (choice.number == 0) choice.number = lowest;
  choice.preselected = std::clamp(choice.number, 1, PortCount);
  return choice;
}

} // namespace mr4500x
