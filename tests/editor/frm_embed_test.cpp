// The dialog of the embedded information under keys, clipboard, drops and input methods.
#include "frm_embed.h"

#include "editor_fixture.h"
#include "fill_messages.h"

#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>

namespace mr4500x {
namespace {

struct ScriptedFonts final : FontDialog {
  FontDescription preset;
  std::optional<FontDescription> answer;
  std::optional<FontDescription> AskFont(const FontDescription& shown) override {
    preset = shown;
    return answer;
  }
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
  QString Text(const char* label) { return dialog->findChild<QLabel*>(label)->text(); }
  void Press(const char* button) { QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton); }
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
  ScriptedFonts fonts;
  std::unique_ptr<FrmEmbed> dialog;
  QPlainTextEdit* box = nullptr;
};

TEST_F(FrmEmbedTest, TakesTypedTextUpToItsTopSize) {
  Open(u"");
  EXPECT_EQ(Text("lblLastTime"), "2004-11-04, 09:30:15");
  ASSERT_TRUE(box->hasFocus());
  QTest::keyClicks(box, QString(117, '-'));
  PutCaret(2);
  Key(Qt::Key_Return);
  EXPECT_EQ(Text("lblCount"), "119 / 119");
  EXPECT_EQ(Told(), 0U);
  const std::u16string full = dialog->EmbedData();
  EXPECT_EQ(full.substr(0, 5), u"--\r\n-");
  for (const auto key : {Qt::Key_X, Qt::Key_Return}) {
    PutCaret(60);
    Key(key);
    EXPECT_EQ(Told(), 1U) << key;
    Redo(); // does not bring it back
    EXPECT_EQ(Told(), 0U) << key;
    EXPECT_EQ(dialog->EmbedData(), full) << key;
    EXPECT_EQ(box->textCursor().position(), 60) << key;
  }
  Key(Qt::Key_Tab);
  EXPECT_FALSE(box->hasFocus());
  EXPECT_EQ(dialog->EmbedData(), full);
}

TEST_F(FrmEmbedTest, CutsWhateverPutsTextIn) {
  const auto paste = [&](const QString& text) {
    auto* const data = new QMimeData; // the clipboard's then
    data->setText(text);
    data->setHtml("<b>" + text + "</b>");
    QApplication::clipboard()->setMimeData(data);
    Key(Qt::Key_V, Qt::ControlModifier);
  };
  const auto compose = [&](const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(box, &event);
  };
  const struct {
    const char* name;
    std::function<void(const QString&)> put;
    QString text;
    std::u16string stored;                                                            // after the 60th character
    int caret;                                                                        // in the box
  } cases[] = {{"paste", paste, "12345\U0001F600\U0001F601", u"12345\U0001F600", 67}, // a pair is two units
               {"paste lines", paste, "0123\r567\n", u"0123\r\n567", 68},
               {"input method", compose, "0123456789", u"012345678", 69}};
  const std::u16string given(115, u'.');
  for (const auto& [name, put, text, stored, caret] : cases) {
    SCOPED_TRACE(name);
    Open(given);
    PutCaret(60);
    put(text);
    EXPECT_EQ(dialog->EmbedData(), std::u16string(given).insert(60, stored).substr(0, 119));
    EXPECT_EQ(box->textCursor().position(), caret);
    EXPECT_EQ(Told(), 1U);
    Undo(); // as if it had not been put in
    EXPECT_EQ(dialog->EmbedData(), given);
    Redo();
    EXPECT_EQ(dialog->EmbedData().size(), 119U);
    EXPECT_EQ(Told(), 0U);
  }
}

TEST_F(FrmEmbedTest, KeepsWhatIsNotEditedUnitForUnit) {
  const std::u16string odd = u"\uFFFEa\rb\nc\r\nd\u2028e\u2029f\u00A0g\x01\x7F\t\uFFFC\uFDD0\uFEFF\xD800h\xDE00 ";
  const struct {
    std::u16string given, kept, edited; // after a character more at the end
  } cases[] = {
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
  }
}

TEST_F(FrmEmbedTest, CountsAsCancelledUnlessConfirmed) {
  const std::pair<const char*, std::function<void()>> ways[] = {{"OK", [&] { Press("cmdOK"); }},
                                                                {"Cancel", [&] { Press("cmdCancel"); }},
                                                                {"Escape", [&] { Key(Qt::Key_Escape); }},
                                                                {"close", [&] { dialog->close(); }}};
  for (const auto& [name, leave] : ways) {
    Open(u"text");
    leave();
    EXPECT_FALSE(dialog->isVisible()) << name;
    EXPECT_EQ(dialog->CancelPressed(), std::string(name) != "OK");
  }
}

TEST_F(FrmEmbedTest, ShowsTheWholeTextInTheChosenFont) {
  Open(u"some text");
  for (const auto& answer :
       {std::optional<FontDescription>(), std::optional(FontDescription{"Courier", 14, true, true})}) {
    fonts.answer = answer;
    Press("cmdFont");
    EXPECT_EQ(dialog->EmbeddedTextFont(), answer.value_or(FontDescription{}));
    const QFont& font = box->document()->defaultFont();
    EXPECT_EQ((FontDescription{font.family().toStdString(), font.pointSize(), font.bold(), font.italic()}),
              answer.value_or(FontDescription{}));
  }
  Press("cmdFont");
  EXPECT_EQ(fonts.preset, fonts.answer);
}

} // namespace
} // namespace mr4500x
