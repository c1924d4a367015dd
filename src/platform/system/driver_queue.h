// Access to a serial driver's transmit queue, which Qt does not offer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace mr4500x {

// Writes without blocking. Returns the number of bytes taken, possibly 0, or nullopt if the device failed.
[[nodiscard]] std::optional<std::size_t> HandToDriver(int device, std::span<const std::uint8_t> bytes);

// Bytes that the driver has not sent yet; nullopt if the device failed.
[[nodiscard]] std::optional<std::size_t> DriverQueueLength(int device);

// Whether the device is gone: an adapter unplugged, the other end of a pseudo-terminal closed.
[[nodiscard]] bool HasHungUp(int device);

} // namespace mr4500x
