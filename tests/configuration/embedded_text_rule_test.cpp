// The limit of the embedded information, and the two forms of its line ends.
#include "embedded_text_rule.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using Text = std::u16string;

// So many units, no two neighbours alike.
Text Units(std::size_t count) {
  Text text;
  for (std::size_t i = 0; i < count; ++i)
    text += static_cast<char16_t>(u'a' + i % 26);
  return text;
}

// The first `before` of so many units, then `inserted`, then the rest; the caret after what was inserted.
EmbeddedEntry Inserted(std::size_t count, std::size_t before, const Text& inserted) {
  return {Units(count).insert(before, inserted), before + inserted.size()};
}

TEST(EmbeddedTextRule, CutsBackToTheTopSize) {
  const Text smile = u"\U0001F600", line = u"\r\n", digits = u"0123456789";
  const struct {
    EmbeddedEntry entry, expected;
  } cases[] = {
      {Inserted(117, 50, line), Inserted(117, 50, line)}, // 119: all stays
      // 120
      {Inserted(119, 119, u"+"), Inserted(119, 119, u"")},
      {Inserted(119, 0, u"+"), Inserted(119, 0, u"")},
      // pasted: its last character goes, and what lies beyond the 119th
      {Inserted(115, 60, digits), {Text(Units(115).insert(60, u"012345678"), 0, 119), 69}},
      {Inserted(115, 115, digits), {Units(115) + u"0123", 119}}, // the caret in what goes
      {{Units(1000), 0}, {Units(119), 0}},                       // no character before the caret
      // a pair or a line end goes as a whole: before the caret ...
      {Inserted(118, 50, smile), Inserted(118, 50, u"")},
      {{Units(50) + smile + Units(80), 51}, {Units(50) + Units(69), 50}}, // the caret inside
      // ... and across the limit
      {{Units(118) + smile + u"x", 10}, {Units(9) + Units(118).substr(10) + smile, 9}},
      {{Units(119) + smile, 10}, {Units(9) + Units(119).substr(10), 9}},
      {{Units(119) + line, 10}, {Units(9) + Units(119).substr(10), 9}},
      {{Units(119) + u"\xD83D", 10}, {Units(9) + Units(119).substr(10) + u"\xD83D", 9}},
      {{smile + Units(117) + line + line, 123}, {smile + Units(117), 119}},
  };
  for (const auto& [entry, expected] : cases) {
    SCOPED_TRACE(std::to_string(entry.text.size()) + " units, caret " + std::to_string(entry.caret));
    EmbeddedEntry cut = entry;
    EXPECT_EQ(CutToTopSize(cut), entry.text.size() > 119);
    EXPECT_EQ(cut, expected);
  }
}

TEST(EmbeddedTextRule, StoresEveryLineEndAsTwoCharacters) {
  const struct {
    Text shown, stored;
    std::size_t length; // in the box again
  } cases[] = {
      {u"", u"", 0},
      {u"\u2029\u2028", u"\r\n\r\n", 2},
      {u"\r\n\r\r\n\n", u"\r\n\r\n\r\n\r\n", 4},
      {Text(u"a\0b\0", 4), u"ab", 2},
      {u"\u00A0\t\x01\xD83D", u"\u00A0\t\x01\xD83D", 4},
  };
  for (const auto& [shown, stored, length] : cases) {
    EXPECT_EQ(TextToStore(shown), stored);
    EXPECT_EQ(ShownLength(stored), length);
  }
}

} // namespace
} // namespace mr4500x
