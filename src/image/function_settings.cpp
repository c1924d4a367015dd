#include "function_settings.h"

#include "text.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr std::string_view DigitSymbols = "D1234567890*#ABC"; // the position is the code

void WriteLimit(std::span<std::uint8_t, 2> limit, int megahertz) {
  limit[0] = static_cast<std::uint8_t>(megahertz & 0xFF);
  limit[1] = static_cast<std::uint8_t>((megahertz >> 8) & 0xFF);
}

} // namespace

int LowerBandLimit(std::span<const std::uint8_t, 8> band) {
  return band[0] + 256 * band[1];
}
int UpperBandLimit(std::span<const std::uint8_t, 8> band) {
  return band[2] + 256 * band[3];
}
void SetLowerBandLimit(std::span<std::uint8_t, 8> band, int megahertz) {
  WriteLimit(band.first<2>(), megahertz);
}
void SetUpperBandLimit(std::span<std::uint8_t, 8> band, int megahertz) {
  WriteLimit(band.subspan<2, 2>(), megahertz);
}
void SetSeriesMark(std::span<std::uint8_t, 8> band) {
  band[4] = 0x00;
  band[5] = 0x30;
}

std::string UnpackDigits(std::span<const std::uint8_t, 8> area, int length) {
  std::string text;
  for (int i = 0; i < std::min(length, MostDigits); ++i) {
    const std::uint8_t byte = area[static_cast<std::size_t>(i / 2)];
    text += DigitSymbols[i % 2 == 0 ? byte & 0x0F : byte >> 4];
  }
  return text;
}

void PackDigits(std::string_view text, std::span<std::uint8_t, 8> area) {
  text = text.substr(0, MostDigits);
  std::uint8_t code = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t symbol = DigitSymbols.find(text[i]);
    if (symbol != std::string_view::npos) code = static_cast<std::uint8_t>(symbol);
    std::uint8_t& byte = area[i / 2];
    byte = i % 2 == 0 ? code : static_cast<std::uint8_t>(byte | (code << 4));
  }
}

std::string CharactersText(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    if (byte == 0x00) continue;
    if (byte < 0x20 || (byte >= 0x7F && byte < 0xA0)) {
      text += '.';
    } else if (byte < 0x80) {
      text += static_cast<char>(byte);
    } else {
      text += static_cast<char>(0xC0 | (byte >> 6));
      text += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return text;
}

std::string IdentityNumber(const RadioImage& image) {
  return std::string(Trimmed(CharactersText(image.RadioIdBlock), " "));
}
std::string FirmwareVersion(const RadioImage& image) {
  return std::string(Trimmed(CharactersText(image.FirmwareVersionBlock), " "));
}

std::string BandText(std::span<const std::uint8_t, 8> band) {
  return std::to_string(LowerBandLimit(band)) + " to " + std::to_string(UpperBandLimit(band)) + " MHz";
}

} // namespace mr4500x
