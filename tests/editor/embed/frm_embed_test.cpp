// The dialog of the embedded information under keys, clipboard, drops and input methods.
#include "frm_embed.h"

#include "fill_messages.h"
#include "functions_fixture.h"

#include <QApplication>
#include <QClipboard>
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

class FrmEmbedTest : public testing::Test {
protected:
  void Open(const std::u16string& text, const FontDescription& font = {}) {
    dialog = std::make_unique<FrmEmbed>(EmbedContent{text, "2004-11-04, 09:30:15", font}, messages, fonts, nullptr);
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
  int Caret() { return box->textCursor().position(); }
  QString Text(const char* label) { return dialog->findChild<QLabel*>(label)->text(); }
  void Press(const char* button) {
    QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
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
  EXPECT_EQ(dialog->windowTitle(), "Embedded Information");
  EXPECT_EQ(Text("Label1"), "Last Programming Time");
  EXPECT_EQ(Text("lblLastTime"), "2004-11-04, 09:30:15");
  ASSERT_TRUE(box->hasFocus());
  const QString typed = QString("0123456789").repeated(12).first(117);
  QTest::keyClicks(box, typed);
  PutCaret(2);
  Key(Qt::Key_Return);
  EXPECT_EQ(dialog->EmbedData().substr(0, 5), u"01\r\n2");
  EXPECT_EQ(Text("lblCount"), "119 / 119");
  EXPECT_EQ(Told(), 0U);

  const std::u16string full = dialog->EmbedData();
  const QString shown = box->toPlainText();
  for (const auto key : {Qt::Key_X, Qt::Key_Return}) // in the middle, after the line end
    for (const int caret : {3, 60}) {
      PutCaret(caret);
      Key(key);
      EXPECT_EQ(Told(), 1U);
      Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); // does not bring it back
      EXPECT_EQ(Told(), 0U);
      EXPECT_EQ(box->toPlainText(), shown);
      EXPECT_EQ(dialog->EmbedData(), full);
      EXPECT_EQ(Caret(), caret);
    }
  Key(Qt::Key_Tab);
  EXPECT_FALSE(box->hasFocus());
  EXPECT_EQ(dialog->EmbedData(), full);
  Press("cmdOK");
  EXPECT_FALSE(dialog->CancelPressed());
}

TEST_F(FrmEmbedTest, AppliesTheRuleToWhateverPutsTextIn) {
  const std::u16string given(115, u'.'), front(60, u'.'), rest(50, u'.');
  const auto plain = [](const QString& text) {
    auto* const data = new QMimeData;
    data->setText(text);
    data->setHtml("<b>" + text + "</b>");
    return data;
  };
  const std::function<void(const QString&)> ways[] = {
      [&](const QString& text) {
        QApplication::clipboard()->setMimeData(plain(text));
        Key(Qt::Key_V, Qt::ControlModifier);
      },
      [&](const QString& text) {
        const std::unique_ptr<QMimeData> data(plain(text));
        const QPointF at = box->cursorRect().center();
        QWidget* const target = box->viewport();
        QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(target, &enter);
        QDropEvent drop(at, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(target, &drop);
      },
      [&](const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(box, &event);
      },
  };
  const struct {
    QString text;
    std::u16string stored; // between the 60 units before and the rest
    int caret;             // in the box
  } cases[] = {
      {"0123456789", u"012345678", 69},
      {"12345\U0001F600\U0001F601", u"12345\U0001F600", 67}, // a pair is two units and goes whole
      {"1234567\n9", u"1234567\r\n", 68},
      {"0123\r567\n", u"0123\r\n567", 68},
  };
  for (const auto& put : ways) {
    for (const auto& [text, stored, caret] : cases) {
      Open(given);
      PutCaret(60);
      put(text);
      EXPECT_EQ(dialog->EmbedData(), (front + stored + std::u16string(55, u'.')).substr(0, 119)) << text.toStdString();
      EXPECT_EQ(Caret(), caret);
      EXPECT_EQ(Told(), 1U);
      Key(Qt::Key_Z, Qt::ControlModifier); // as if it had not been put in
      EXPECT_EQ(dialog->EmbedData(), given);
      Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
      EXPECT_EQ(dialog->EmbedData().size(), 119U);
      EXPECT_EQ(Told(), 0U);
    }
  }
}

TEST_F(FrmEmbedTest, KeepsWhatIsNotEditedUnitForUnit) {
  const std::u16string odd = u"a\rb\nc\r\nd\u2028e\u2029f\u00A0g\x01\x7F\t\uFFFC\uFDD0\uFEFF\xD800h\xDE00 ";
  const struct {
    std::u16string given, kept, edited; // after a character more at the end
  } cases[] = {
      {odd, odd, u"a\r\nb\r\nc\r\nd\r\ne\r\nf\u00A0g\x01\x7F\t\uFFFC\r\n\uFEFF\xD800h\xDE00 +"},
      {std::u16string(u"AB\0CD", 5), u"AB", u"AB+"},
      {std::u16string(120, u'\0'), u"", u"+"},
      {u"\uFFFEAB", u"\uFFFEAB", u"\uFFFEAB+"},                                          // no byte order mark
      {std::u16string(120, u'x'), std::u16string(120, u'x'), std::u16string(119, u'x')}, // a full radio
  };
  for (const auto& [given, kept, edited] : cases) {
    Open(given);
    EXPECT_EQ(dialog->EmbedData(), kept);
    box->moveCursor(QTextCursor::End);
    Key(Qt::Key_Plus);
    EXPECT_EQ(dialog->EmbedData(), edited);
    EXPECT_EQ(Told(), given.back() == u'x' ? 1U : 0U); // none for having opened
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(dialog->EmbedData(), kept); // as it was given again
    EXPECT_EQ(Told(), 0U);
    Press("cmdOK");
    EXPECT_FALSE(dialog->CancelPressed());
    EXPECT_EQ(dialog->EmbedData(), kept);
  }
}

TEST_F(FrmEmbedTest, CountsAsCancelledUnlessConfirmed) {
  const std::function<void()> ways[] = {[&] { Press("cmdCancel"); }, [&] { Key(Qt::Key_Escape); },
                                        [&] { dialog->close(); }};
  for (const auto& leave : ways) {
    Open(u"text");
    QTest::keyClicks(box, "more ");
    leave();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_TRUE(dialog->CancelPressed());
  }
}

TEST_F(FrmEmbedTest, ShowsTheWholeTextInTheChosenFont) {
  const FontDescription courier{"Courier", 14, true, true};
  Open(u"some text");
  for (const auto& [answer, expected] :
       {std::pair{std::optional<FontDescription>(), FontDescription{}}, std::pair{std::optional(courier), courier}}) {
    fonts.answer = answer;
    QTest::mouseClick(dialog->findChild<QPushButton*>("cmdFont"), Qt::LeftButton);
    EXPECT_EQ(fonts.preset, FontDescription{});
    EXPECT_EQ(dialog->EmbeddedTextFont(), expected);
    const QFont& font = box->document()->defaultFont();
    EXPECT_EQ(font.family().toStdString(), expected.name);
    EXPECT_EQ(font.pointSize(), expected.size);
    EXPECT_EQ(font.bold(), expected.bold);
    EXPECT_EQ(font.italic(), expected.italic);
  }
  EXPECT_EQ(dialog->EmbedData(), u"some text");
}

} // namespace
} // namespace mr4500x
