// The commands of the Embedded Information menu, through the main window, with a radio on COM3.
#include "embedded_info.h"
#include "program_fixture.h"

namespace mr4500x {
namespace {

class EmbedTest : public ProgramTest {
protected:
  // Chooses the dialog, works in its box and presses a button.
  void InDialog(const std::function<void(QWidget&, QPlainTextEdit&)>& work, const char* button) {
    bool opened = false;
    WhenDialogOpens([&](QWidget* dialog) {
      opened = true;
      work(*dialog, *dialog->findChild<QPlainTextEdit*>("rtxtbEmbed"));
      dialog->findChild<QPushButton*>(button)->click();
    });
    Choose("mnuEmbedInfo");
    EXPECT_TRUE(opened);
  }
};

TEST_F(EmbedTest, ChangesTheTextAloneAndOnlyIfConfirmed) {
  const struct {
    const char* name;
    std::u16string inRadio;
    const char* keys;
    const char* button;
    std::optional<std::u16string> after; // nothing: the block as it was
  } cases[] = {
      {"edited", u"ab", "x\r", "cmdOK", u"x\r\nab"},
      {"text behind a zero", std::u16string(u"ab\0c", 4), "x\r", "cmdOK", u"x\r\nab"},
      {"cancelled", u"ab", "x", "cmdCancel", std::nullopt},
      {"longer than a text can be", std::u16string(120, u'x'), "", "cmdOK", std::nullopt},
  };
  for (const auto& [name, inRadio, keys, button, after] : cases) {
    SCOPED_TRACE(name);
    std::fill_n(&radio.memory[0x210], EmbeddedInfoCapacity, std::uint8_t{0});
    for (std::size_t i = 0; i < inRadio.size(); ++i)
      radio.memory[0x210 + 2 * i] = static_cast<std::uint8_t>(inRadio[i]);
    Choose("mnuEmbedRead");
    RadioImage expected = window->Image();
    InDialog([keys = keys](QWidget&, QPlainTextEdit& box) { QTest::keyClicks(&box, keys); }, button);
    EXPECT_TRUE(!after || StoreEmbeddedText(expected.EmbeddedInfoBlock, *after));
    EXPECT_EQ(window->Image(), expected);
  }
}

TEST_F(EmbedTest, KeepsTheFontAsLongAsTheProgramRuns) {
  desk.font = FontDescription{"Courier", 12, true, false};
  InDialog([](QWidget& dialog, auto&) { dialog.findChild<QPushButton*>("cmdFont")->click(); }, "cmdCancel");
  InDialog([](auto&, const QPlainTextEdit& box) { EXPECT_EQ(box.font().family(), "Courier"); }, "cmdCancel");
}

} // namespace
} // namespace mr4500x
