#include "report_fixture.h"
#include "report_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace mr4500x {
namespace {

using Lines = std::vector<std::string>;
using namespace std::string_literals;

// Every character as wide as a quarter of its font's height, bytes of UTF-8 that continue one have none.
struct PlainMeasure : TextMeasure {
  double TextWidth(std::string_view text, const PrintFont& font) const override {
    return 5.0 * font.points *
           static_cast<double>(std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
  }
  double TextHeight(const PrintFont& font) const override { return 20.0 * font.points; }
};

constexpr PrintArea Paper = {11226, 16158}; // A4 less 6 mm on each side

struct ReportPagesTest : testing::Test {
  PlainMeasure measure;
  PageSetting setting{measure, Paper};

  static const PageText* Find(const ReportPage& page, std::string_view text) {
    const auto found = std::ranges::find(page.texts, text, &PageText::text);
    return found == page.texts.end() ? nullptr : &*found;
  }
  // The texts of a page that stand at x, from top to bottom.
  static Lines At(const ReportPage& page, double x) {
    Lines lines;
    for (const PageText& text : page.texts)
      if (text.x == x && !text.text.empty()) lines.push_back(text.text);
    return lines;
  }
};

struct Place {
  const char* text;
  double x, y;
  PrintFont font;
};

void ExpectPlaces(const ReportPage& page, const std::vector<Place>& places) {
  for (const Place& place : places) {
    const bool isThere = std::ranges::any_of(page.texts, [&](const PageText& text) {
      return text.text == place.text && text.x == place.x && text.y == place.y && text.font == place.font;
    });
    EXPECT_TRUE(isThere) << place.text << " at " << place.x << ", " << place.y;
  }
}

TEST_F(ReportPagesTest, EveryPageHasTheFrame) {
  const ReportTexts texts = TextsOf(NewValues());
  for (const auto layOut : {ChannelReportPage, TtsReportPage, InfoReportPage}) {
    const ReportPage page = layOut(texts, setting);
    EXPECT_EQ(page.scale, 1);
    ExpectPlaces(page, {{"VTR", 400, 200, {9, true}},
                        {"MR4500X Programming Software", 11226 - 28 * 45 - 1300, 200, {9, true}},
                        {"24 Nov 2026 09:05:07", 11226 - 2800, 16158 - 1060, {9, true}}});
    for (const double y : {440.0, 16158.0 - 1100}) {
      EXPECT_TRUE(std::ranges::any_of(page.rules, [y](const PageRule& rule) {
        return rule.x1 == 400 && rule.x2 == 11226 - 1000 && rule.y1 == y && rule.y2 == y;
      })) << y;
    }
  }
}

TEST_F(ReportPagesTest, ChannelsAndSettingsStandInTheirPlaces) {
  Configuration values = NewValues(); // channel 1 is in use, 2 to 16 are not
  values.channels[0] = {false,
                        false,
                        {"", "440.12500", "6.25", "67.0", "TTS 1", "AND", "ON", "445.00000", "2.5", "D023N", "TTS 8",
                         "Inhibit", "AUTO", "12.5", "Tone B"}};
  values.identityNumber = "1234567890123456";
  values[ChoiceList::SelectCall] = {1, 0};
  values[ChoiceList::Standards] = {6, 0};
  const ReportPage page = ChannelReportPage(TextsOf(values), setting);
  constexpr PrintFont bold = {8, true}, plain = {8, false}, section = {12, false, true};
  ExpectPlaces(page, {{"Model: ", 2200, 600, {10, false}},
                      {"440MHz~470MHz", 7100, 600, {10, true}},
                      {"Channel Settings", 800, 1200, {12}},
                      {"CH No.", 480, 1700, plain},
                      {"Combo_", 4000, 1700, plain},
                      {"Signaling", 4000, 1900, plain},
                      {"Enalbe", 9020, 1900, plain},
                      {"1", 480, 2200, bold},
                      {"440.12500", 1160, 2200, bold},
                      {"TTS 1", 3130, 2200, bold},
                      {"445.00000", 5440, 2200, bold},
                      {"Inhibit", 8300, 2200, bold},
                      {"Tone B", 10420, 2200, bold},
                      {"Radio Record", 800, 3060, section},
                      {"ID Number: ", 800, 3410, plain},
                      {"1234567890123456", 2800, 3410, bold},
                      {"Version of Firmware: ", 6400, 3410, plain},
                      {"Global Radio Settings", 800, 3900, section},
                      {"SelCall: ", 6400, 4250, plain},
                      {"5 Tone (Standards: CCIR1)", 8000, 4250, bold},
                      {"Manual Tune", 800, 6700, plain},
                      {"Scan Information", 800, 7190, section},
                      {"Scan without Signal.", 800, 8590, plain},
                      {"Key Program", 800, 9080, section},
                      {"Long C: ", 6400, 10130, plain}});
}

TEST_F(ReportPagesTest, AChannelWithoutTransmitHasDashesForIt) {
  Configuration values = FullValues();
  values.channels[0].noTx = true;
  const ReportPage page = ChannelReportPage(TextsOf(values), setting);
  for (const auto& [x, text] : std::vector<std::pair<double, std::string>>{
           {1160, "520.00000"}, {5440, "--------"}, {6420, "----"}, {7390, "----"}, {8300, "----"}, {9020, "OFF"}})
    EXPECT_EQ(At(page, x)[2], text) << x; // below the two lines of the heading
}

TEST_F(ReportPagesTest, UnusedChannelsShareALine) {
  const struct {
    std::vector<std::size_t> unused;
    Lines lines;
  } cases[] = {
      {{7}, {"1", "2", "3", "4", "5", "6", " CH7  is Null", "8", "9", "10", "11", "12", "13", "14", "15", "16"}},
      {{3, 4, 5}, {"1", "2", " CH3\uFF5ECH5  are Null", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15", "16"}},
      {{1, 15, 16},
       {" CH1  is Null", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14",
        " CH15\uFF5ECH16  are Null"}},
      {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}, {" CH1\uFF5ECH16  are Null"}},
  };
  for (const auto& [unused, lines] : cases) {
    Configuration values = FullValues();
    for (const std::size_t number : unused)
      values.channels[number - 1].noCh = true;
    const ReportPage page = ChannelReportPage(TextsOf(values), setting);
    Lines printed = At(page, 480);
    ASSERT_FALSE(printed.empty());
    printed.erase(printed.begin()); // the heading
    EXPECT_EQ(printed, lines);
    const double afterTable = 2200 + 380 * static_cast<double>(lines.size());
    EXPECT_EQ(Find(page, "Radio Record")->y, afterTable + 100);
  }
}

TEST_F(ReportPagesTest, TheTtsTableIsRuledAndFilled) {
  Configuration values = NewValues();
  values.autoResetOff = false;
  values.autoResetTime = "12";
  values.Tts(8, TtsColumn::GroupCallDur) = "7.5";
  const ReportPage page = TtsReportPage(TextsOf(values), setting);
  constexpr PrintFont bold = {8, true}, plain = {8, false};
  ExpectPlaces(page, {{"TTS", 800, 1100, {12}},
                      {"SelCall: ", 800, 1700, plain},
                      {"TTS", 2400, 1700, bold},
                      {"Auto Reset Time: ", 800, 2300, plain},
                      {"12s", 2400, 2300, bold},
                      {"No.", 1240, 2920, plain},
                      {"Tone A", 1840, 2820, plain},
                      {"Freq(Hz)", 1840, 3030, plain},
                      {"Dur.(s)", 7840, 3030, plain},
                      {"1", 1240, 3440, bold},
                      {"400", 1840, 3440, bold},
                      {"7.5", 7840, 3440 + 7 * 400, bold}});
  EXPECT_EQ(page.rules.size(), 2U + 8 + 10);
  EXPECT_TRUE(std::ranges::any_of(page.rules, [](const PageRule& rule) { return rule.y2 == 2700 + 600 + 8 * 400; }));
  values.autoResetOff = true;
  EXPECT_NE(Find(TtsReportPage(TextsOf(values), setting), "OFF"), nullptr);
}

// Lines begin one paragraph step (324) below the title; a break by width steps 216, a line end 324.
TEST_F(ReportPagesTest, TheTextIsBrokenAtTheWidthAndAtLineEnds) {
  const std::u16string row(255, u'm'); // 255 x 40 twips: just no more than width - 1000
  const struct {
    std::u16string text;
    std::vector<std::pair<double, std::string>> lines;
  } cases[] = {
      {u"", {}},
      {std::u16string(120, u'\0'), {}},
      {u"   ", {}},
      {u"  A note \0\0"s, {{924, "A note"}}},
      {u"A\r\nB\r\n\r\nC", {{924, "A"}, {1248, "B"}, {1896, "C"}}},
      {u"A\rB\nC", {{924, "A"}, {1248, "B"}, {1572, "C"}}},
      {row + u"XY\r\nB", {{924, std::string(255, 'm')}, {1140, "XY"}, {1464, "B"}}},
      {std::u16string(254, u'm') + u"\U0001F4FB\U0001F4FB",
       {{924, std::string(254, 'm') + "\U0001F4FB"}, {1140, "\U0001F4FB"}}},
      {u"\xD83D x \u0431", {{924, "\uFFFD x \u0431"}}},
      {u"a\tb\u0001c", {{924, "a b c"}}},
  };
  for (const auto& [text, lines] : cases) {
    const ReportPage page = InfoReportPage(TextsOf(NewValues(), text), setting);
    ExpectPlaces(page, {{"Embedded Information", 400, 600, {12}}});
    EXPECT_EQ(Find(page, "No Embedded Information.") != nullptr, lines.empty());
    std::vector<std::pair<double, std::string>> printed;
    for (const PageText& shown : page.texts)
      if (shown.x == 400 && shown.y > 600 && !shown.text.empty()) printed.emplace_back(shown.y, shown.text);
    EXPECT_EQ(printed, lines);
  }
}

TEST_F(ReportPagesTest, APageThatWouldReachTheFooterIsScaledAsAWhole) {
  const struct {
    ReportPage page;
    bool isScaled;
  } cases[] = {{ChannelReportPage(TextsOf(FullValues()), setting), true},
               {ChannelReportPage(TextsOf(NewValues()), setting), false},
               {ChannelReportPage(TextsOf(FullValues()), {measure, {11906, 16838}}), false},
               {InfoReportPage(TextsOf(NewValues(), HighText()), setting), true}};
  for (const auto& [page, isScaled] : cases) {
    EXPECT_EQ(page.scale < 1, isScaled);
    EXPECT_GT(page.scale, 0.7);
    const double footer = std::ranges::max(page.rules, {}, &PageRule::y1).y1;
    for (const PageText& text : page.texts) {
      const bool isFooter = text.y > footer;
      EXPECT_TRUE(isFooter || text.y + measure.TextHeight(text.font) < footer) << text.text;
    }
    EXPECT_NEAR((footer + 1100) * page.scale, isScaled ? Paper.height : footer + 1100, 0.01);
  }
}

// Writes down what happens; the operation named `failing` fails.
struct ScriptedPrinter final : Printer {
  PlainMeasure measure;
  std::string failing;
  Lines happened;

  std::optional<std::string> Do(const std::string& what) {
    happened.push_back(what);
    return what == failing ? std::optional<std::string>("no paper") : std::nullopt;
  }
  double TextWidth(std::string_view text, const PrintFont& font) const override {
    return measure.TextWidth(text, font);
  }
  double TextHeight(const PrintFont& font) const override { return measure.TextHeight(font); }
  std::optional<std::string> BeginJob(const std::string& /*title*/) override { return Do("begin"); }
  PrintArea Area() const override { return Paper; }
  std::optional<std::string> NewPage() override { return Do("page"); }
  void SetScale(double /*scale*/) override {}
  void PrintText(double x, double y, const PrintFont& /*font*/, std::string_view text) override {
    if (x == 800 && y < 1300) happened.emplace_back(text);
  }
  void PrintLine(double /*x1*/, double /*y1*/, double /*x2*/, double /*y2*/, double /*thickness*/) override {}
  std::optional<std::string> EndJob() override { return Do("end"); }
  void AbandonJob() override { happened.emplace_back("abandon"); }
};

TEST(PrintReportsTest, AJobHasOnePageForEachChosenReportOrIsAbandoned) {
  const struct {
    ReportChoice choice;
    std::string failing;
    Lines happened;
  } cases[] = {
      {{true, true, true}, "", {"begin", "Channel Settings", "page", "TTS", "page", "No Embedded Information.", "end"}},
      {{false, false, true}, "", {"begin", "No Embedded Information.", "end"}},
      {{false, true, false}, "", {"begin", "TTS", "end"}},
      {{false, false, false}, "", {}},
      {{true, true, false}, "begin", {"begin", "abandon"}},
      {{true, true, false}, "page", {"begin", "Channel Settings", "page", "abandon"}},
      {{false, true, false}, "end", {"begin", "TTS", "end", "abandon"}},
  };
  for (const auto& [choice, failing, happened] : cases) {
    ScriptedPrinter printer;
    printer.failing = failing;
    const std::optional<std::string> failure = PrintReports(printer, TextsOf(NewValues()), choice);
    EXPECT_EQ(printer.happened, happened);
    EXPECT_EQ(failure, failing.empty() ? std::nullopt : std::optional<std::string>("no paper"));
  }
}

} // namespace
} // namespace mr4500x
