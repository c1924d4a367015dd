// The texts that the reports print, as one plain record: the window makes it from what it shows, the command line tool
// from a data file. Where they stand on the page is report_pages.h's business.
#pragma once

#include "channel_record.h"
#include "configuration.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

struct SettingText {
  std::string label, value;
};

struct SettingsLine {
  SettingText left, right;
};

struct SettingsSection {
  std::string title;
  std::vector<SettingsLine> lines;
};

// The data columns of the printed TTS table.
using TtsTexts = std::array<std::array<std::string, TtsColumnCount - 1>, TtsEntryCount>;

struct ReportTexts {
  std::string printedAt;     // date and time as the user's locale writes them
  std::string frequencyBand; // "440MHz~470MHz"
  std::array<ChannelTexts, ChannelCount> channels;
  std::vector<SettingsSection> settings;
  std::string selCall;
  std::string autoResetTime;
  TtsTexts tts;
  std::u16string embeddedText; // as it stands in its block, zero characters included
};

[[nodiscard]] ReportTexts ReportTextsOf(const Configuration& values, std::u16string_view embeddedText,
                                        std::string_view printedAt);

} // namespace mr4500x
