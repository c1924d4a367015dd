#include "faults.h"

#include <algorithm>
#include <charconv>

namespace mr4500x {
namespace {

// clang-format off
constexpr FaultKind Kinds[] = {
    {Fault::Silent,           "silent",            true,  "never answers; at RECORD: does not answer that record"},
    {Fault::WrongAnswer,      "wrong-answer",      false, "answers a wake-up with 15"},
    {Fault::LateAnswer,       "late-answer",       false, "answers only the third wake-up in a row"},
    {Fault::ShortIdentity,    "short-identity",    false, "sends 8 identity bytes instead of 9"},
    {Fault::WrongModel,       "wrong-model",       false, "identifies itself as another model"},
    {Fault::OtherBand,        "other-band",        false, "reports another frequency band than it has"},
    {Fault::ShortReply,       "short-reply",       true,  "leaves out the last byte of a record reply"},
    {Fault::ForeignReply,     "foreign-reply",     true,  "starts a record reply with 58 instead of 57"},
    {Fault::WrongAddress,     "wrong-address",     true,  "echoes address 0300 whatever was asked for"},
    {Fault::BadCount,         "bad-count",         true,  "claims 16 data bytes in a record reply that has 8"},
    {Fault::LongReply,        "long-reply",        true,  "adds a 13th byte to a record reply"},
    {Fault::WrongAcknowledge, "wrong-acknowledge", true,  "acknowledges a record write with 15"},
    {Fault::NoAcknowledge,    "no-acknowledge",    true,  "does not acknowledge a record write"},
    {Fault::Ng,               "ng",                false, "ends a write with the status NG"},
    {Fault::LateStatus,       "late-status",       false, "sends the status of a write 400 ms late"},
    {Fault::LongStatus,       "long-status",       false, "sends a status of 3 bytes"},
    {Fault::Garbage,          "garbage",           true,  "sends two bytes of noise before an answer"},
    {Fault::SplitReply,       "split-reply",       true,  "pauses 50 ms amid a record reply or the identity"},
    {Fault::WrongByte,        "wrong-byte",        true,  "stores a record write with another last byte"},
    {Fault::Vanish,           "vanish",            true,  "pulls the cable at RECORD (10 if not given) and ends"},
};
// clang-format on

constexpr int VanishRecord = 10; // in the middle of every exchange

} // namespace

std::span<const FaultKind> FaultKinds() {
  return Kinds;
}

std::optional<PlannedFault> ParseFault(std::string_view text) {
  const std::size_t at = std::min(text.find('@'), text.size());
  const auto* const kind = std::ranges::find(Kinds, text.substr(0, at), &FaultKind::name);
  if (kind == std::end(Kinds)) return std::nullopt;
  PlannedFault planned{kind->fault, std::nullopt};
  if (kind->fault == Fault::Vanish) planned.record = VanishRecord;
  if (at == text.size()) return planned;
  int record = 0;
  const char* const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data() + at + 1, last, record);
  if (!kind->takesRecord || error != std::errc() || end != last || record < 0) return std::nullopt;
  planned.record = record;
  return planned;
}

} // namespace mr4500x
