// The frames on the line and the steps that the exchanges share. For the exchanges' own use.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "exchange.h"

namespace mr4500x {

using RecordData = std::array<std::uint8_t, RecordBytes>;

inline constexpr std::size_t RecordHeaderBytes = 4; // 57, address high, address low, count
inline constexpr std::size_t RecordFrameBytes = RecordHeaderBytes + RecordBytes;
inline constexpr std::size_t IdentityBytes = 9;
inline constexpr int ProgressPerRecord = 5;
inline constexpr Milliseconds BeforeClosingProgress{50};

// 72 45 41 44: "rEAD", answered by 06
inline constexpr std::array<std::uint8_t, 4> ReadWord = {0x72, 0x45, 0x41, 0x44};
// 77 52 49 54 45: "wRITE", answered by the identity
inline constexpr std::array<std::uint8_t, 5> WriteWord = {0x77, 0x52, 0x49, 0x54, 0x45};
// 57 AA AA AA: ends a read, not answered
inline constexpr std::array<std::uint8_t, 4> EndOfRead = {0x57, 0xAA, 0xAA, 0xAA};
// 57 AA AA AA 55 55 55 55 55 55 55 55: ends a write, answered by a status, and whatever went wrong
inline constexpr std::array<std::uint8_t, 12> EndOfSession = {0x57, 0xAA, 0xAA, 0xAA, 0x55, 0x55,
                                                              0x55, 0x55, 0x55, 0x55, 0x55, 0x55};

struct WakeUpCall {
  std::span<const std::uint8_t> word;
  int tries;
  std::size_t answerBytes; // that end the tries
  int rounds;              // of 20 ms for each try
  Milliseconds afterAnswer;
};

// What the radio answered, possibly nothing. std::nullopt: the port failed, here and in the other steps.
[[nodiscard]] std::optional<LineBytes> WakeUp(SerialLine& line, const WakeUpCall& call);

// Polls, receives, pauses and discards what came after.
[[nodiscard]] std::optional<LineBytes> AwaitReply(SerialLine& line, std::size_t count, int rounds,
                                                  Milliseconds pause = Milliseconds{0});

// Requests one record and returns the radio's reply.
[[nodiscard]] std::optional<LineBytes> RequestRecord(SerialLine& line, std::uint16_t address, Milliseconds afterReply);

// 57 hi lo 08 d0 d1 d2 d3 d4 d5 d6 d7
[[nodiscard]] std::array<std::uint8_t, RecordFrameBytes> RecordWrite(std::uint16_t address, const RecordData& data);

[[nodiscard]] bool IsAcknowledge(std::span<const std::uint8_t> reply);
[[nodiscard]] bool IsRecordReply(std::span<const std::uint8_t> reply);
[[nodiscard]] bool IsOfThisSeries(std::span<const std::uint8_t> identity);
// The status after a write: two bytes other than "NG".
[[nodiscard]] bool IsGoodStatus(std::span<const std::uint8_t> status);

// The address that a record reply carries; it need not be the one requested.
[[nodiscard]] std::uint16_t ReplyAddress(std::span<const std::uint8_t> reply);
// Stores a record reply at the address it carries. False when it does not fit there.
[[nodiscard]] bool PlaceReply(RadioImage& image, std::span<const std::uint8_t> reply);

[[nodiscard]] bool SendEndOfSession(SerialLine& line);

// How an exchange ends that went wrong once it had begun.
struct Failure {
  Outcome outcome;
  std::string_view title;
  std::string_view text;
  bool endsSession = false; // the radio still takes part: tell it that the session is over
};

// Closes the progress window, ends the session where that helps, closes the port, and only then shows the message,
// so that neither the radio nor the port has to wait for the user.
[[nodiscard]] Outcome Fail(const Exchange& exchange, const Failure& failure);
[[nodiscard]] Outcome FailToOpen(const Exchange& exchange);
[[nodiscard]] Outcome FailWithoutResponse(const Exchange& exchange);
[[nodiscard]] Outcome FailWithWrongModel(const Exchange& exchange);

void ShowCompletion(const Exchange& exchange, std::string_view title, std::string_view text);

} // namespace mr4500x
