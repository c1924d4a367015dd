// Configurations for the reports: a new one, and one with the longest texts everywhere.
#pragma once

#include "print_reports.h"

#include <string>

namespace mr4500x {

inline Configuration NewValues() {
  RadioImage image;
  return NewConfiguration(image, BuildFieldTexts('.'), {2026, 11, 24, 9, 5, 7});
}

// All channels in use, the longest texts that the fields can have, 5-tone signaling.
inline Configuration FullValues() {
  Configuration values = NewValues();
  values[ChoiceList::SelectCall] = {1, 0};
  values[ChoiceList::Standards] = {6, 0};
  values.connectId = values.disconnectId = values.emergencyAni = "ABCD0123456789*#";
  values.identityNumber = values.firmwareVersion = "WWWWWWWWWWWWWWWW";
  values.scanSignal = true;
  values.autoResetOff = false;
  values.autoResetTime = "255";
  for (ChannelTexts& channel : values.channels) {
    channel = {false,
               false,
               {"", "520.00000", "6.25", "D754I", "5T 88888", "AND", "OFF", "520.00000", "6.25", "CTC#77", "5T 88888",
                "Inhibit", "OFF", "12.5", "Tone A"}};
  }
  return values;
}

// More lines than a page has.
inline std::u16string HighText() {
  std::u16string text = u"Top";
  while (text.size() + 2 <= 119)
    text += u"\r\n";
  return text;
}

inline ReportTexts TextsOf(const Configuration& values, std::u16string_view embedded = {}) {
  return ReportTextsOf(values, embedded, "24 Nov 2026 09:05:07");
}

} // namespace mr4500x
