// The commands of the Embedded Information menu, through the main window, with a radio on COM3.
#include "embedded_info.h"
#include "modal_dialog.h"
#include "program_fixture.h"

#include <QPlainTextEdit>
#include <QPushButton>

namespace mr4500x {
namespace {

constexpr std::size_t StampAddress = 0x200, TextAddress = 0x210, PageEnd = 0x300;

const std::string ReadDone =
    "Read Information Completely|Read information is complete. Press OK button to continue ...";
const std::string WriteDone = "Write Information Completely|Write information completely. Press OK to continue.";

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
  bool isBusy = true;
  clock.duringWait = [&] { isBusy = isBusy && QGuiApplication::overrideCursor() != nullptr; };
  RadioImage expected = window->Image();
  Choose("mnuEmbedRead");
  EXPECT_TRUE(isBusy);
  EXPECT_EQ(Happened(), Lines{ReadDone});
  EXPECT_EQ(Title(), ReadInfoTitle);
  EXPECT_TRUE(Item("mnuFileClose")->isEnabled());
  EXPECT_FALSE(window->State().ModifiedFlag);
  std::copy_n("20041103093015\0", 16, expected.WriteStampBlock.begin());
  expected.EmbeddedInfoBlock = {.bytes = {'a', 0, 'b', 0}};
  EXPECT_EQ(window->Image(), expected);
  ExpectIdle();

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
  clock.duringWait = [] { EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr); };
  Choose("mnuEmbedWrite");
  EXPECT_EQ(Happened(), Lines{WriteDone});
  EXPECT_EQ(Title(), WriteInfoTitle);
  EXPECT_FALSE(window->State().ModifiedFlag);
  EXPECT_EQ(radio.memory, memory);
  EXPECT_EQ(window->Image(), expected);
  ExpectIdle();
}

// A writing does not make data that could be closed.
TEST_F(EmbedTest, LeavesTheCloseItemToTheReading) {
  Edit();
  Choose("mnuEmbedWrite");
  EXPECT_EQ(Happened(), Lines{WriteDone});
  EXPECT_FALSE(Item("mnuFileClose")->isEnabled());
  EXPECT_TRUE(std::all_of(radio.memory.begin() + TextAddress, radio.memory.begin() + PageEnd,
                          [](std::uint8_t byte) { return byte == 0; })); // the new image has no text
  Choose("mnuEmbedRead");
  EXPECT_TRUE(Item("mnuFileClose")->isEnabled());
  EXPECT_TRUE(window->State().ModifiedFlag); // neither of them has anything to do with it
}

TEST_F(EmbedTest, KeepsTheBlockUnlessConfirmed) {
  const struct {
    std::u16string inRadio;
    const char* keys;
    const char* button;
    std::optional<std::u16string> after; // nothing: the block as it was
  } cases[] = {
      {u"ab", "", "cmdOK", u"ab"},
      {u"", "", "cmdOK", u""},
      {std::u16string(u"ab\0c", 4), "", "cmdOK", u"ab"},
      {u"ab", "x", "cmdOK", u"xab"},
      {u"ab", "x", "cmdCancel", std::nullopt},
      {std::u16string(120, u'x'), "", "cmdOK", std::nullopt}, // all of it is kept
  };
  for (const auto& [inRadio, keys, button, after] : cases) {
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
    EXPECT_EQ(Happened(), Lines{ReadDone});
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

TEST_F(EmbedTest, FailsWithoutALeftover) {
  const auto silent = [](auto, LineBytes& reply) { reply.clear(); };
  const auto silentRecord = [](std::size_t frame, LineBytes& reply) {
    if (frame == 9) reply.clear();
  };
  const auto otherModel = [](auto, LineBytes& reply) { reply[6] = '1'; };
  const auto badStatus = [](auto, LineBytes& reply) {
    if (reply.size() == 2) reply = {'N', 'G'};
  };
  const std::string dead = "!|Communication port error|COM3 port don't respond, please check your connection!";
  const struct {
    const char* command;
    std::function<void(std::size_t, LineBytes&)> spoil;
    std::string message;
  } cases[] = {
      {"mnuEmbedRead", silent, dead},
      {"mnuEmbedRead", silentRecord, "!|Read Information Error|Read information error, please try again."},
      {"mnuEmbedWrite", silent, dead},
      {"mnuEmbedWrite", otherModel,
       "!|Error|The radio model is wrong. The connected radio doesn't belong to LR7200 Series. Can't continue!"},
      {"mnuEmbedWrite", silentRecord, "!|Information Error|Writing information is interrupted, please try again."},
      {"mnuEmbedWrite", badStatus, "!|Write Information Error|Writing information error, please try again."},
  };
  for (const auto& [command, spoil, message] : cases)
    ExpectFailure(command, spoil, message);
  radio.openFailure = "No such device";
  for (const char* command : {"mnuEmbedRead", "mnuEmbedWrite"}) {
    Choose(command);
    EXPECT_EQ(Happened(), Lines{"X|Error|COM3: No such device"});
    EXPECT_EQ(Title(), BareTitle);
    ExpectIdle();
  }
}

} // namespace
} // namespace mr4500x
