// The failures that a simulated radio can be asked to show, by name, for all of a session or at one record of it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace mr4500x {

enum class Fault : std::uint8_t {
  Silent,
  WrongAnswer,
  LateAnswer,
  ShortIdentity,
  WrongModel,
  OtherBand,
  ShortReply,
  ForeignReply,
  WrongAddress,
  BadCount,
  LongReply,
  WrongAcknowledge,
  NoAcknowledge,
  Ng,
  LateStatus,
  LongStatus,
  Garbage,
  SplitReply,
  Vanish,
};

struct FaultKind {
  Fault fault;
  std::string_view name;
  bool takesRecord; // NAME@RECORD confines it to one record, counted from 0 in each session
  std::string_view description;
};

[[nodiscard]] std::span<const FaultKind> FaultKinds();

struct PlannedFault {
  Fault fault;
  std::optional<int> record;
};

// "NAME" or "NAME@RECORD".
[[nodiscard]] std::optional<PlannedFault> ParseFault(std::string_view text);

class FaultPlan {
public:
  FaultPlan() = default;
  explicit FaultPlan(std::vector<PlannedFault> faults) : m_faults(std::move(faults)) {}

  [[nodiscard]] bool Throughout(Fault fault) const;     // planned for the whole session
  [[nodiscard]] bool At(Fault fault, int record) const; // planned for the session or just this record

private:
  std::vector<PlannedFault> m_faults;
};

} // namespace mr4500x
