// The steps of a session with the radio on an open line: wake-up, reading and writing records, ending. exchange.h puts
// them together.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "radio_image.h"
#include "serial_line.h"

namespace mr4500x {

// The pace of the records. Quick sends the next one as soon as the last answer is complete. If an answer is missing or
// wrong, its record is repeated, and the rest is Prescribed, with its waits.
enum class Speed : std::uint8_t { Prescribed, Quick };

// The tries, 20 ms rounds and waits of a read.
struct ReadPace {
  int tries; // tries of the wake-up
  int wakeUpRounds;
  Milliseconds afterWakeUp;
  Milliseconds afterReply;
};

struct WritePace {
  int tries;
  int wakeUpRounds;
  Milliseconds afterRecord;
  int acknowledgeRounds;
  int statusRounds; // 0: the status must have arrived already
};

using Addresses = std::span<const std::uint16_t>; // addresses of records
using RecordData = std::array<std::uint8_t, RecordBytes>;

// 52 bb bb bb bb 00 30 xx xx: bb is the band, xx is ignored
struct Identity {
  std::array<std::uint8_t, 9> bytes{};

  [[nodiscard]] bool IsOfThisSeries() const { return bytes[0] == 0x52 && bytes[5] == 0x00 && bytes[6] == 0x30; }
  [[nodiscard]] std::span<const std::uint8_t, 4> Band() const { return std::span(bytes).subspan<1, 4>(); }
};

[[nodiscard]] bool WakeToRead(SerialLine& line, const ReadPace& pace);
// nullopt unless the radio answers with all 9 bytes.
[[nodiscard]] std::optional<Identity> WakeToWrite(SerialLine& line, const WritePace& pace);

enum class Moved : std::uint8_t {
  All,
  PortFailed,
  BadAnswer, // wrong, short or missing
  Refused,   // by `take` or `give`
};

// Passes each reply to `take`. Its address may differ from the requested one.
[[nodiscard]] Moved ReadRecords(SerialLine& line, const ReadPace& pace, Speed speed, Addresses addresses,
                                const std::function<bool(std::span<const std::uint8_t>)>& take);
// Stores a reply at the address that it carries. False if it does not fit there.
[[nodiscard]] bool PlaceReply(RadioImage& image, std::span<const std::uint8_t> reply);
// Stores a reply of the page with write stamp and embedded information, at any address. Ignores replies for other
// pages.
[[nodiscard]] bool PlaceInfoReply(RadioImage& image, std::span<const std::uint8_t> reply);

// Call once before the first record. False if the port failed.
[[nodiscard]] bool PrepareToWrite(SerialLine& line);
// Takes the data of each record from `give`. Calls `written` while a record is being sent, also when it is repeated.
[[nodiscard]] Moved WriteRecords(SerialLine& line, const WritePace& pace, Speed speed, Addresses addresses,
                                 const std::function<std::optional<RecordData>(std::uint16_t)>& give,
                                 const std::function<void()>& written);

[[nodiscard]] bool EndReading(SerialLine& line);
// Ends a write. The radio answers with its status.
[[nodiscard]] bool EndSession(SerialLine& line);
// Ends a failed session before the port is closed. It does not matter whether the packet arrives.
void LeaveSession(SerialLine& line);
[[nodiscard]] bool AwaitGoodStatus(SerialLine& line, const WritePace& pace);

} // namespace mr4500x
