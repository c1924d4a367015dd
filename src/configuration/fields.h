// The table of all settings, for JSON and table output, labels and scripts. A setting's identifier is its path in the
// JSON document: "global.tx_tot", "channels.3.rx_freq" (entries count from 1). set_field.h changes settings.
#pragma once

#include "configuration.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace mr4500x {

// The object or array of the JSON document that contains a setting.
enum class FieldGroup : std::uint8_t { None, Band, Global, Scan, Keys, Tts, Channels };

enum class FieldKind : std::uint8_t {
  Choice,      // one of a list's texts
  WholeNumber, // within a range
  Digits,      // up to 16 DTMF symbols
  Frequency,   // MHz, on the channel's step grid and within the band
  YesNo,       // "true" or "false"
};

// Settings that are neither lists nor cells.
enum class Box : std::uint8_t {
  LowerBandLimit,
  UpperBandLimit,
  EmergencyAni,
  ConnectId,
  DisconnectId,
  ScanSignal,
  AutoResetTime, // "OFF" or seconds
  InUse,         // a setting of a channel, like TxAllowed
  TxAllowed,
};
inline constexpr std::size_t BoxCount = 9;

using FieldPlace = std::variant<ChoiceList, Key, Box, TtsColumn, GridColumn>;

struct Field {
  FieldGroup group;
  std::string_view key; // unique in its group
  std::string_view label;
  FieldKind kind;
  FieldPlace place;
};

// In the order of the JSON document.
[[nodiscard]] std::span<const Field> Fields();

// The group's name in the document, "" for None; its number of entries is 8 and 16 for the arrays, else 1.
[[nodiscard]] std::string_view NameOf(FieldGroup group);
[[nodiscard]] std::size_t EntriesOf(FieldGroup group);
[[nodiscard]] constexpr bool IsArray(FieldGroup group) {
  return group == FieldGroup::Tts || group == FieldGroup::Channels;
}

// A row of the table and, in an array, the entry from 1.
struct FieldAt {
  const Field* field = nullptr;
  std::size_t entry = 1;
  // In the order of the table.
  auto operator<=>(const FieldAt&) const = default; // NOLINT(modernize-use-nullptr): it takes the 0 of "< 0" for one
};

[[nodiscard]] std::string IdentifierOf(FieldAt at);
[[nodiscard]] std::optional<FieldAt> FindField(std::string_view identifier);

[[nodiscard]] const Field& FieldOf(FieldPlace place);
[[nodiscard]] inline std::string_view LabelOf(FieldPlace place) {
  return FieldOf(place).label;
}

// The text that the editor shows, or "" for a list without a selection.
[[nodiscard]] std::string TextOf(const Configuration& configuration, FieldAt at);

// The stored code of a list or key without a selection.
[[nodiscard]] std::optional<std::uint8_t> UnlistedCodeOf(const Configuration& configuration, FieldAt at);
// TextOf, or {"code": 77} for a code without a text. CodeIn reverses this; nullopt for any other text.
[[nodiscard]] std::string ValueOf(const Configuration& configuration, FieldAt at);
[[nodiscard]] std::optional<std::uint8_t> CodeIn(std::string_view value);

// The text of a cell or box in the configuration, or a check box with its value for "yes". Throws for a setting of
// another kind.
[[nodiscard]] std::string& TextIn(Configuration& configuration, FieldAt at);
struct Flag {
  bool* box;
  bool whenYes;
};
[[nodiscard]] Flag FlagIn(Configuration& configuration, FieldAt at);

} // namespace mr4500x
