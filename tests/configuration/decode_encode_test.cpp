#include "configuration.h"

#include "function_settings.h"
#include "image_bytes.h"
#include "set_field.h"

#include <iomanip>

namespace mr4500x {
namespace {

std::string ChangedBytes(const RadioImage& before, const RadioImage& after) {
  std::ostringstream changed;
  changed << std::hex << std::uppercase << std::setfill('0');
  for (std::uint16_t address = 0, next = 0xFFFF; address < 0x400; ++address) {
    const std::size_t i = address % RecordBytes; // in a record, because some blocks do not fill their last one
    const auto record = static_cast<std::uint16_t>(address - i);
    const auto was = TakeRecord(before, record), is = TakeRecord(after, record);
    if (!was || was->at(i) == is->at(i)) continue;
    changed << (changed.tellp() > 0 ? " " : "");
    if (address != std::exchange(next, address + 1)) changed << std::setw(3) << address << '=';
    changed << std::setw(2) << int{is->at(i)};
  }
  return changed.str();
}

const std::regex StepForm("(\\S+) (=|is) ?([^;]*)(; )?");

class DecodeEncodeTest : public testing::Test {
protected:
  FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  Configuration values;

  void SetUp() override {
    image = {};
    values = NewConfiguration(image, texts, {2026, 1, 2, 3, 4, 5});
  }
  Decoded Fill() {
    Decoded decoded = Decode(image, texts);
    SettleAfterFill(image);
    values = decoded.configuration;
    return decoded;
  }
  void Collect() { Encode(values, image, texts); }
};

TEST_F(DecodeEncodeTest, BytesAreShownAndStoredAsTheFileSays) {
  for (const Row& row : RowsOf(CASES "stored_bytes.txt", "(comma, )?[^:]+: (.*?) ?\\| (.*?) ?\\| ?(.*)")) {
    SCOPED_TRACE(row[0]);
    texts = BuildFieldTexts(row[1].empty() ? '.' : ',');
    SetUp();
    Collect();
    PutBytes(image, row[2]);
    Fill();
    const RadioImage before = image;
    std::smatch step;
    for (std::string rest = row[3]; std::regex_search(rest, step, StepForm); rest = step.suffix()) {
      const FieldAt at = FindField(step.str(1)).value();
      if (step[2] == "is")
        EXPECT_EQ(ValueOf(values, at), step.str(3)) << step.str();
      else if (at.field->kind == FieldKind::Choice && !IsArray(at.field->group))
        EXPECT_FALSE(SetField(values, at, step.str(3), texts)) << step.str();
      else
        TextIn(values, at) = step[3]; // whatever the rules say
    }
    Collect();
    EXPECT_EQ(ChangedBytes(before, image), row[4]);
    EXPECT_EQ(image.FiveToneStandard, image.ResetTimeBlock[2]);
  }
}

TEST_F(DecodeEncodeTest, KeyBytes) {
  for (const Row& row : RowsOf(CASES "key_bytes.txt", "[^:]+: (.*) -> (.*) -> (.*)")) {
    SCOPED_TRACE(row[0]);
    SetUp();
    std::ranges::copy(BytesOf(row[1]), image.KeyProgramBlock.begin());
    std::string shown = Fill().keyConflicts > 0 ? "conflict" : "fine";
    for (const int position : values.keys.selection)
      shown += position == KeyNoSelection ? " none" : ' ' + std::to_string(position);
    EXPECT_EQ(shown, row[2]);
    Collect();
    EXPECT_TRUE(std::ranges::equal(BytesOf(row[3]), std::span(image.KeyProgramBlock).first<6>()));
  }
}

} // namespace
} // namespace mr4500x
