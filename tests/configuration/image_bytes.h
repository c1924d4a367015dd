// The bytes of an image in tables of test cases.
#pragma once

#include "radio_image.h"
#include "rows.h"

namespace mr4500x {

// Bytes as "010=05 06 308=45": those from an address on.
inline void PutBytes(RadioImage& image, const std::string& bytes) {
  std::istringstream in(bytes);
  std::uint16_t address = 0;
  for (std::string word; in >> word; ++address) {
    const std::size_t equals = word.find('=');
    if (equals != std::string::npos) address = static_cast<std::uint16_t>(std::stoul(word, nullptr, 16));
    const BlockLocation& place = *LocationOf(address);
    BlockBytes(image, place.block)[address - place.address] = BytesOf(word.substr(equals + 1)).at(0);
  }
}

} // namespace mr4500x
