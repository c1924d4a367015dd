// What the driver of an open serial device holds, for which Qt has no operation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace mr4500x {

// Hands over as many bytes as the driver takes without waiting, possibly none. Nothing when the device failed.
[[nodiscard]] std::optional<std::size_t> HandToDriver(int device, std::span<const std::uint8_t> bytes);

// Bytes that the driver has taken and not yet sent. Nothing when the device failed.
[[nodiscard]] std::optional<std::size_t> DriverQueueLength(int device);

// Whether the device is gone: an adapter pulled, the other end of a pseudo-terminal closed.
[[nodiscard]] bool HasHungUp(int device);

} // namespace mr4500x
