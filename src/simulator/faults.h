// The faults of a simulated radio, during the whole session or at one record.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace mr4500x {

// clang-format off
enum class Fault : std::uint8_t {
    Silent, WrongAnswer, LateAnswer, ShortIdentity, WrongModel, OtherBand, ShortReply, ForeignReply, WrongAddress,
    BadCount, LongReply, WrongAcknowledge, NoAcknowledge, Ng, LateStatus, LongStatus, Garbage, SplitReply, WrongByte, Vanish,
};
// clang-format on

struct FaultKind {
  Fault fault;
  std::string_view name;
  bool takesRecord; // NAME@RECORD limits it to one record, counted from 0 in each session
  std::string_view description;
};

[[nodiscard]] std::span<const FaultKind> FaultKinds();

struct PlannedFault {
  Fault fault;
  std::optional<int> record; // nullopt: throughout the session
};

// "NAME" or "NAME@RECORD".
[[nodiscard]] std::optional<PlannedFault> ParseFault(std::string_view text);

} // namespace mr4500x
