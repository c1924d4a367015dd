// The parts of a session with the radio, one by one, over a line that is open: waking the radio up, reading and writing
// records, ending. exchange.h makes the whole exchanges of them.
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

// How patiently the radio is read. A round is 20 ms.
struct ReadPace {
  int tries; // to wake it up
  int wakeUpRounds;
  Milliseconds afterWakeUp;
  Milliseconds afterReply;
};

struct WritePace {
  int tries;
  int wakeUpRounds;
  Milliseconds afterRecord;
  int acknowledgeRounds;
  int statusRounds; // 0: the status must be there when it is asked for
};

using Addresses = std::span<const std::uint16_t>; // of records
using RecordData = std::array<std::uint8_t, RecordBytes>;

// 52 bb bb bb bb 00 30 xx xx: bb the band, xx not examined
struct Identity {
  std::array<std::uint8_t, 9> bytes{};

  [[nodiscard]] bool IsOfThisSeries() const { return bytes[0] == 0x52 && bytes[5] == 0x00 && bytes[6] == 0x30; }
  [[nodiscard]] std::span<const std::uint8_t, 4> Band() const { return std::span(bytes).subspan<1, 4>(); }
};

// Whether the radio is ready to be read.
[[nodiscard]] bool WakeToRead(SerialLine& line, const ReadPace& pace);
// Nothing when the radio does not answer in full.
[[nodiscard]] std::optional<Identity> WakeToWrite(SerialLine& line, const WritePace& pace);

enum class Moved : std::uint8_t {
  All,
  PortFailed,
  BadAnswer, // short, missing, or another than it should be
  Refused,   // by the caller's function
};

// Gives each reply to `take`. Its address need not be the one that was asked for.
[[nodiscard]] Moved ReadRecords(SerialLine& line, const ReadPace& pace, Addresses addresses,
                                const std::function<bool(std::span<const std::uint8_t>)>& take);
// Stores a reply at the address that it carries. False when it does not fit there.
[[nodiscard]] bool PlaceReply(RadioImage& image, std::span<const std::uint8_t> reply);
// The same for a reply of the page of write stamp and embedded information, from any byte of it on. Replies of other
// pages are dropped.
[[nodiscard]] bool PlaceInfoReply(RadioImage& image, std::span<const std::uint8_t> reply);

// To be called once before the first record. False: the port failed.
[[nodiscard]] bool PrepareToWrite(SerialLine& line);
// Takes the data of each record from `give`; `written` is called while a record is on its way.
[[nodiscard]] Moved WriteRecords(SerialLine& line, const WritePace& pace, Addresses addresses,
                                 const std::function<std::optional<RecordData>(std::uint16_t)>& give,
                                 const std::function<void()>& written);

[[nodiscard]] bool EndReading(SerialLine& line);
// Ends a write, which the radio answers with its status, and a session of either kind that went wrong.
[[nodiscard]] bool EndSession(SerialLine& line);
// Whether the radio is content with what was written.
[[nodiscard]] bool AwaitGoodStatus(SerialLine& line, const WritePace& pace);

} // namespace mr4500x
