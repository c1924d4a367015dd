// The serial ports of this machine. They need neither an application object nor an event loop: each operation polls the
// device.
#pragma once

#include "port_devices.h"
#include "serial_port.h"

#include <functional>
#include <memory>
#include <string>

namespace mr4500x {

using DeviceLookup = std::function<PortDevice(int)>; // returns the device of a port number

[[nodiscard]] std::unique_ptr<SerialPort> MakeSerialPort(DeviceLookup lookup);
[[nodiscard]] std::unique_ptr<SerialPort>
MakeSerialPort(const std::string& device); // uses this device for every port number

} // namespace mr4500x
