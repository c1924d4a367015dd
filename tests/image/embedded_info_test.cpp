#include "embedded_info.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using Text = std::u16string;

// `count` units, of which no two neighbours are equal.
Text Units(std::size_t count) {
  Text text;
  for (std::size_t i = 0; i < count; ++i)
    text += static_cast<char16_t>(u'a' + i % 26);
  return text;
}

// `inserted` after the first `before` units of a text, with the caret behind it.
EmbeddedEntry Inserted(std::size_t count, std::size_t before, const Text& inserted) {
  return {Units(count).insert(before, inserted), before + inserted.size()};
}

TEST(EmbeddedInfoTest, CutsBackToTheTopSize) {
  const Text smile = u"\U0001F600", line = u"\r\n", digits = u"0123456789";
  const struct {
    const char* name;
    EmbeddedEntry entry, expected;
  } cases[] = {
      {"one typed at the end", Inserted(119, 119, u"+"), Inserted(119, 119, u"")},
      {"ten pasted", Inserted(115, 60, digits), {Text(Units(115).insert(60, u"012345678"), 0, 119), 69}},
      {"no character before the caret", {Units(1000), 0}, {Units(119), 0}},
      {"a pair before the caret", Inserted(118, 50, smile), Inserted(118, 50, u"")},
      {"the caret in a pair", {Units(50) + smile + Units(80), 51}, {Units(50) + Units(69), 50}},
      {"a pair across the limit", {Units(119) + smile, 10}, {Units(9) + Units(119).substr(10), 9}},
      {"a line end across the limit", {Units(119) + line, 10}, {Units(9) + Units(119).substr(10), 9}},
      {"half a pair", {Units(119) + u"\xD83D", 10}, {Units(9) + Units(119).substr(10) + u"\xD83D", 9}},
      {"two line ends beyond it", {smile + Units(117) + line + line, 123}, {smile + Units(117), 119}},
  };
  for (const auto& [name, entry, expected] : cases) {
    EmbeddedEntry cut = entry;
    EXPECT_EQ(CutToTopSize(cut), entry.text.size() > 119) << name;
    EXPECT_EQ(cut, expected) << name;
  }
}

TEST(EmbeddedInfoTest, TextsAreUtf16LowByteFirst) {
  EmbeddedInfo block;
  EXPECT_EQ(EmbeddedText(block).size(), 120U);
  EXPECT_EQ(VisibleText(EmbeddedText(block)), u"");
  ASSERT_TRUE(StoreEmbeddedText(block, u"AB\r\nC\u20AC"));
  EXPECT_EQ(block.length, 12U);
  EXPECT_EQ(block.bytes, (decltype(block.bytes){65, 0, 66, 0, 13, 0, 10, 0, 67, 0, 0xAC, 0x20}));
  EXPECT_EQ(EmbeddedText(block), u"AB\r\nC\u20AC");
  EXPECT_FALSE(StoreEmbeddedText(block, std::u16string(120, u'x')));
  EXPECT_EQ(EmbeddedText(block), u"AB\r\nC\u20AC");
}

TEST(EmbeddedInfoTest, TextsInFilesAndArgumentsAreUtf8) {
  EXPECT_EQ(InfoFromArgument("a\nb\r\nc\rd\n"), u"a\r\nb\r\nc\r\nd\r\n");
  const std::pair<const char*, Text> texts[] = {{"\x7F", u"\x7F"},
                                                {"\xC2\x80\xDF\xBF", u"\x80\x7FF"},
                                                {"\xE0\xA0\x80\xEF\xBF\xBF", u"\x800\xFFFF"},
                                                {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"}};
  for (const auto& [bytes, text] : texts) {
    EXPECT_EQ(InfoFromArgument(bytes), text);
    EXPECT_EQ(InfoToKeep(text), std::string(bytes) + '\n');
  }
  EXPECT_EQ(InfoFromKept("\xEF\xBB\xBF"
                         "a\n\n"),
            u"a\r\n"); // without byte order mark and last line end
  EXPECT_EQ(InfoToKeep(Text(u"a\r\nb\rc\0d", 8)), "a\nb\nc\n");
  EXPECT_EQ(InfoToKeep(u""), "");
  EXPECT_EQ(InfoToKeep(Text{u'a', 0xD83D, u'b', 0xDC00}), "a\xEF\xBF\xBD"
                                                          "b\xEF\xBF\xBD\n"); // halves of pairs
  for (const char* const bad : {"a\xE9", "\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80",
                                "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF", "\xE2\x82"})
    EXPECT_EQ(InfoFromArgument(bad), std::nullopt) << bad;
}

} // namespace
} // namespace mr4500x
