// Report 3: the embedded information, broken into lines.
#include "embedded_info.h"
#include "report_pages.h"
#include "utf8.h"

#include <string_view>

namespace mr4500x {
namespace {

constexpr double Top = 600;
constexpr double Left = 400;
constexpr double EmptyNoteX = 800;
constexpr double RightSpace = 1000;
constexpr PrintFont EmptyNoteFont = {12, true};

std::u16string_view TakeCharacter(std::u16string_view& text) {
  const std::u16string_view character = text.substr(0, IsInsideCharacter(text, 1) ? 2 : 1);
  text.remove_prefix(character.size());
  return character;
}

// Removes blanks at the ends, and zero characters, so that a text of only zeros counts as empty.
std::u16string PrintableText(std::u16string_view text) {
  std::u16string printable;
  for (const char16_t unit : text)
    if (unit != u'\0') printable += unit;
  const std::size_t first = printable.find_first_not_of(u' ');
  if (first == std::u16string::npos) return {};
  return printable.substr(first, printable.find_last_not_of(u' ') - first + 1);
}

// A lone line feed also ends a line, because other programs write such texts.
bool TakeLineEnd(std::u16string_view& text) {
  if (text.front() != u'\r' && text.front() != u'\n') return false;
  text.remove_prefix(text.substr(0, 2) == u"\r\n" ? 2 : 1);
  return true;
}

class LineWriter {
public:
  LineWriter(ReportPage& page, const PageSetting& setting)
      : m_page(page), m_setting(setting), m_lineStep(1.2 * setting.measure.TextHeight(FrameFont)),
        m_paragraphStep(1.5 * m_lineStep), m_y(Top + m_paragraphStep) {}

  [[nodiscard]] double FirstLine() const { return m_y; }

  void Write(std::u16string_view text) {
    while (!text.empty())
      if (TakeLineEnd(text))
        EndLine(m_paragraphStep);
      else
        Append(TakeCharacter(text));
    EndLine(0);
  }

private:
  void Append(std::u16string_view character) {
    const std::string shown =
        character.front() < u' ' ? " " : ToUtf8(character); // no control characters to the printer
    const double width = m_setting.measure.TextWidth(shown, Small);
    if (m_width + width > m_setting.area.width - RightSpace) EndLine(m_lineStep);
    m_line += shown;
    m_width += width;
  }

  void EndLine(double step) {
    m_page.texts.push_back({Left, m_y, Small, m_line});
    m_line.clear();
    m_width = 0;
    m_y += step;
  }

  ReportPage& m_page;
  const PageSetting& m_setting;
  double m_lineStep, m_paragraphStep, m_y;
  std::string m_line;
  double m_width = 0;
};

} // namespace

ReportPage InfoReportPage(const ReportTexts& texts, const PageSetting& setting) {
  return FramedPage(texts, setting, [&](ReportPage& page, const PageSetting& onSetting) {
    page.texts.push_back({Left, Top, TitleFont, "Embedded Information"});
    LineWriter writer(page, onSetting);
    const std::u16string text = PrintableText(texts.embeddedText);
    if (text.empty())
      page.texts.push_back({EmptyNoteX, writer.FirstLine(), EmptyNoteFont, "No Embedded Information."});
    else
      writer.Write(text);
  });
}

} // namespace mr4500x
