// Images with any bytes, as a radio may hold them.
#pragma once

#include "function_settings.h"
#include "signaling.h"

#include <random>

namespace mr4500x {

inline RadioImage RandomImage(std::mt19937& random) {
  RadioImage image;
  for (const BlockLocation& place : RecordMap)
    for (std::uint8_t& byte : BlockBytes(image, place.block))
      byte = static_cast<std::uint8_t>(random());
  for (std::uint8_t& key : image.KeyProgramBlock)
    if (random() % 2 == 0) key = std::array<std::uint8_t, 4>{0x86, 0x87, 0xC0, 0x8A}[random() % 4]; // keys with rules
  image.ResetTimeBlock[StandardByte] = static_cast<std::uint8_t>(1 + random() % 12);
  return image;
}

} // namespace mr4500x
