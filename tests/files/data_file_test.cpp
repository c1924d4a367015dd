#include "data_file.h"

#include <array>
#include <map>
#include <numeric>
#include <regex>
#include <sstream>
#include <vector>

#include "files_fixture.h"

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

// The three parts of each row of a file.
std::vector<std::array<std::string, 3>> RowsOf(const std::string& name, const char* form) {
  std::ifstream file(FILES_TEST "/" + name);
  std::vector<std::array<std::string, 3>> rows;
  std::smatch match;
  for (std::string line; std::getline(file, line);)
    if (std::regex_match(line, match, std::regex(form))) rows.push_back({match[1], match[2], match[3]});
  EXPECT_GT(rows.size(), 10U) << name;
  return rows;
}

Bytes BytesOf(const std::string& hex) {
  Bytes bytes;
  std::istringstream in(hex);
  in >> std::hex;
  for (unsigned byte = 0; in >> byte;)
    bytes.push_back(static_cast<std::uint8_t>(byte));
  return bytes;
}

} // namespace

TEST(DataFile, IsTheDocumentedBytes) {
  RadioImage image = FreshImage();
  image.FiveToneStandard = 0x0102;
  std::iota(image.TtsTimingBlock.bytes.begin(), image.TtsTimingBlock.bytes.end(), std::uint8_t{0});
  const Bytes file = BuildDataFile(image);
  EXPECT_EQ(file.size(), 713U);
  for (const auto& [name, offset, bytes] : RowsOf("layout.txt", "([^#].*): (.*): (.*)"))
    EXPECT_EQ(Part(file, std::stoul(offset), BytesOf(bytes).size()), BytesOf(bytes)) << name;
}

TEST_F(FilesTest, LoadingTellsMissingFromDamaged) {
  const Bytes fresh = BuildDataFile(FreshImage());
  Put("empty.K4X", "");
  std::filesystem::create_symlink(Path("nowhere"), Path("dangling.K4X"));
  std::filesystem::create_symlink(Path("circle.K4X"), Path("circle.K4X"));
  Put("long.K4X", std::string(fresh.begin(), fresh.end()) + std::string(2 * DataFileReadLimit, 'x'));
  const std::pair<std::string, LoadOutcome> cases[] = {
      {"", LoadOutcome::Missing},
      {Path("none.K4X"), LoadOutcome::Missing},
      {Path("dangling.K4X"), LoadOutcome::Missing},
      {Path("empty.K4X/below"), LoadOutcome::Missing},
      {Path("empty.K4X"), LoadOutcome::Damaged},
      {Path(""), LoadOutcome::Damaged}, // a folder
      {Path("circle.K4X"), LoadOutcome::Damaged},
      {Path("long.K4X"), LoadOutcome::Loaded},
  };
  RadioImage image;
  for (const auto& [path, outcome] : cases)
    EXPECT_EQ(LoadDataFile(files, path, image).outcome, outcome) << path;
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
  for (const auto& [name, place, outcome] : RowsOf("edits.txt", "([^#:][^:]*): (.*) -> (.*)")) {
    std::size_t offset = 0, removed = 0;
    std::istringstream(place) >> offset >> removed;
    const Bytes put = BytesOf(place.substr(place.find(':') + 1));
    Bytes file = BuildDataFile(FreshImage());
    const auto at = file.begin() + static_cast<std::ptrdiff_t>(offset);
    file.insert(file.erase(at, at + static_cast<std::ptrdiff_t>(removed)), put.begin(), put.end());
    RadioImage image;
    EXPECT_EQ(ParseDataFile(file, image), outcomes.at(outcome)) << name;
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
  EXPECT_EQ(ParseDataFile(Part(file, 0, 712), image), LoadResult{LoadOutcome::Damaged});
}

} // namespace mr4500x
