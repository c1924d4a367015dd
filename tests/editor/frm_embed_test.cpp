// The dialog of the embedded information under keys, clipboard and input methods.
#include "frm_embed.h"

#include "editor_fixture.h"
#include "fill_messages.h"

#include <QLabel>
#include <QPlainTextEdit>

namespace mr4500x {
namespace {

struct NoFonts final : FontDialog {
  std::optional<FontDescription> AskFont(const FontDescription& /*shown*/) override { return {}; }
};

struct FrmEmbedTest : testing::Test {
  void Open(const std::u16string& text) {
    dialog = std::make_unique<FrmEmbed>(EmbedContent{text, "2004-11-04, 09:30:15", {}}, messages, fonts, nullptr);
    box = dialog->findChild<QPlainTextEdit*>("rtxtbEmbed");
    dialog->show();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }
  void PutCaret(int position) {
    QTextCursor cursor = box->textCursor();
    cursor.setPosition(position);
    box->setTextCursor(cursor);
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(box, key, modifiers); }
  void Undo() { Key(Qt::Key_Z, Qt::ControlModifier); }
  void Redo() { Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
  // How often the message about the top size has come since the last look.
  std::size_t Told() {
    QCoreApplication::processEvents();
    for (const ShownMessage& message : messages.shown)
      EXPECT_EQ(message, (ShownMessage{MessageIcon::None, "MR4500X Programming Software",
                                       "It has been reached to the Top Size of the Input Text.", MessageButtons::Ok}));
    return messages.Taken().size();
  }

  ScriptedMessages messages;
  NoFonts fonts;
  std::unique_ptr<FrmEmbed> dialog;
  QPlainTextEdit* box = nullptr;
};

TEST_F(FrmEmbedTest, TakesTypedTextUpToItsTopSize) {
  Open(u"");
  ASSERT_TRUE(box->hasFocus());
  QTest::keyClicks(box, QString(117, '-'));
  PutCaret(2);
  Key(Qt::Key_Return);
  EXPECT_EQ(dialog->findChild<QLabel*>("lblCount")->text(), "119 / 119");
  EXPECT_EQ(Told(), 0U);
  const std::u16string full = dialog->EmbedData();
  EXPECT_EQ(full.substr(0, 5), u"--\r\n-");
  for (const auto key : {Qt::Key_X, Qt::Key_Return}) {
    PutCaret(60);
    Key(key);
    EXPECT_EQ(Told(), 1U) << key;
    Redo(); // does not bring it back
    EXPECT_TRUE(Told() == 0 && dialog->EmbedData() == full && box->textCursor().position() == 60) << key;
  }
  Key(Qt::Key_Tab);
  EXPECT_TRUE(!box->hasFocus() && dialog->EmbedData() == full);
}

TEST_F(FrmEmbedTest, CutsWhateverPutsTextIn) {
  const auto paste = [&](const QString& text) {
    QApplication::clipboard()->setText(text);
    Key(Qt::Key_V, Qt::ControlModifier);
  };
  const auto compose = [&](const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(box, &event);
  };
  // What is put in, what is stored of it after the 60th character, and where the caret is then.
  using Put = std::function<void(const QString&)>;
  const std::tuple<const char*, Put, const char16_t*, std::u16string, int> cases[] = {
      {"paste", paste, u"12345\U0001F600\U0001F601", u"12345\U0001F600", 67}, // a pair is two units
      {"paste lines", paste, u"0123\r567\n", u"0123\r\n567", 68},
      {"input method", compose, u"0123456789", u"012345678", 69}};
  const std::u16string given(115, u'.');
  for (const auto& [name, put, text, stored, caret] : cases) {
    SCOPED_TRACE(name);
    Open(given);
    PutCaret(60);
    put(QString::fromUtf16(text));
    EXPECT_EQ(dialog->EmbedData(), std::u16string(given).insert(60, stored).substr(0, 119));
    EXPECT_EQ(box->textCursor().position(), caret);
    EXPECT_EQ(Told(), 1U);
    Undo(); // as if it had not been put in
    EXPECT_EQ(dialog->EmbedData(), given);
    Redo();
    EXPECT_TRUE(dialog->EmbedData().size() == 119 && Told() == 0);
  }
}

TEST_F(FrmEmbedTest, KeepsWhatIsNotEditedUnitForUnit) {
  const std::u16string odd = u"\uFFFEa\rb\nc\r\nd\u2028e\u2029f\u00A0g\x01\x7F\t\uFFFC\uFDD0\uFEFF\xD800h\xDE00 ";
  // What is given, kept, and stored after a character more at the end.
  const std::tuple<std::u16string, std::u16string, std::u16string> cases[] = {
      {odd, odd, u"\uFFFEa\r\nb\r\nc\r\nd\r\ne\r\nf\u00A0g\x01\x7F\t\uFFFC\r\n\uFEFF\xD800h\xDE00 +"},
      {std::u16string(u"AB\0CD", 5), u"AB", u"AB+"},
      {std::u16string(120, u'x'), std::u16string(120, u'x'), std::u16string(119, u'x')},
  };
  for (const auto& [given, kept, edited] : cases) {
    Open(given);
    EXPECT_EQ(dialog->EmbedData(), kept);
    box->moveCursor(QTextCursor::End);
    Key(Qt::Key_Plus);
    EXPECT_EQ(dialog->EmbedData(), edited);
    EXPECT_EQ(Told(), given.back() == u'x' ? 1U : 0U) << "none for having opened";
    Undo();
    EXPECT_EQ(dialog->EmbedData(), kept);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(dialog->isHidden() && dialog->CancelPressed());
  }
}

} // namespace
} // namespace mr4500x
