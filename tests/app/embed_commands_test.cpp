// The commands of the Embedded Information menu, through the main window, with a radio on COM3.
#include "embedded_info.h"
#include "modal_dialog.h"
#include "program_fixture.h"

#include <QPlainTextEdit>
#include <QPushButton>

namespace mr4500x {
namespace {

constexpr std::size_t StampAddress = 0x200, TextAddress = 0x210, PageEnd = 0x300;

class EmbedTest : public ProgramTest {
protected:
  EmbedTest() {
    std::fill_n(radio.memory.begin() + StampAddress, PageEnd - StampAddress, std::uint8_t{0});
    std::copy_n("20041103093015", 14, radio.memory.begin() + StampAddress);
    PutText(u"ab");
  }
  void PutText(std::u16string_view text) {
    EmbeddedInfo block;
    ASSERT_TRUE(StoreEmbeddedText(block, text));
    std::copy(block.bytes.begin(), block.bytes.end(), radio.memory.begin() + TextAddress);
  }
  // Chooses the dialog, works in its box and presses a button.
  void InDialog(const std::function<void(QWidget&, QPlainTextEdit&)>& work, const char* button) {
    bool opened = false;
    WhenDialogOpens([&](QWidget* dialog) {
      opened = true;
      EXPECT_EQ(dialog->objectName(), "frmEmbed");
      work(*dialog, *dialog->findChild<QPlainTextEdit*>("rtxtbEmbed"));
      dialog->findChild<QPushButton*>(button)->click();
    });
    Choose("mnuEmbedInfo");
    EXPECT_TRUE(opened);
  }
  const EmbeddedInfo& Block() { return window->Image().EmbeddedInfoBlock; }
};

TEST_F(EmbedTest, ReadsEditsAndWritesTheTextAlone) {
  RadioImage expected = window->Image();
  Choose("mnuEmbedRead");
  std::copy_n("20041103093015\0", 16, expected.WriteStampBlock.begin());
  expected.EmbeddedInfoBlock = {.bytes = {'a', 0, 'b', 0}};
  EXPECT_EQ(window->Image(), expected);

  InDialog(
      [](QWidget& dialog, QPlainTextEdit& box) {
        EXPECT_EQ(box.toPlainText(), "ab");
        EXPECT_EQ(dialog.findChild<QLabel*>("lblLastTime")->text(), "2004-11-03, 09:30:15");
        QTest::keyClick(&box, Qt::Key_Return);
      },
      "cmdOK");
  expected.EmbeddedInfoBlock = {.bytes = {'\r', 0, '\n', 0, 'a', 0, 'b', 0}, .length = 8};
  EXPECT_EQ(window->Image(), expected);

  auto memory = radio.memory;
  std::copy_n(expected.EmbeddedInfoBlock.bytes.begin(), EmbeddedInfoCapacity, memory.begin() + TextAddress);
  Choose("mnuEmbedWrite");
  EXPECT_EQ(radio.memory, memory);
  EXPECT_EQ(window->Image(), expected);
}

TEST_F(EmbedTest, KeepsTheBlockUnlessConfirmed) {
  const struct {
    const char* name;
    std::u16string inRadio;
    const char* keys;
    const char* button;
    std::optional<std::u16string> after; // nothing: the block as it was
  } cases[] = {
      {"confirmed", u"ab", "", "cmdOK", u"ab"},
      {"empty", u"", "", "cmdOK", u""},
      {"text behind a zero", std::u16string(u"ab\0c", 4), "", "cmdOK", u"ab"},
      {"edited", u"ab", "x", "cmdOK", u"xab"},
      {"cancelled", u"ab", "x", "cmdCancel", std::nullopt},
      {"longer than a text can be", std::u16string(120, u'x'), "", "cmdOK", std::nullopt},
  };
  for (const auto& [name, inRadio, keys, button, after] : cases) {
    SCOPED_TRACE(name);
    std::fill_n(radio.memory.begin() + TextAddress, EmbeddedInfoCapacity, std::uint8_t{0});
    for (std::size_t i = 0; i < inRadio.size(); ++i)
      radio.memory[TextAddress + 2 * i] = static_cast<std::uint8_t>(inRadio[i]);
    Choose("mnuEmbedRead");
    EmbeddedInfo expected = Block();
    InDialog([keys = keys](auto&, QPlainTextEdit& box) { QTest::keyClicks(&box, keys); }, button);
    if (after) {
      EXPECT_TRUE(StoreEmbeddedText(expected, *after));
    }
    EXPECT_EQ(Block(), expected);
  }
}

TEST_F(EmbedTest, KeepsTheFontAsLongAsTheProgramRuns) {
  const FontDescription courier{"Courier", 12, true, false};
  InDialog(
      [&](QWidget& dialog, auto&) {
        desk.font = courier;
        dialog.findChild<QPushButton*>("cmdFont")->click();
        EXPECT_EQ(desk.presetFont, FontDescription{});
      },
      "cmdCancel");
  InDialog([&](auto&, const QPlainTextEdit& box) { EXPECT_EQ(box.font().family(), "Courier"); }, "cmdCancel");
  EXPECT_EQ(window->State().EmbeddedTextFont, courier);
}

} // namespace
} // namespace mr4500x
