// Configurations for the reports: a new one, and one with the longest texts everywhere. A printer for their pages.
#pragma once

#include "print_reports.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

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

inline constexpr PrintArea Paper = {11622, 16554}; // A4 less 2.5 mm on each side

// Records the operations. The operation named `failing` fails. Every character is as wide as a quarter of its font's
// height. Continuation bytes of UTF-8 have no width.
struct ScriptedPrinter final : Printer {
  std::string failing;
  std::vector<std::string> happened;

  std::optional<std::string> Do(const std::string& what) {
    happened.push_back(what);
    return what == failing ? std::optional<std::string>("no paper") : std::nullopt;
  }
  double TextWidth(std::string_view text, const PrintFont& font) const override {
    return 5.0 * font.points *
           static_cast<double>(std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
  }
  double TextHeight(const PrintFont& font) const override { return 20.0 * font.points; }
  std::optional<std::string> BeginJob(const std::string& /*title*/) override { return Do("begin"); }
  PrintArea Area() const override { return Paper; }
  std::optional<std::string> NewPage() override { return Do("page"); }
  void SetScale(double scale) override {
    if (scale < 1) happened.push_back("at " + std::to_string(std::lround(100 * scale)) + " %");
  }
  void PrintText(double /*x*/, double y, const PrintFont& font, std::string_view text) override {
    if (font.points == 12 && y < 1300) happened.emplace_back(text);
  }
  void PrintLine(double /*x1*/, double /*y1*/, double /*x2*/, double /*y2*/, double /*thickness*/) override {}
  std::optional<std::string> EndJob() override { return Do("end"); }
  void AbandonJob() override { happened.emplace_back("abandon"); }
};

} // namespace mr4500x
