// Report 3: the embedded information, broken into lines.
#include "report_pages.h"

#include <algorithm>
#include <string_view>

namespace mr4500x {
namespace {

constexpr double Top = 600;
constexpr double Left = 400;
constexpr double EmptyNoteX = 800;
constexpr double RightSpace = 1000;
constexpr PrintFont EmptyNoteFont = {12, true};

constexpr char32_t Replacement = 0xFFFD; // for half a surrogate pair

std::string Utf8(char32_t c) {
  const auto trail = [c](int shift) { return static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x80) return {static_cast<char>(c)};
  if (c < 0x800) return {static_cast<char>(0xC0 | (c >> 6)), trail(0)};
  if (c < 0x10000) return {static_cast<char>(0xE0 | (c >> 12)), trail(6), trail(0)};
  return {static_cast<char>(0xF0 | (c >> 18)), trail(12), trail(6), trail(0)};
}

// Takes one unit, or two for a surrogate pair.
char32_t TakeCharacter(std::u16string_view& text) {
  const char32_t first = text.front();
  text.remove_prefix(1);
  if (first < 0xD800 || first > 0xDFFF) return first;
  if (first > 0xDBFF || text.empty() || text.front() < 0xDC00 || text.front() > 0xDFFF) return Replacement;
  const char32_t second = text.front();
  text.remove_prefix(1);
  return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

// Drops zero characters, so that a text of nothing else counts as empty, and blanks at the ends.
std::u16string PrintableText(std::u16string_view text) {
  std::u16string printable;
  for (const char16_t unit : text)
    if (unit != u'\0') printable += unit;
  const std::size_t first = printable.find_first_not_of(u' ');
  if (first == std::u16string::npos) return {};
  return printable.substr(first, printable.find_last_not_of(u' ') - first + 1);
}

// A lone line feed ends a line too: other programs write such texts.
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
  void Append(char32_t character) {
    const std::string shown = Utf8(std::max(character, U' ')); // no control characters to the printer
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
