// The memory of a new simulated radio. It does not use the program's codecs, so that their faults show against it.
#include "radio_memory.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace mr4500x {
namespace {

enum class ToneKind : std::uint8_t { None, Ctcss, Dcs, InvertedDcs };

struct Tone {
  ToneKind kind = ToneKind::None;
  std::uint16_t code = 0; // CTCSS: number of the tone from 1; DCS: the code's three digits in BCD
};

constexpr Tone None;
constexpr Tone Ctcss(std::uint16_t number) {
  return {ToneKind::Ctcss, number};
}
constexpr Tone Dcs(std::uint16_t digits) {
  return {ToneKind::Dcs, digits};
}
constexpr Tone InvertedDcs(std::uint16_t digits) {
  return {ToneKind::InvertedDcs, digits};
}

struct Side {
  std::uint32_t hertz;
  std::uint16_t step; // 2500 or 6250
  Tone tone;
  std::uint8_t ttsEntry; // 1 to 8; 0 for no selective call
};

constexpr std::uint8_t HighPower = 0x80, TailCut = 0x40, Or = 0x20, PttId = 0x10, Wide = 0x08;

struct Channel {
  bool isInUse, mayTransmit;
  Side receive, transmit;
  std::uint8_t options;
  std::uint8_t groupCall; // 0 off, 1 tone A, 2 tone B
};

// clang-format off
constexpr std::array<Channel, 16> Channels = {{
    // in use, Tx, receive: Hz, step, tone, TTS       transmit: Hz, step, tone, TTS          options                       group
    {true,  true,  {440'012'500, 6250, Ctcss(8),  0}, {440'012'500, 6250, Ctcss(8),  0},     HighPower | Or | Wide,          0},
    {true,  true,  {441'500'000, 2500, Dcs(0x023), 0}, {451'500'000, 2500, Dcs(0x023), 0},   HighPower | TailCut | Or,       0},
    {true,  true,  {443'006'250, 6250, InvertedDcs(0x754), 0}, {453'006'250, 6250, Ctcss(39), 0}, Or | PttId | Wide,         0},
    {true,  true,  {445'125'000, 6250, Ctcss(12), 1}, {445'125'000, 6250, Ctcss(12), 3},     HighPower | PttId | Wide,       1},
    {true,  true,  {446'100'000, 2500, None,      2}, {446'100'000, 2500, None,      2},     HighPower | Or,                 2},
    {true,  false, {448'750'000, 6250, None,      0}, {448'750'000, 6250, None,      0},     Or | Wide,                      0},
    {true,  true,  {455'437'500, 6250, Dcs(0x131), 8}, {465'437'500, 6250, Dcs(0x131), 8},   HighPower | TailCut,            0},
    {true,  true,  {469'987'500, 2500, Ctcss(1),  0}, {460'012'500, 2500, Ctcss(20), 0},     HighPower | Or | PttId | Wide,  0},
    {false, true,  {440'000'000, 6250, None,      0}, {440'000'000, 6250, None,      0},     HighPower | Or | Wide,          0},
    {false, true,  {440'000'000, 6250, None,      0}, {440'000'000, 6250, None,      0},     HighPower | Or | Wide,          0},
    {false, true,  {440'000'000, 6250, None,      0}, {440'000'000, 6250, None,      0},     HighPower | Or | Wide,          0},
    {false, true,  {440'000'000, 6250, None,      0}, {440'000'000, 6250, None,      0},     HighPower | Or | Wide,          0},
    {false, true,  {440'000'000, 6250, None,      0}, {440'000'000, 6250, None,      0},     HighPower | Or | Wide,          0},
    {false, true,  {440'000'000, 6250, None,      0}, {440'000'000, 6250, None,      0},     HighPower | Or | Wide,          0},
    {true,  true,  {462'550'000, 2500, Ctcss(38), 0}, {467'550'000, 2500, Ctcss(38), 0},     HighPower | Or | Wide,          0},
    {false, false, {470'000'000, 2500, None,      0}, {470'000'000, 2500, None,      0},     Or | Wide,                      0},
}};
// clang-format on

constexpr bool FrequenciesFitTheirSteps() {
  return std::all_of(Channels.begin(), Channels.end(), [](const Channel& channel) {
    return channel.receive.hertz % channel.receive.step == 0 && channel.transmit.hertz % channel.transmit.step == 0;
  });
}
static_assert(FrequenciesFitTheirSteps());

constexpr std::uint8_t Low(std::uint32_t value) {
  return static_cast<std::uint8_t>(value & 0xFF);
}

// The six bytes of one side: flags, frequency in steps (low byte first), tone code.
constexpr std::array<std::uint8_t, 6> Encode(const Side& side, bool flag) {
  const std::uint32_t count = side.hertz / side.step;
  std::uint8_t flags = flag ? 0x80 : 0x00;
  if (side.tone.kind != ToneKind::None) flags |= 0x10;
  if (side.tone.kind == ToneKind::Ctcss) flags |= 0x20;
  if (side.tone.kind == ToneKind::Dcs) flags |= 0x40;
  if (side.ttsEntry != 0) flags |= 0x04;
  if (side.step == 6250) flags |= 0x01;
  return {flags, Low(count), Low(count >> 8), Low(count >> 16), Low(side.tone.code), Low(side.tone.code >> 8U)};
}

void Put(RadioMemory& memory, std::size_t address, std::initializer_list<std::uint8_t> bytes) {
  std::copy(bytes.begin(), bytes.end(), memory.begin() + static_cast<std::ptrdiff_t>(address));
}

void PutText(RadioMemory& memory, std::size_t address, std::string_view text) {
  std::copy(text.begin(), text.end(), memory.begin() + static_cast<std::ptrdiff_t>(address));
}

void PutChannels(RadioMemory& memory) {
  for (std::size_t i = 0; i < Channels.size(); ++i) {
    const Channel& channel = Channels[i];
    const auto record = memory.begin() + static_cast<std::ptrdiff_t>(16 * i);
    const auto receive = Encode(channel.receive, channel.isInUse);
    const auto transmit = Encode(channel.transmit, channel.mayTransmit);
    std::copy(receive.begin(), receive.end(), record);
    std::copy(transmit.begin(), transmit.end(), record + 6);
    record[12] = channel.options;
    record[13] = channel.receive.ttsEntry;
    record[14] = channel.transmit.ttsEntry;
    record[15] = static_cast<std::uint8_t>(channel.groupCall * 0x11);
  }
}

void PutSettings(RadioMemory& memory) {
  const auto inUse = std::count_if(Channels.begin(), Channels.end(), [](const Channel& c) { return c.isInUse; });
  // clang-format off
  Put(memory, 0x100, {
      0xD6,       // beep tone, compander and beep on, VOX level 1, squelch level 2
      0x22,       // battery save 10 s, transmit time-out 60 s
      0x80,       // selective call by two tones
      0x61,       // scan mode CO, priority channel 2, revert to it
      20, 10, 5,  // TO scan delay 2.0 s, restore time 1.0 s, look back 0.5 s
      10, 10,     // digit and inter-digit time 100 ms
      0xC0, 5, 5, // PTT ID: connect and disconnect, and their digits
      static_cast<std::uint8_t>(inUse),
      0x80,       // manual tuning off
      0x84, 0x00, // scan by signal; 4 digits of emergency ANI
  });
  // clang-format on
  Put(memory, 0x110, {0xC1, 0xC2, 0xC0, 0x00, 0x83, 0x86, 0x00, 0x00}); // emergency, monitor, scan, talk around
  Put(memory, 0x130, {0x21, 0x43, 0x05, 0, 0, 0, 0, 0});                // connect ID 12345
  Put(memory, 0x138, {0x45, 0x23, 0x01, 0, 0, 0, 0, 0});                // disconnect ID 54321
  Put(memory, 0x140, {0xA1, 0x1A, 0, 0, 0, 0, 0, 0});                   // emergency ANI 1001
  std::fill_n(memory.begin() + 0x180, 32, std::uint8_t{5});             // two-tone times 0.5 s
  Put(memory, 0x1C0, {10, 1, 1, 0, 0, 0, 0, 0});                        // reset time 10 s, five-tone standard 1
}

void PutToneTable(RadioMemory& memory) {
  constexpr std::array<std::uint16_t, 16> Hertz = {400, 1141, 456, 1301, 520, 1483, 593,  1690,
                                                   675, 1927, 770, 2197, 878, 2504, 1001, 2855};
  for (std::size_t i = 0; i < Hertz.size(); ++i)
    Put(memory, 0x1C8 + 2 * i, {Low(Hertz[i]), Low(Hertz[i] >> 8U)});
}

// UTF-16, low byte first, padded with 0x00.
void PutEmbeddedText(RadioMemory& memory, std::u16string_view text) {
  std::fill_n(memory.begin() + 0x210, 240, std::uint8_t{0});
  for (std::size_t i = 0; i < text.size(); ++i)
    Put(memory, 0x210 + 2 * i, {Low(text[i]), Low(text[i] >> 8U)});
}

} // namespace

RadioMemory FactoryMemory() {
  RadioMemory memory;
  memory.fill(0xFF); // erased; stays where no setting is
  PutChannels(memory);
  PutSettings(memory);
  PutToneTable(memory);
  PutText(memory, 0x1F0, "LR7200-000004217"); // identity number
  PutText(memory, 0x200, "20240115093000");   // time of the last programming
  Put(memory, 0x20E, {0x00, 0x00});
  PutEmbeddedText(memory, u"Demonstration radio\r\nHandle with care");
  std::fill_n(memory.begin() + 0x300, 128, std::uint8_t{0});            // five-tone codes, none
  Put(memory, 0x3F0, {0xB8, 0x01, 0xD6, 0x01, 0x00, 0x30, 0x00, 0x00}); // band 440 to 470 MHz
  PutText(memory, 0x3F8, "V1.02   ");                                   // firmware version
  return memory;
}

} // namespace mr4500x
