#include "port_choice.h"

#include "serial_line.h"

#include <algorithm>
#include <cstddef>

namespace mr4500x {

std::optional<std::string> TestPort(SerialPort& port, int number) {
  port.SetPortNumber(number);
  std::optional<std::string> failure = port.IsOpen() ? std::nullopt : port.Open(RadioLine);
  if (!failure && port.IsOpen()) port.Close();
  return failure;
}

PortChoice ChoosePort(int commPortNumber, const std::function<std::optional<std::string>(int)>& test) {
  PortChoice choice;
  choice.number = commPortNumber;
  int lowest = 0;
  for (int n = PortCount; n >= 1; --n) {
    std::optional<std::string>& failure = choice.failures[static_cast<std::size_t>(n - 1)] = test(n);
    if (!failure)
      lowest = n;
    else if (n == commPortNumber)
      choice.number = 0;
  }
  if (choice.number == 0) choice.number = lowest;
  choice.preselected = std::clamp(choice.number, 1, PortCount);
  return choice;
}

} // namespace mr4500x
