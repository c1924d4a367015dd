// Every setting by name, in one table: what the command line's table and JSON, the windows' labels and the scripts go
// by. A setting's identifier is its path in the JSON document ("global.tx_tot", "channels.3.rx_freq"; entries count
// from 1). Changing a setting is set_field.h's business.
#pragma once

#include "configuration.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace mr4500x {

// The object or array of the JSON document that a setting stands in.
enum class FieldGroup : std::uint8_t { None, Band, Global, Scan, Keys, Tts, Channels };

enum class FieldKind : std::uint8_t {
  Choice,      // one of a list's texts
  WholeNumber, // within a range
  Digits,      // up to 16 DTMF symbols
  Frequency,   // MHz, on the channel's step grid and within the band
  YesNo,       // "true" or "false"
};

// Settings that the configuration holds neither in a list nor in a cell.
enum class Box : std::uint8_t {
  LowerBandLimit,
  UpperBandLimit,
  EmergencyAni,
  ConnectId,
  DisconnectId,
  ScanSignal,
  AutoResetTime, // "OFF" or seconds
  InUse,         // of a channel, as the next
  TxAllowed,
};

using FieldPlace = std::variant<ChoiceList, Key, Box, TtsColumn, GridColumn>;

struct Field {
  FieldGroup group;
  std::string_view key; // in its group
  std::string_view label;
  FieldKind kind;
  FieldPlace place;
};

// The rows of the table in the order of the JSON document.
[[nodiscard]] std::span<const Field> Fields();

// The name of a group in the document, "" for None, and how many entries it has: 8 and 16 for the arrays, else 1.
[[nodiscard]] std::string_view NameOf(FieldGroup group);
[[nodiscard]] std::size_t EntriesOf(FieldGroup group);
[[nodiscard]] constexpr bool IsArray(FieldGroup group) {
  return group == FieldGroup::Tts || group == FieldGroup::Channels;
}

// One setting: a row of the table and, in an array, the entry from 1.
struct FieldAt {
  const Field* field = nullptr;
  std::size_t entry = 1;
  bool operator==(const FieldAt&) const = default;
};

[[nodiscard]] std::string IdentifierOf(FieldAt at);
[[nodiscard]] std::optional<FieldAt> FindField(std::string_view identifier);

// The row of a setting that exists once, or of a column.
[[nodiscard]] const Field& FieldOf(FieldPlace place);
[[nodiscard]] inline std::string_view LabelOf(FieldPlace place) {
  return FieldOf(place).label;
}

// What the editor shows of a setting; "" for a list without a selection.
[[nodiscard]] std::string TextOf(const Configuration& configuration, FieldAt at);

} // namespace mr4500x
