// frmEmbed: edits the embedded information and its font. embedded_info.h limits the length.
#pragma once

#include "desktop.h"
#include "message_view.h"

#include <QDialog>
#include <QTimer>

#include <string>

class QLabel;
class QPlainTextEdit;

namespace mr4500x {

struct EmbedContent {
  std::u16string text;  // as in the radio; shown up to its first zero character
  std::string lastTime; // the last programming time
  FontDescription font;
};

class FrmEmbed final : public QDialog {
  Q_OBJECT
public:
  FrmEmbed(const EmbedContent& content, MessageView& messages, FontDialog& fonts, QWidget* parent);

  // An unedited text is returned exactly as given, even one that fills all 120 units of the radio or has characters
  // that the box changes, such as a lone line feed.
  [[nodiscard]] const std::u16string& EmbedData() const { return m_EmbedData; }
  [[nodiscard]] bool CancelPressed() const { return m_CancelPressed; }
  // The font last chosen, even after Cancel.
  [[nodiscard]] const FontDescription& EmbeddedTextFont() const { return m_EmbeddedTextFont; }

private:
  void LayOut(const QString& lastTime);
  void ApplyFont();
  void ShowCount();
  void rtxtbEmbed_Change();
  void cmdFont_Click();
  void cmdOK_Click();

  MessageView& m_messages;
  FontDialog& m_fonts;
  QPlainTextEdit* m_rtxtbEmbed;
  QLabel* m_lblCount;
  std::u16string m_given;      // the original text ...
  std::u16string m_givenShown; // ... and how the box shows it
  std::u16string m_EmbedData;
  FontDescription m_EmbeddedTextFont;
  bool m_CancelPressed = true;
  bool m_isCorrecting = false;
  QTimer m_tellTopSize;
};

} // namespace mr4500x
