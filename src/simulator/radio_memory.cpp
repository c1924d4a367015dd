#include "radio_memory.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace mr4500x {
namespace {

constexpr std::size_t IdentityNumber = 0x1F0;

namespace fs = std::filesystem;

// Written as bytes, without the program's codecs, so that faults of the codecs show up. clang-format off
constexpr struct {
  std::size_t address;
  const char* bytes;
} FactoryRecords[] = {
    // Channels: receiver, transmitter (flags, frequency in steps, tone), options, selective calls
    {0x000, "B1 02 13 01 08 00  B1 02 13 01 08 00  A8 00 00 00"}, // 440.0125 MHz, CTCSS 88.5
    {0x010, "D0 D8 B1 02 23 00  D0 78 C1 02 23 00  E0 00 00 00"}, // 441.5 / 451.5 MHz in steps of 2.5 kHz, DCS 023
    {0x020,
     "91 E1 14 01 54 07  B1 21 1B 01 27 00  38 00 00 00"}, // 443.00625 / 453.00625 MHz, inverted DCS 754 / CTCSS 69.3
    {0x030,
     "B5 34 16 01 0C 00  B5 34 16 01 0C 00  98 01 03 11"}, // 445.125 MHz, CTCSS 100.0, TTS 1 / TTS 3, group call tone A
    {0x040, "84 08 B9 02 00 00  84 08 B9 02 00 00  A0 02 02 22"}, // 446.1 MHz, TTS 2, group call tone B
    {0x050, "81 78 18 01 00 00  01 78 18 01 00 00  28 00 00 00"}, // 448.75 MHz, no transmission
    {0x060, "D5 A6 1C 01 31 01  D5 E6 22 01 31 01  C0 08 08 00"}, // 455.4375 / 465.4375 MHz, DCS 131, TTS 8
    {0x070, "B0 5B DE 02 01 00  B0 C5 CE 02 14 00  B8 00 00 00"}, // 469.9875 / 460.0125 MHz, CTCSS 67.0 / 131.8
    {0x080, "01 00 13 01 00 00  81 00 13 01 00 00  A8 00 00 00"}, // not in use
    {0x090, "01 00 13 01 00 00  81 00 13 01 00 00  A8 00 00 00"},
    {0x0A0, "01 00 13 01 00 00  81 00 13 01 00 00  A8 00 00 00"},
    {0x0B0, "01 00 13 01 00 00  81 00 13 01 00 00  A8 00 00 00"},
    {0x0C0, "01 00 13 01 00 00  81 00 13 01 00 00  A8 00 00 00"},
    {0x0D0, "01 00 13 01 00 00  81 00 13 01 00 00  A8 00 00 00"},
    {0x0E0, "B0 BC D2 02 26 00  B0 8C DA 02 26 00  A8 00 00 00"}, // 462.55 / 467.55 MHz, CTCSS 250.3
    {0x0F0, "00 60 DE 02 00 00  00 60 DE 02 00 00  28 00 00 00"}, // neither in use nor transmitting

    {0x100, "D6 22"},       // beep tone, compander, beep, VOX 1, squelch 2; battery save 10 s, time-out 60 s
    {0x102, "80 61"},       // two-tone signaling; scan mode CO, priority channel 2, revert to it
    {0x104, "14 0A 05"},    // TO scan delay 2.0 s, restore time 1.0 s, look back 0.5 s
    {0x107, "0A 0A"},       // digit and inter-digit time 100 ms
    {0x109, "C0 05 05"},    // PTT ID: connect and disconnect, 5 digits each
    {0x10C, "09 80 84 00"}, // 9 channels; manual tuning off; scan by signal, 4 digits of emergency ANI
    {0x110, "C1 C2 C0 00 83 86 00 00"},                          // emergency, monitor, scan, talk around
    {0x130, "21 43 05 00 00 00 00 00"},                          // connect ID 12345
    {0x138, "45 23 01 00 00 00 00 00"},                          // disconnect ID 54321
    {0x140, "A1 1A 00 00 00 00 00 00"},                          // emergency ANI 1001
    {0x180, "05 05 05 05 05 05 05 05  05 05 05 05 05 05 05 05"}, // two-tone times 0.5 s
    {0x190, "05 05 05 05 05 05 05 05  05 05 05 05 05 05 05 05"},
    {0x1C0, "0A 01 01 00 00 00 00 00"},                            // reset time 10 s, 5-tone standard 1
    {0x1C8, "90 01 75 04  C8 01 15 05  08 02 CB 05  51 02 9A 06"}, // two-tone pairs: 400 and 1141 Hz ...
    {0x1D8, "A3 02 87 07  02 03 95 08  6E 03 C8 09  E9 03 27 0B"},
    {0x20E, "00 00"},
    {0x3F0, "B8 01 D6 01 00 30 00 00"}, // band 440 to 470 MHz
};
constexpr std::pair<std::size_t, std::string_view> FactoryTexts[] = {
    {IdentityNumber, "LR7200-000004217"},
    {0x200, "20240115093000"}, // time of the last programming
    {0x3F8, "V1.02   "},       // firmware version
};
// clang-format on
constexpr std::u16string_view EmbeddedText = u"Demonstration radio\r\nHandle with care";

} // namespace

RadioMemory FactoryMemory() {
  RadioMemory memory;
  memory.fill(0xFF);                                        // erased; stays where no setting is
  std::fill_n(memory.begin() + 0x210, 240, std::uint8_t{}); // after the embedded text
  std::fill_n(memory.begin() + 0x300, 128, std::uint8_t{}); // no 5-tone codes
  for (const auto& [address, bytes] : FactoryRecords) {
    auto next = memory.begin() + static_cast<std::ptrdiff_t>(address);
    char* rest = nullptr;
    for (const char* text = bytes; *text != '\0'; text = rest)
      *next++ = static_cast<std::uint8_t>(std::strtoul(text, &rest, 16));
  }
  for (const auto& [address, text] : FactoryTexts)
    std::copy(text.begin(), text.end(), memory.begin() + static_cast<std::ptrdiff_t>(address));
  for (std::size_t i = 0; i < EmbeddedText.size(); ++i) // ASCII in UTF-16, low byte first
    memory[0x210 + 2 * i] = static_cast<std::uint8_t>(EmbeddedText[i]);
  return memory;
}

void SetIdentityNumber(RadioMemory& memory, std::string_view number) {
  const auto place = memory.begin() + IdentityNumber;
  std::fill_n(place, IdentityCharacters, ' ');
  std::copy_n(number.begin(), std::min(number.size(), IdentityCharacters), place);
}

RadioMemory LoadOrCreate(const std::string& path) {
  RadioMemory memory = FactoryMemory();
  std::error_code unknown;
  if (!fs::exists(path, unknown) && !unknown) {
    Store(path, memory);
    return memory;
  }
  std::ifstream file;
  if (fs::is_regular_file(path, unknown)) file.open(path, std::ios::binary); // not a pipe, which would be waited for
  file.read(reinterpret_cast<char*>(memory.data()), RadioMemoryBytes);
  if (!file || file.peek() != std::ifstream::traits_type::eof())
    throw std::runtime_error(path + " is not a memory file of " + std::to_string(RadioMemoryBytes) + " bytes");
  return memory;
}

void Store(const std::string& path, const RadioMemory& memory) {
  const std::string fresh = path + ".new";
  std::error_code failure;
  {
    std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(memory.data()), RadioMemoryBytes);
    file.close();
    if (!file) failure = {errno, std::generic_category()};
  }
  if (!failure) fs::rename(fresh, path, failure);
  if (!failure) return;
  std::error_code ignored;
  fs::remove(fresh, ignored);
  throw std::runtime_error("cannot write " + path + ": " + failure.message());
}

} // namespace mr4500x
