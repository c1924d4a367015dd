#include "frm_embed.h"

#include "embedded_info.h"
#include "fill_messages.h"
#include "frame_parts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTextCursor>
#include <QVBoxLayout>

namespace mr4500x {
namespace {

constexpr int BoxColumns = 66, BoxRows = 8; // least size, in the dialog's font

// Accepts only plain text from a paste or drop. Qt 6.4's box takes the first format without checking that there is one,
// and a clipboard that is empty or whose owner has ended has none.
class TextOnlyBox final : public QPlainTextEdit {
public:
  using QPlainTextEdit::QPlainTextEdit;

protected:
  void insertFromMimeData(const QMimeData* source) override {
    if (source != nullptr) insertPlainText(source->text());
    ensureCursorVisible();
  }
};

// Copies unit by unit, because QString::fromUtf16 would interpret a leading FEFF or FFFE as a byte order mark.
QString ToQString(std::u16string_view text) {
  return QStringView(text).toString();
}

// The raw text, because toPlainText would replace no-break spaces by spaces.
std::u16string ShownText(const QPlainTextEdit& box) {
  return box.document()->toRawText().toStdU16String();
}

// Replaces the last change by the corrected one, so that neither undo nor redo leads to a text that is too long.
void Correct(QPlainTextEdit& box, const EmbeddedEntry& entry) {
  box.document()->undo();
  box.document()->clearUndoRedoStacks(QTextDocument::RedoStack);
  QTextCursor cursor(box.document());
  if (TextToStore(ShownText(box)) != entry.text) {
    cursor.select(QTextCursor::Document);
    cursor.insertText(ToQString(entry.text));
  }
  cursor.setPosition(static_cast<int>(ShownLength(std::u16string_view(entry.text).substr(0, entry.caret))));
  box.setTextCursor(cursor);
}

} // namespace

FrmEmbed::FrmEmbed(const EmbedContent& content, MessageView& messages, FontDialog& fonts, QWidget* parent)
    : QDialog(parent), m_messages(messages), m_fonts(fonts), m_rtxtbEmbed(new TextOnlyBox(this)),
      m_lblCount(new QLabel(this)), m_given(VisibleText(content.text)), m_EmbedData(m_given),
      m_EmbeddedTextFont(content.font) {
  setObjectName(QStringLiteral("frmEmbed"));
  setWindowTitle(tr("Embedded Information"));
  LayOut(QString::fromStdString(content.lastTime));
  m_rtxtbEmbed->setPlainText(ToQString(m_given));
  m_givenShown = ShownText(*m_rtxtbEmbed);
  ApplyFont();
  ShowCount();
  m_tellTopSize.setSingleShot(true);
  m_tellTopSize.callOnTimeout(
      [this] { m_messages.Show(MessageIcon::None, TopSizeTitle, TopSizeText, MessageButtons::Ok); });
  connect(m_rtxtbEmbed, &QPlainTextEdit::textChanged, this, &FrmEmbed::rtxtbEmbed_Change);
}

void FrmEmbed::LayOut(const QString& lastTime) {
  m_rtxtbEmbed->setObjectName(QStringLiteral("rtxtbEmbed"));
  m_rtxtbEmbed->setAccessibleName(windowTitle());
  m_rtxtbEmbed->setTabChangesFocus(true);
  m_rtxtbEmbed->setMinimumSize(fontMetrics().averageCharWidth() * BoxColumns, fontMetrics().lineSpacing() * BoxRows);
  m_lblCount->setObjectName(QStringLiteral("lblCount"));
  auto* const label = new QLabel(tr("Last Programming Time"), this);
  label->setObjectName(QStringLiteral("Label1"));
  auto* const lblLastTime = new QLabel(lastTime, this);
  lblLastTime->setObjectName(QStringLiteral("lblLastTime"));
  lblLastTime->setTextFormat(Qt::PlainText); // comes from the radio
  auto* const time = new QHBoxLayout;
  time->addWidget(label);
  time->addWidget(lblLastTime);
  time->addStretch();
  time->addWidget(m_lblCount);
  auto* const cmdFont = new QPushButton(tr("Font..."), this);
  cmdFont->setObjectName(QStringLiteral("cmdFont"));
  connect(cmdFont, &QPushButton::clicked, this, &FrmEmbed::cmdFont_Click);
  const OkCancel buttons = NewOkCancel(*this);
  buttons.row->insertWidget(0, cmdFont);
  connect(buttons.ok, &QPushButton::clicked, this, &FrmEmbed::cmdOK_Click);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(m_rtxtbEmbed);
  layout->addLayout(time);
  layout->addLayout(buttons.row);
}

void FrmEmbed::ApplyFont() {
  QFont font(QString::fromStdString(m_EmbeddedTextFont.name), m_EmbeddedTextFont.size);
  font.setBold(m_EmbeddedTextFont.bold);
  font.setItalic(m_EmbeddedTextFont.italic);
  m_rtxtbEmbed->setFont(font);
}

void FrmEmbed::ShowCount() {
  m_lblCount->setText(QStringLiteral("%1 / %2").arg(m_EmbedData.size()).arg(MostEmbeddedCharacters));
}

void FrmEmbed::rtxtbEmbed_Change() {
  if (m_isCorrecting) return;
  const std::u16string shown = ShownText(*m_rtxtbEmbed);
  const auto caret = static_cast<std::size_t>(m_rtxtbEmbed->textCursor().position());
  EmbeddedEntry entry = {TextToStore(shown), TextToStore(std::u16string_view(shown).substr(0, caret)).size()};
  if (shown != m_givenShown && CutToTopSize(entry)) {
    const QScopedValueRollback guard(m_isCorrecting, true);
    Correct(*m_rtxtbEmbed, entry);
    // Deferred: the change may come from a drop or an input method, which must not wait in a message box.
    m_tellTopSize.start();
  }
  // Undo can also restore the original text.
  m_EmbedData = ShownText(*m_rtxtbEmbed) == m_givenShown ? m_given : entry.text;
  ShowCount();
}

void FrmEmbed::cmdFont_Click() {
  const std::optional<FontDescription> chosen = m_fonts.AskFont(m_EmbeddedTextFont);
  if (!chosen) return;
  m_EmbeddedTextFont = *chosen;
  ApplyFont();
}

void FrmEmbed::cmdOK_Click() {
  m_CancelPressed = false;
  accept();
}

} // namespace mr4500x
