// Maps headings to settings, and cells to values, for all tables: imported, pasted or dropped ones, and the list of a
// fleet.
#pragma once

#include "fields.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// A column of a table with a line for each channel.
struct ChannelColumn {
  std::string caption;          // the caption, or the key of the setting's identifier
  const Field* field = nullptr; // "CH No." and "number" are not settings
  bool isOpposite = false;      // "No CH" says yes where "In Use" says no
};
// The captions of the window from left to right.
[[nodiscard]] const std::vector<ChannelColumn>& GridColumns();
// Finds a column by caption, label or key, ignoring case. "Step (kHz)" belongs to the frequency before it: `last` is
// the setting of the previous heading.
[[nodiscard]] const ChannelColumn* FindChannelColumn(std::string_view heading, const Field* last = nullptr);
// "3", or "CH3" as the window shows it.
[[nodiscard]] std::optional<int> ChannelNumberIn(std::string_view cell);

// Finds a column of a table with a line for each radio: by identifier ("channels.3.rx_freq") or by the setting's name
// in the windows ("CH3 Rx Freq (MHz)", "TTS 2 Gap Time(s)", "Tx TOT").
struct SettingColumn {
  FieldAt at;
  bool isOpposite = false;
};
[[nodiscard]] std::optional<SettingColumn> FindSettingColumn(std::string_view heading, FieldAt last = {});

// Whether one of the two functions finds the heading.
[[nodiscard]] bool NamesSetting(std::string_view heading);

// The value of a cell. Accepts spreadsheet notation: yes and no in any case, either decimal separator, and trailing
// zeros in steps and bandwidths (6.250). Any other text is returned unchanged, on one line.
[[nodiscard]] std::string ValueOfCell(const Field& field, bool isOpposite, std::string_view cell,
                                      const FieldTexts& texts);

} // namespace mr4500x
