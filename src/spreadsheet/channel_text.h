// Whole channels as spreadsheet text, and operations on several channels at once. Channels count from 0. Values are
// checked as strictly as in SetField.
#pragma once

#include "channel_list.h"

#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

using Channels = std::vector<std::size_t>;

// One line for each refused cell: "CH9 Rx Freq (MHz): 500, allowed: 440 to 469.99375 MHz".
using Refusals = std::vector<std::string>;
[[nodiscard]] Refusals WordsForPasted(const std::vector<RefusedCell>& refused);
// A message with the first twelve of these or other lines.
[[nodiscard]] std::string MessageOf(const Refusals& refusals,
                                    std::string text = "Nothing was changed. These values are not allowed:");

inline constexpr char LeftOutText[] = "The channels were imported, but the radio has no settings for these columns:";

// A line with the window's captions from left to right, then a line for each channel. Cells are separated by tabs.
[[nodiscard]] std::string TextOfChannels(const Configuration& configuration, const Channels& channels);

// This table for all channels, as CSV.
[[nodiscard]] std::string CaptionedCsv(const Configuration& configuration);
// A sample list with three channels and the columns that most plans need.
inline constexpr std::string_view SampleList =
    "CH No.,Rx Freq (MHz),Rx CTC/DCS,Tx Freq (MHz),Tx CTC/DCS,Band With,No CH\r\n"
    "CH1,446.1,88.5,446.1,88.5,12.5,no\r\n"
    "CH2,446.2,D023N,446.2,D023N,12.5,no\r\n"
    "CH3,441.5,OFF,446.5,67,25,no\r\n";

// Sets the channels from `first` on from such a text, or from any that ReadChannelList accepts. If a cell is refused,
// the configuration must not be used.
[[nodiscard]] ChannelList TakeChannels(Configuration& configuration, std::size_t first, std::string_view text,
                                       const FieldTexts& texts);

// Gives all the channels the same value.
[[nodiscard]] std::vector<RefusedCell> FillChannels(Configuration& configuration, GridColumn column,
                                                    const std::string& value, const Channels& channels,
                                                    const FieldTexts& texts);

// Resets the channels as in a new configuration: at the lower band limit and not in use.
void ClearChannels(Configuration& configuration, const Channels& channels, const FieldTexts& texts);

// Moves the channels up (-1) or down (1), with their bits in the image that no setting shows. False at the end.
bool MoveChannels(Configuration& configuration, RadioImage& image, Channels& channels, int by);

} // namespace mr4500x
