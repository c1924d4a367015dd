// The dialog of the embedded information under keys, clipboard and input methods.
#include "frm_embed.h"

#include "editor_fixture.h"

#include <QLabel>
#include <QMimeData>
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
  // How often the message about the top size has appeared since the last call.
  std::size_t Reported() {
    QCoreApplication::processEvents();
    for (const std::string& message : messages.shown)
      EXPECT_EQ(message, "|MR4500X Programming Software|It has been reached to the Top Size of the Input Text.");
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
  EXPECT_EQ(Reported(), 0U);
  const std::u16string full = dialog->EmbedData();
  EXPECT_EQ(full.substr(0, 5), u"--\r\n-");
  for (const auto key : {Qt::Key_X, Qt::Key_Return}) {
    PutCaret(60);
    Key(key);
    EXPECT_EQ(Reported(), 1U) << key;
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); // does not bring it back
    EXPECT_TRUE(Reported() == 0 && dialog->EmbedData() == full && box->textCursor().position() == 60) << key;
  }
}

TEST_F(FrmEmbedTest, CutsWhateverPutsTextIn) {
  const std::u16string given(115, u'.');
  for (const bool pasted : {true, false}) {
    SCOPED_TRACE(pasted ? "pasted" : "from an input method");
    Open(given);
    PutCaret(60);
    const auto text = QString::fromUtf16(u"1\r345\U0001F600\U0001F601"); // a pair is two units, as is a line end
    QApplication::clipboard()->setText(text);
    QInputMethodEvent composed;
    composed.setCommitString(text);
    if (pasted)
      Key(Qt::Key_V, Qt::ControlModifier);
    else
      QApplication::sendEvent(box, &composed);
    EXPECT_EQ(dialog->EmbedData(), std::u16string(given).insert(60, u"1\r\n345\U0001F600").substr(0, 119));
    EXPECT_EQ(box->textCursor().position(), 67);
    EXPECT_EQ(Reported(), 1U);
    Undo(); // returns to the text before the input
    EXPECT_EQ(dialog->EmbedData(), given);
  }
}

TEST_F(FrmEmbedTest, KeepsWhatIsNotEditedUnitForUnit) {
  const std::u16string odd = u"\uFFFEa\rb\nc\r\nd\u2028e\u2029f\u00A0g\x01\x7F\t\uFFFC\uFDD0\uFEFF\xD800h\xDE00 ";
  Open(odd);
  EXPECT_EQ(dialog->EmbedData(), odd);
  box->moveCursor(QTextCursor::End);
  Key(Qt::Key_Plus);
  EXPECT_EQ(dialog->EmbedData(), u"\uFFFEa\r\nb\r\nc\r\nd\r\ne\r\nf\u00A0g\x01\x7F\t\uFFFC\r\n\uFEFF\xD800h\xDE00 +");
  Undo();
  EXPECT_EQ(dialog->EmbedData(), odd);

  Open(std::u16string(120, u'x'));
  EXPECT_TRUE(dialog->EmbedData().size() == 120 && Reported() == 0) << "for having opened";
}

// The clipboard owner's formats, whose data may be missing.
struct OwnersData : QMimeData {
  explicit OwnersData(QStringList names) : given(std::move(names)) {}
  QStringList formats() const override { return given; }
  QStringList given;
};

TEST_F(FrmEmbedTest, PastesNothingWhereTheClipboardHasNoText) {
  const struct {
    const char* name;
    QStringList formats;
  } owners[] = {{"no format", {}}, {"ended before it answered", {"text/plain"}}, {"a picture", {"image/png"}}};
  const std::pair<Qt::Key, Qt::KeyboardModifier> keys[] = {{Qt::Key_V, Qt::ControlModifier},
                                                           {Qt::Key_Insert, Qt::ShiftModifier}};
  Open(u"Fleet");
  for (const auto& [name, formats] : owners) {
    SCOPED_TRACE(name);
    QApplication::clipboard()->setMimeData(new OwnersData(formats));
    for (const auto& [key, modifier] : keys)
      Key(key, modifier);
    const auto data = std::make_unique<OwnersData>(formats);
    QDropEvent drop({5, 5}, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(box->viewport(), &drop);
    EXPECT_EQ(dialog->EmbedData(), u"Fleet");
  }
}

} // namespace
} // namespace mr4500x
