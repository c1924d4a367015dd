// A new configuration, and two in which no two fields of a kind hold the same value (fields with only two values differ
// over both together), as bytes, in the table and the JSON document, on paper and in the window. If any of these
// confuses two fields or labels, it differs from the texts in the folder every_setting.
#include "configuration_json.h"
#include "configuration_texts.h"
#include "editor_fixture.h"
#include "embedded_info.h"
#include "report_fixture.h"
#include "report_pages.h"
#include "rows.h"

#include <QGroupBox>
#include <QLabel>

#include <algorithm>
#include <map>
#include <set>

namespace mr4500x {
namespace {

const FieldTexts& Texts() {
  static const FieldTexts texts = BuildFieldTexts('.');
  return texts;
}

Configuration ShownOf(const RadioImage& image) {
  const Decoded decoded = Decode(image, Texts());
  EXPECT_TRUE(decoded.end == DecodeEnd::Complete && decoded.keyConflicts == 0);
  return decoded.configuration;
}

// Rows "ADDRESS: BYTES", a record or two each.
RadioImage ReadImage(const std::string& name) {
  RadioImage image;
  for (const Row& row : RowsOf(EVERY_SETTING "/" + name, "(.*): (.*)")) {
    const std::vector<std::uint8_t> bytes = BytesOf(row[2]);
    for (std::size_t i = 0; i < bytes.size(); i += RecordBytes) {
      const auto address = static_cast<std::uint16_t>(std::stoul(row[1], nullptr, 16) + i);
      EXPECT_EQ(PlaceRecord(image, address, std::span(bytes).subspan(i, RecordBytes)), PlaceResult::Placed) << row[0];
    }
  }
  return image;
}

void ExpectBytes(const RadioImage& image, const RadioImage& expected) {
  for (const BlockLocation& place : RecordMap) {
    const auto shown = BlockBytes(image, place.block), wanted = BlockBytes(expected, place.block);
    ASSERT_EQ(shown.size(), wanted.size());
    for (std::size_t i = 0; i < shown.size(); ++i)
      EXPECT_EQ(shown[i], wanted[i]) << "radio address 0x" << std::hex << place.address + i;
  }
}

std::string Number(double twips) {
  return std::to_string(static_cast<long>(twips));
}

// A page as lines "Y FONT: X TEXT | X TEXT …" from top to bottom.
std::string PageText(const char* title, const ReportPage& page) {
  std::map<std::tuple<double, int, bool, bool>, std::map<double, std::string>> rows;
  for (const auto& text : page.texts)
    if (!text.text.empty()) rows[{text.y, text.font.points, text.font.bold, text.font.underlined}][text.x] = text.text;
  std::string shown = std::string(title) + '\n';
  for (const auto& [place, texts] : rows) {
    const auto& [y, points, bold, underlined] = place;
    shown += Number(y) + ' ' + std::to_string(points) + (bold ? " bold" : "") + (underlined ? " underlined" : "") + ':';
    for (const auto& [x, text] : texts)
      shown += (x == texts.begin()->first ? " " : " | ") + Number(x) + ' ' + text;
    shown += '\n';
  }
  return shown;
}

std::string CheckText(const QCheckBox& box) {
  return box.isChecked() ? "checked" : "unchecked";
}

// The name by which the user finds a control of a frame: its own text, its label, or its name for screen readers.
std::string NameOf(const QWidget& control, const QGroupBox& frame) {
  if (const auto* const check = qobject_cast<const QCheckBox*>(&control)) return check->text().toStdString();
  for (const auto* const label : frame.findChildren<QLabel*>())
    if (label->buddy() == &control) return label->text().toStdString();
  return control.accessibleName().toStdString();
}

// The content of all visible lists, boxes and labels.
std::set<std::string> FieldsOf(const QGroupBox& frame) {
  std::set<std::string> lines;
  for (const auto* const control : frame.findChildren<QWidget*>()) {
    const QVariant text =
        control->property(qobject_cast<const QComboBox*>(control) != nullptr ? "currentText" : "text");
    const std::string name = NameOf(*control, frame);
    if (control->isHidden() || control->inherits("QSpinBox") || !text.isValid() || name.empty()) continue;
    const auto* const check = qobject_cast<const QCheckBox*>(control);
    lines.insert("  " + name + ": " + (check != nullptr ? CheckText(*check) : text.toString().toStdString()) +
                 (control->isEnabled() ? "\n" : " (disabled)\n"));
  }
  return lines;
}

// A table with its headings, and before each row the check boxes that stand beside it.
std::string TableOf(const QGroupBox& frame, const QTableWidget& table) {
  const auto inPlace = [](auto widgets) {
    std::ranges::sort(widgets, {}, [](const QWidget* widget) { return std::pair(widget->y(), widget->x()); });
    return widgets;
  };
  const auto boxes = inPlace(frame.findChildren<QCheckBox*>());
  const qsizetype boxesInRow = boxes.size() / table.rowCount();
  QStringList headings;
  for (const QLabel* const heading : inPlace(frame.findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)))
    headings.append(heading->text());
  const int first = table.isColumnHidden(0) ? 1 : 0;
  for (int column = first; column < table.columnCount(); ++column)
    headings.append(table.horizontalHeaderItem(column)->text());
  QString text = "  " + headings.join(" | ") + (table.isEnabled() ? "\n" : " (disabled)\n");
  for (int row = 0; row < table.rowCount(); ++row) {
    QStringList cells;
    for (qsizetype box = 0; box < boxesInRow; ++box)
      cells.append(QString::fromStdString(CheckText(*boxes[row * boxesInRow + box])));
    for (int column = first; column < table.columnCount(); ++column)
      cells.append(table.item(row, column)->text());
    const QString label = table.model()->headerData(row, Qt::Vertical).toString();
    text += "  " + label + ": " + cells.join(" | ") + '\n';
  }
  return text.toStdString();
}

std::string WindowText(const EditorPanel& panel) {
  std::map<std::string, std::string> frames;
  for (const auto* const frame : panel.findChildren<QGroupBox*>()) {
    std::string& text = frames[frame->title().toStdString()];
    if (const auto* const table = frame->findChild<QTableWidget*>())
      text = TableOf(*frame, *table);
    else
      for (const std::string& line : FieldsOf(*frame))
        text += line;
  }
  std::string shown;
  for (const auto& [title, text] : frames)
    shown.append(title).append("\n").append(text);
  return shown;
}

class EverySettingTest : public testing::TestWithParam<std::string> {
protected:
  static void ExpectFile(const char* name, const std::string& shown) {
    std::ifstream file(EVERY_SETTING "/" + GetParam() + '/' + name);
    EXPECT_EQ(shown, std::string(std::istreambuf_iterator<char>(file), {}));
  }
  // A collect counts the channels in use and forgets the identity.
  static RadioImage AfterCollect(RadioImage image) {
    if (GetParam() == "new") image.RadioSettingsBlock[12] = 1;
    image.RadioIdBlock = {};
    return image;
  }
  const RadioImage image = ReadImage(GetParam() + "/radio.hex");
  const Configuration configuration = ShownOf(image);
};

INSTANTIATE_TEST_SUITE_P(, EverySettingTest, testing::Values("tts", "five_tone", "new"),
                         [](const auto& mode) { return mode.param; });

TEST_P(EverySettingTest, CollectsTheBytesAgain) {
  RadioImage collected = image;
  SettleAfterFill(collected);
  Encode(configuration, collected, Texts());
  ExpectBytes(collected, AfterCollect(image));
  EXPECT_EQ(collected.FiveToneStandard, image.ResetTimeBlock[2]);

  // The bytes that belong to a field come from the configuration alone.
  RadioImage blank;
  blank.FiveToneStandard = image.ResetTimeBlock[2]; // not a field in TTS mode
  Encode(configuration, blank, Texts());
  EXPECT_EQ(ShownOf(blank).channels, configuration.channels);
  EXPECT_EQ(ShownOf(blank).lists, configuration.lists);
}

TEST(NewConfigurationTest, HasTheDefaultsAndKeepsWhatHasNone) {
  for (const std::uint8_t before : {std::uint8_t{0x00}, std::uint8_t{0xA5}}) {
    RadioImage image, expected = ReadImage("new/radio.hex");
    for (const BlockLocation& place : RecordMap)
      std::ranges::fill(BlockBytes(image, place.block), before);
    for (const ImageBlock kept :
         {ImageBlock::RadioIdBlock, ImageBlock::FirmwareVersionBlock, ImageBlock::SelCallCodeBlock})
      std::ranges::fill(BlockBytes(expected, kept), before);
    std::fill(expected.ResetTimeBlock.begin() + 3, expected.ResetTimeBlock.end(), before);
    expected.BandBlock[7] = before;
    ResetToDefaults(image, {2004, 11, 4, 9, 5, 7});
    EXPECT_EQ(image.EmbeddedInfoBlock.length, 0U);
    EXPECT_EQ(LastProgrammingTime(image), "2004-11-04, 09:05:07");
    image.EmbeddedInfoBlock = expected.EmbeddedInfoBlock;
    ExpectBytes(image, expected);
  }
}

TEST_P(EverySettingTest, IsInTheTable) {
  ExpectFile("table.txt", ConfigurationTable(configuration));
}

TEST_P(EverySettingTest, IsInTheJsonDocument) {
  ExpectFile("document.json", ConfigurationJson(configuration));
}

TEST_P(EverySettingTest, IsOnPaper) {
  const ReportTexts texts = TextsOf(configuration);
  const ScriptedPrinter measure;
  const PageSetting setting{measure, {11906, 20000}}; // high enough for every scale to be 1
  ExpectFile("report.txt", PageText("Channels and settings", ChannelReportPage(texts, setting)) +
                               PageText("TTS", TtsReportPage(texts, setting)));
}

TEST_P(EverySettingTest, IsInTheWindow) {
  RadioImage shown = image;
  ScriptedMessages messages;
  EditorPanel panel(shown, Texts(), messages);
  panel.Fill();
  ExpectFile("window.txt", WindowText(panel));
  panel.Collect();
  ExpectBytes(shown, AfterCollect(image));
  EXPECT_EQ(messages.shown, Lines());
}

} // namespace
} // namespace mr4500x
