#include "report_fixture.h"
#include "report_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace mr4500x {
namespace {

using namespace std::string_literals;

struct ReportPagesTest : testing::Test {
  ScriptedPrinter measure;
  PageSetting setting{measure, Paper};

  static const PageText* Find(const ReportPage& page, std::string_view text) {
    const auto found = std::ranges::find(page.texts, text, &PageText::text);
    return found == page.texts.end() ? nullptr : &*found;
  }
};

// Lines begin one paragraph step (324) below the title; a break by width steps 216, a line end 324.
TEST_F(ReportPagesTest, TheTextIsBrokenAtTheWidthAndAtLineEnds) {
  const PageSetting narrow{measure, {255 * 40 + 1000, Paper.height}};
  const std::u16string row(255, u'm'); // just fills a line
  const std::string printedRow(254, 'm');
  const struct {
    const char* name;
    std::u16string text;
    std::vector<std::pair<double, std::string>> lines;
  } cases[] = {
      {"none", u"", {}},
      {"fill", std::u16string(120, u'\0'), {}},
      {"blanks", u"   ", {}},
      {"trimmed", u"  A note \0\0"s, {{924, "A note"}}},
      {"line ends", u"A\r\nB\r\n\r\nC", {{924, "A"}, {1248, "B"}, {1896, "C"}}},
      {"half line ends", u"A\rB\nC", {{924, "A"}, {1248, "B"}, {1572, "C"}}},
      {"long", row + u"XY\r\nB", {{924, printedRow + 'm'}, {1140, "XY"}, {1464, "B"}}},
      {"pair at the width",
       row.substr(1) + u"\U0001F4FB\U0001F4FB",
       {{924, printedRow + "\U0001F4FB"}, {1140, "\U0001F4FB"}}},
      {"half a pair", u"\xD83D x \u0431", {{924, "\uFFFD x \u0431"}}},
      {"controls", u"a\tb\u0001c", {{924, "a b c"}}},
  };
  for (const auto& [name, text, lines] : cases) {
    SCOPED_TRACE(name);
    const ReportPage page = InfoReportPage(TextsOf(NewValues(), text), narrow);
    EXPECT_EQ(Find(page, "No Embedded Information.") != nullptr, lines.empty());
    std::vector<std::pair<double, std::string>> printed;
    for (const PageText& shown : page.texts)
      if (shown.x == 400 && shown.y > 600 && !shown.text.empty()) printed.emplace_back(shown.y, shown.text);
    EXPECT_EQ(printed, lines);
  }
}

TEST_F(ReportPagesTest, WhatIsTooHighIsScaledAndEndsAboveTheFooter) {
  const struct {
    const char* name;
    double height;
    bool isScaled;
    ReportPage page;
  } cases[] = {
      {"margins of 2.5 mm", Paper.height, false, ChannelReportPage(TextsOf(FullValues()), setting)},
      {"moved up", 16400, false, ChannelReportPage(TextsOf(FullValues()), {measure, {11226, 16400}})},
      {"a rule at the footer", 7560, true, TtsReportPage(TextsOf(NewValues()), {measure, {11226, 7560}})},
      {"6 mm", 16158, true, ChannelReportPage(TextsOf(FullValues()), {measure, {11226, 16158}})},
      {"high text", Paper.height, true, InfoReportPage(TextsOf(NewValues(), HighText()), setting)},
  };
  for (const auto& [name, height, isScaled, page] : cases) {
    SCOPED_TRACE(name);
    EXPECT_EQ(page.scale < 1, isScaled);
    const double footer = page.rules.back().y1;
    for (const PageRule& rule : page.rules)
      EXPECT_LE(rule.y2, footer);
    for (const PageText& text : page.texts)
      EXPECT_TRUE(text.y > footer || text.y + measure.TextHeight(text.font) < footer) << text.text;
    EXPECT_NEAR((footer + 1100) * page.scale, height, 0.01);
  }
}

TEST(PrintReportsTest, AJobHasOnePageForEachChosenReportOrIsAbandoned) {
  const struct {
    const char* name;
    ReportChoice choice;
    std::string failing;
    std::vector<std::string> happened;
    std::u16string text = {};
  } cases[] = {
      {"all",
       {true, true, true},
       "",
       {"begin", "Channel Settings", "page", "TTS", "page", "Embedded Information", "No Embedded Information.", "end"}},
      {"one", {false, false, true}, "", {"begin", "Embedded Information", "No Embedded Information.", "end"}},
      {"none", {false, false, false}, "", {}},
      {"no job", {true, true, false}, "begin", {"begin", "abandon"}},
      {"no page", {true, true, false}, "page", {"begin", "Channel Settings", "page", "abandon"}},
      {"no end", {false, true, false}, "end", {"begin", "TTS", "end", "abandon"}},
      {"a high page",
       {false, true, true},
       "",
       {"begin", "TTS", "page", "at 79 %", "Embedded Information", "end"},
       HighText()},
  };
  for (const auto& [name, choice, failing, happened, text] : cases) {
    SCOPED_TRACE(name);
    ScriptedPrinter printer;
    printer.failing = failing;
    const std::optional<std::string> failure = PrintReports(printer, TextsOf(NewValues(), text), choice);
    EXPECT_EQ(printer.happened, happened);
    EXPECT_EQ(failure, failing.empty() ? std::nullopt : std::optional<std::string>("no paper"));
  }
}

} // namespace
} // namespace mr4500x
