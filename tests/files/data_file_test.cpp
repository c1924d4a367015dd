#include "data_file.h"

#include <array>
#include <map>
#include <numeric>
#include <vector>

#include "files_fixture.h"
#include "rows.h"

namespace mr4500x {

namespace {

using Bytes = std::vector<std::uint8_t>;

RadioImage FreshImage() {
  RadioImage image;
  ResetToDefaults(image, {2004, 11, 4, 9, 5, 7});
  return image;
}

Bytes Part(const Bytes& bytes, std::size_t offset, std::size_t count) {
  const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
  return {begin, begin + static_cast<std::ptrdiff_t>(count)};
}

} // namespace

TEST(DataFile, IsTheDocumentedBytes) {
  RadioImage image = FreshImage();
  image.FiveToneStandard = 0x0102;
  std::iota(image.TtsTimingBlock.bytes.begin(), image.TtsTimingBlock.bytes.end(), std::uint8_t{0});
  const Bytes file = BuildDataFile(image);
  EXPECT_EQ(file.size(), 713U);
  for (const Row& row : RowsOf(CASES "layout.txt", ".*: (.*): (.*)")) {
    const Bytes bytes = BytesOf(row[2]);
    EXPECT_EQ(Part(file, std::stoul(row[1]), bytes.size()), bytes) << row[0];
  }
}

TEST_F(FilesTest, LoadingDistinguishesMissingFromDamaged) {
  const Bytes fresh = BuildDataFile(FreshImage());
  Put("empty.K4X", "");
  std::filesystem::create_symlink(Path("nowhere"), Path("dangling.K4X"));
  std::filesystem::create_symlink(Path("circle.K4X"), Path("circle.K4X"));
  Put("long.K4X", std::string(fresh.begin(), fresh.end()) + std::string(2 * DataFileReadLimit, 'x'));
  RadioImage image;
  EXPECT_EQ(LoadDataFile(files, "", image).outcome, LoadOutcome::Missing);
  for (const char* const name : {"none.K4X", "dangling.K4X", "empty.K4X/below"})
    EXPECT_EQ(LoadDataFile(files, Path(name), image).outcome, LoadOutcome::Missing) << name;
  for (const char* const name : {"empty.K4X", "", "circle.K4X"}) // "" is the folder
    EXPECT_EQ(LoadDataFile(files, Path(name), image).outcome, LoadOutcome::Damaged) << name;
  EXPECT_EQ(LoadDataFile(files, Path("long.K4X"), image).outcome, LoadOutcome::Loaded);
}

TEST(DataFile, EditedFilesHaveTheirOutcome) {
  const std::map<std::string, LoadResult> outcomes = {
      {"Loaded", {LoadOutcome::Loaded}},
      {"Loaded, newer", {LoadOutcome::Loaded, true}},
      {"Damaged", {LoadOutcome::Damaged}},
      {"Damaged, newer", {LoadOutcome::Damaged, true}},
      {"LaterVersion", {LoadOutcome::LaterVersion}},
      {"ErrorVersion", {LoadOutcome::ErrorVersion}},
  };
  for (const Row& row : RowsOf(CASES "edits.txt", "[^:]+: (.*) (.*): (.*) -> (.*)")) {
    const Bytes put = BytesOf(row[3]);
    Bytes file = BuildDataFile(FreshImage());
    const auto at = file.begin() + std::stoi(row[1]);
    file.insert(file.erase(at, at + std::stoi(row[2])), put.begin(), put.end());
    RadioImage image;
    LoadResult result = ParseDataFile(file, image);
    EXPECT_EQ(result.damagedItem > 0, result.outcome == LoadOutcome::Damaged) << row[0];
    result.damagedItem = 0, result.endsInItem = false;
    EXPECT_EQ(result, outcomes.at(row[4])) << row[0];
  }
}

TEST(DataFile, Version0HasNoEmergencyAniWhateverStandsInItsPlace) {
  RadioImage saved = FreshImage();
  saved.RadioSettingsBlock[14] = 0xFF;
  saved.EmergencyAniBlock.fill(0x77);
  Bytes file = BuildDataFile(saved);
  file[22] = '0';
  Bytes withInteger = Part(file, 0, 693);
  withInteger.insert(withInteger.end(), {2, 0, 9, 9});
  saved.RadioSettingsBlock[14] = 0xE0;
  saved.EmergencyAniBlock.fill(0x00);
  RadioImage image;
  for (const Bytes& bytes : {file, withInteger}) {
    image.EmergencyAniBlock.fill(0x55);
    EXPECT_EQ(ParseDataFile(bytes, image), LoadResult{LoadOutcome::Loaded});
    EXPECT_EQ(BuildDataFile(image), BuildDataFile(saved));
  }
  EXPECT_EQ(ParseDataFile(Part(file, 0, 712), image), (LoadResult{LoadOutcome::Damaged, false, 13, true}));
}

} // namespace mr4500x
