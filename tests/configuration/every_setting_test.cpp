// A new configuration, and two in which no two fields of a kind hold the same value (what has two values only differs
// over the two together), and what they are as bytes, in the table and the JSON document, on paper and in the window.
// Whatever shows one field for another, or under another's label, differs from the texts in the folder every_setting.
#include "configuration_json.h"
#include "configuration_table.h"
#include "editor_panel.h"
#include "report_pages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

namespace mr4500x {
namespace {

using Lines = std::vector<std::string>;

const FieldTexts& Texts() {
  static const FieldTexts texts = BuildFieldTexts('.');
  return texts;
}

Configuration ShownOf(const RadioImage& image) {
  const Decoded decoded = Decode(image, Texts());
  EXPECT_TRUE(decoded.end == DecodeEnd::Complete && !decoded.keyConflict);
  return decoded.configuration;
}

void Collect(Configuration configuration, RadioImage& image) {
  CompleteEmergencyPair(configuration);
  TakeSelectedStandard(configuration);
  Encode(configuration, image, Texts());
}

struct NoMessages final : MessageView {
  Answer Show(MessageIcon, std::string_view title, std::string_view text, MessageButtons) override {
    ADD_FAILURE() << title << ": " << text;
    return Answer::Ok;
  }
};

struct Window {
  RadioImage image;
  NoMessages messages;
  EditorPanel panel{image, Texts(), messages};

  explicit Window(const RadioImage& shown) : image(shown) { panel.Fill(); }
};

Lines LinesOf(std::istream& in) {
  Lines lines;
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
}

Lines FileLines(const std::string& name) {
  std::ifstream file(EVERY_SETTING "/" + name);
  EXPECT_TRUE(file) << name;
  return LinesOf(file);
}

void ExpectLines(const Lines& shown, const std::string& name) {
  const Lines expected = FileLines(name);
  EXPECT_EQ(shown.size(), expected.size()) << name;
  for (std::size_t i = 0; i < std::min(shown.size(), expected.size()); ++i)
    EXPECT_EQ(shown[i], expected[i]) << name << ", line " << i + 1;
}

void ExpectText(const std::string& shown, const std::string& name) {
  std::istringstream in(shown);
  ExpectLines(LinesOf(in), name);
}

// Lines "ADDRESS: BYTES", a record or two each; "#" begins a remark.
RadioImage ReadImage(const std::string& name) {
  RadioImage image;
  for (const std::string& line : FileLines(name)) {
    if (line.starts_with('#')) continue;
    std::istringstream in(line.substr(line.find(':') + 1));
    in >> std::hex;
    auto address = static_cast<std::uint16_t>(std::stoi(line, nullptr, 16));
    std::vector<std::uint8_t> record;
    for (unsigned byte = 0; in >> byte;) {
      record.push_back(static_cast<std::uint8_t>(byte));
      if (record.size() < RecordBytes) continue;
      EXPECT_EQ(PlaceRecord(image, address, record), PlaceResult::Placed) << line;
      address = static_cast<std::uint16_t>(address + RecordBytes);
      record.clear();
    }
    EXPECT_TRUE(record.empty()) << line;
  }
  return image;
}

void ExpectBytes(const RadioImage& image, const RadioImage& expected) {
  for (const BlockPlace& place : RecordMap) {
    const auto shown = BlockBytes(image, place.block), wanted = BlockBytes(expected, place.block);
    ASSERT_EQ(shown.size(), wanted.size());
    for (std::size_t i = 0; i < shown.size(); ++i)
      EXPECT_EQ(shown[i], wanted[i]) << "radio address 0x" << std::hex << place.address + i;
  }
}

// Every character as wide as a quarter of its font's height.
struct PlainMeasure : TextMeasure {
  double TextWidth(std::string_view text, const PrintFont& font) const override {
    return 5.0 * font.points * static_cast<double>(text.size());
  }
  double TextHeight(const PrintFont& font) const override { return 20.0 * font.points; }
};

std::string Number(double twips) {
  return std::to_string(static_cast<long>(twips));
}

// A page as lines "Y FONT: X TEXT | X TEXT …" and its rules, from top to bottom.
void AppendPage(Lines& lines, const char* title, const ReportPage& page) {
  std::map<std::tuple<double, int, bool, bool>, std::map<double, std::string>> rows;
  for (const PageText& text : page.texts)
    if (!text.text.empty()) rows[{text.y, text.font.points, text.font.bold, text.font.underlined}][text.x] = text.text;
  lines.emplace_back(title);
  for (const auto& [place, texts] : rows) {
    const auto& [y, points, bold, underlined] = place;
    std::string line;
    for (const auto& [x, text] : texts)
      line += (line.empty() ? "" : " | ") + Number(x) + ' ' + text;
    lines.push_back(Number(y) + ' ' + std::to_string(points) + (bold ? " bold" : "") +
                    (underlined ? " underlined" : "") + ": " + line);
  }
  std::map<std::tuple<double, double, double, double>, int> rules;
  for (const PageRule& rule : page.rules)
    ++rules[{rule.x1, rule.y1, rule.x2, rule.y2}];
  for (const auto& [rule, count] : rules) {
    const auto& [x1, y1, x2, y2] = rule;
    lines.push_back("rule " + Number(x1) + ',' + Number(y1) + " to " + Number(x2) + ',' + Number(y2));
    EXPECT_EQ(count, 1) << lines.back();
  }
}

std::string CheckText(const QCheckBox& box) {
  return box.isChecked() ? "checked" : "unchecked";
}

// What a control shows; nothing for one that the user does not see and for a widget of another kind.
std::optional<std::string> ShownIn(const QWidget& control) {
  if (control.isHidden()) return std::nullopt;
  std::string text;
  if (const auto* const list = qobject_cast<const QComboBox*>(&control)) {
    text = list->currentText().toStdString();
  } else if (const auto* const box = qobject_cast<const QLineEdit*>(&control)) {
    text = box->text().toStdString();
  } else if (const auto* const check = qobject_cast<const QCheckBox*>(&control)) {
    text = CheckText(*check);
  } else if (const auto* const label = qobject_cast<const QLabel*>(&control)) {
    text = label->text().toStdString();
  } else {
    return std::nullopt;
  }
  return control.isEnabled() ? text : text + " (disabled)";
}

// The name under which the user finds each control of a frame: its label, its own text, or what a screen reader says.
std::map<const QWidget*, std::string> NamesIn(const QGroupBox& frame) {
  std::map<const QWidget*, std::string> names;
  for (const auto* const control : frame.findChildren<QWidget*>()) {
    const auto* const label = qobject_cast<const QLabel*>(control);
    const auto* const check = qobject_cast<const QCheckBox*>(control);
    if (check != nullptr) {
      names[check] = check->text().toStdString();
    } else if (label != nullptr) {
      if (label->buddy() != nullptr) names[label->buddy()] = label->text().toStdString();
    } else if (qobject_cast<const QComboBox*>(control) != nullptr ||
               (qobject_cast<const QLineEdit*>(control) != nullptr)) {
      names.try_emplace(control, control->accessibleName().toStdString());
    }
  }
  return names;
}

Lines LinesOfFields(const QGroupBox& frame) {
  Lines lines;
  for (const auto& [control, name] : NamesIn(frame))
    if (const auto shown = ShownIn(*control)) lines.push_back("  " + name + ": " + *shown);
  std::ranges::sort(lines);
  return lines;
}

// A table with its headings, and before each row the check boxes that stand beside it.
Lines LinesOfTable(const QGroupBox& frame, const QTableWidget& table) {
  const auto places = [](const QWidget* a, const QWidget* b) {
    return std::pair(a->y(), a->x()) < std::pair(b->y(), b->x());
  };
  QList<QCheckBox*> boxes = frame.findChildren<QCheckBox*>();
  std::ranges::sort(boxes, places);
  QList<QLabel*> headings = frame.findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
  std::ranges::sort(headings, places);
  const qsizetype boxesInRow = boxes.size() / table.rowCount();
  Lines lines(1);
  const auto append = [&lines](const QString& text) {
    std::string& line = lines.back();
    line += (line.empty() || line.ends_with(": ") ? "" : " | ") + text.toStdString();
  };
  for (const QLabel* const heading : headings)
    append(heading->text());
  for (int column = 0; column < table.columnCount(); ++column)
    append(table.horizontalHeaderItem(column)->text());
  if (!table.isEnabled()) lines.back() += " (disabled)";
  for (int row = 0; row < table.rowCount(); ++row) {
    const auto* const header = table.verticalHeaderItem(row);
    lines.push_back(header != nullptr ? header->text().toStdString() + ": " : "");
    for (qsizetype box = 0; box < boxesInRow; ++box)
      append(QString::fromStdString(CheckText(*boxes[row * boxesInRow + box])));
    for (int column = 0; column < table.columnCount(); ++column)
      append(table.item(row, column)->text());
  }
  for (std::string& line : lines)
    line.insert(0, "  ");
  return lines;
}

Lines LinesOfWindow(const EditorPanel& panel) {
  std::map<std::string, Lines> frames;
  for (const auto* const frame : panel.findChildren<QGroupBox*>()) {
    const auto* const table = frame->findChild<QTableWidget*>();
    frames[frame->title().toStdString()] = table != nullptr ? LinesOfTable(*frame, *table) : LinesOfFields(*frame);
  }
  Lines lines;
  for (const auto& [title, contents] : frames) {
    lines.push_back(title);
    lines.insert(lines.end(), contents.begin(), contents.end());
  }
  return lines;
}

class EverySettingTest : public testing::TestWithParam<std::string> {
protected:
  [[nodiscard]] static std::string File(const char* name) { return GetParam() + '/' + name; }
  // A collect counts the channels in use and forgets the identity.
  static RadioImage AfterCollect(RadioImage image) {
    if (GetParam() == "new") image.RadioSettingsBlock[12] = 1;
    image.RadioIdBlock = {};
    return image;
  }
  const RadioImage image = ReadImage(File("radio.hex"));
  const Configuration configuration = ShownOf(image);
};

INSTANTIATE_TEST_SUITE_P(, EverySettingTest, testing::Values("tts", "five_tone", "new"),
                         [](const auto& mode) { return mode.param; });

TEST_P(EverySettingTest, CollectsTheBytesAgain) {
  RadioImage collected = image;
  Collect(configuration, collected);
  ExpectBytes(collected, AfterCollect(image));
  EXPECT_EQ(collected.FiveToneStandard, image.ResetTimeBlock[2]);

  // The bytes that belong to a field come from the configuration alone.
  RadioImage blank;
  Collect(configuration, blank);
  EXPECT_EQ(ShownOf(blank).channels, configuration.channels);
  EXPECT_EQ(ShownOf(blank).lists, configuration.lists);
}

TEST(NewConfigurationTest, HasTheDefaults) {
  RadioImage image;
  ResetToDefaults(image, {2004, 11, 4, 9, 5, 7});
  EXPECT_EQ(image.EmbeddedInfoBlock.length, 0U);
  image.EmbeddedInfoBlock.length = EmbeddedInfoCapacity;
  ExpectBytes(image, ReadImage("new/radio.hex"));
}

TEST_P(EverySettingTest, IsInTheTable) {
  ExpectText(ConfigurationTable(configuration), File("table.txt"));
}

TEST_P(EverySettingTest, IsInTheJsonDocument) {
  ExpectText(ConfigurationJson(configuration), File("document.json"));
}

TEST_P(EverySettingTest, IsOnPaper) {
  const ReportTexts texts = ReportTextsOf(configuration, u"", "24 Nov 2026 09:05:07");
  const PlainMeasure measure;
  const PageSetting setting{measure, {11906, 20000}}; // high enough for every scale to be 1
  Lines lines;
  AppendPage(lines, "Channels and settings", ChannelReportPage(texts, setting));
  AppendPage(lines, "TTS", TtsReportPage(texts, setting));
  ExpectLines(lines, File("report.txt"));
}

TEST_P(EverySettingTest, IsInTheWindow) {
  Window window(image);
  ExpectLines(LinesOfWindow(window.panel), File("window.txt"));
  window.panel.Collect();
  ExpectBytes(window.image, AfterCollect(image));
}

TEST(EveryListTest, OffersItsItems) {
  const Window window(ReadImage("new/radio.hex"));
  Lines lines;
  for (const auto* const label : window.panel.findChildren<QLabel*>()) {
    const auto* const list = qobject_cast<QComboBox*>(label->buddy());
    if (list == nullptr) continue;
    std::string& line = lines.emplace_back(label->text().toStdString() + ": ");
    for (int i = 0; i < list->count(); ++i)
      line += (i == 0 ? "" : "|") + list->itemText(i).toStdString();
  }
  std::ranges::sort(lines);
  ExpectLines(lines, "lists.txt");
}

} // namespace
} // namespace mr4500x
