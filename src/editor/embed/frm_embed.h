// frmEmbed: edits the embedded information, and shows it in a font of the user's choice. It takes the text and the
// font and gives back new ones; how much text there may be is left to embedded_text_rule.h.
#pragma once

#include "font_dialog.h"
#include "message_view.h"

#include <QDialog>
#include <QTimer>

#include <string>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace mr4500x {

// What the dialog shows when it opens.
struct EmbedContent {
  std::u16string text;  // as the radio has it; shown up to its first zero character
  std::string lastTime; // the last programming time
  FontDescription font;
};

class FrmEmbed final : public QDialog {
  Q_OBJECT

public:
  FrmEmbed(const EmbedContent& content, MessageView& messages, FontDialog& fonts, QWidget* parent);

  // The text of the box. What the user has not edited stays as it was given, unit for unit: also a text of the 120
  // units that a radio can hold, and characters that the box shows in another way, such as a lone line feed.
  [[nodiscard]] const std::u16string& EmbedData() const { return m_EmbedData; }
  [[nodiscard]] bool CancelPressed() const { return m_CancelPressed; }
  // The font last chosen, whether or not the text was confirmed.
  [[nodiscard]] const FontDescription& EmbeddedTextFont() const { return m_EmbeddedTextFont; }

private:
  void LayOut();
  void ApplyFont();
  void ShowCount();
  void rtxtbEmbed_Change();
  void cmdFont_Click();
  void cmdOK_Click();

  MessageView& m_messages;
  FontDialog& m_fonts;
  QPlainTextEdit* m_rtxtbEmbed;
  QLabel* m_lblCount;
  QLabel* m_lblLastTime;
  QPushButton* m_cmdFont;
  std::u16string m_given;      // the text that the dialog opened with ...
  std::u16string m_givenShown; // ... and how the box shows it
  std::u16string m_EmbedData;
  FontDescription m_EmbeddedTextFont;
  bool m_CancelPressed = true;
  bool m_isCorrecting = false;
  QTimer m_tellTopSize;
};

} // namespace mr4500x
