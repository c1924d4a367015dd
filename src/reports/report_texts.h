// All texts of the reports, from the window or a data file. report_pages.h does the layout.
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
  std::string printedAt;     // date and time in the user's locale
  std::string frequencyBand; // "440MHz~470MHz"
  std::array<ChannelTexts, ChannelCount> channels;
  std::vector<SettingsSection> settings;
  std::string selCall;
  std::string autoResetTime;
  TtsTexts tts;
  std::u16string embeddedText; // the whole block, with its zero characters
};

[[nodiscard]] ReportTexts ReportTextsOf(const Configuration& values, std::u16string_view embeddedText,
                                        std::string_view printedAt);

} // namespace mr4500x
