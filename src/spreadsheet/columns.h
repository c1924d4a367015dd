// From headings to settings, and from cells to their values: what any table may have, whether it is imported, pasted,
// dropped or gives each radio of a fleet its row.
#pragma once

#include "fields.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// Of a table with a line for each channel.
struct ChannelColumn {
  std::string caption;          // or the key of the setting's identifier
  const Field* field = nullptr; // "CH No." and "number" are not settings
  bool isOpposite = false;      // "No CH" says yes where "In Use" says no
};
// The captions of the window from left to right.
[[nodiscard]] const std::vector<ChannelColumn>& GridColumns();
// By caption, label or key, in any case. A "Step (kHz)" belongs to the frequency before it: `last` is the setting that
// the heading before named.
[[nodiscard]] const ChannelColumn* FindChannelColumn(std::string_view heading, const Field* last = nullptr);
// "3", or "CH3" as the window shows it.
[[nodiscard]] std::optional<int> ChannelNumberIn(std::string_view cell);

// Of a table with a line for each radio: by an identifier ("channels.3.rx_freq"), or as the windows call the setting
// ("CH3 Rx Freq (MHz)", "TTS 2 Gap Time(s)", "Tx TOT").
struct SettingColumn {
  FieldAt at;
  bool isOpposite = false;
};
[[nodiscard]] std::optional<SettingColumn> FindSettingColumn(std::string_view heading, FieldAt last = {});

// Whether either finds it.
[[nodiscard]] bool NamesSetting(std::string_view heading);

// The value that a cell means: yes and no in any case, either decimal sign, and steps and bandwidths with zeros at
// their end (6.250) are those of spreadsheets. Any other text stays, on one line.
[[nodiscard]] std::string ValueOfCell(const Field& field, bool isOpposite, std::string_view cell,
                                      const FieldTexts& texts);

} // namespace mr4500x
