#include "data_file.h"

#include <vector>

#include "files_fixture.h"

namespace mr4500x {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t MarkerOffset = 51;
constexpr std::size_t ItemOffsets[] = {53, 329, 357, 385, 405, 457, 477, 625, 669, 689, 693};

RadioImage FreshImage() {
  RadioImage image;
  ResetToDefaults(image, {2004, 11, 4, 9, 5, 7});
  return image;
}

Bytes FreshFile() {
  const auto file = BuildDataFile(FreshImage());
  return {file.begin(), file.end()};
}

Bytes Part(const Bytes& bytes, std::size_t offset, std::size_t count) {
  const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
  return {begin, begin + static_cast<std::ptrdiff_t>(count)};
}

} // namespace

TEST(DataFile, IsTheDocumentedBytes) {
  RadioImage image = FreshImage();
  image.FiveToneStandard = 0x0102;
  for (std::uint8_t at = 0; at < 32; ++at)
    image.TtsTimingBlock(at / 8U, at % 8U) = at;
  const auto built = BuildDataFile(image);
  const Bytes file(built.begin(), built.end());
  const std::string header = "Data file of LR7201 Radio Series, Calvorne VTR.";
  EXPECT_EQ(Part(file, 0, 4), Bytes({0x08, 0x00, 0x2F, 0x00}));
  EXPECT_EQ(Part(file, 4, 47), Bytes(header.begin(), header.end()));
  EXPECT_EQ(Part(file, MarkerOffset, 2), Bytes({0x00, 0x00}));
  const Bytes heads[] = {
      {0x11, 0x20, 2, 0, 16, 0, 0, 0, 0, 0, 0, 0, 16, 0, 0, 0, 0, 0, 0, 0, 0x81, 1, 1},    // ChannelBlock
      {0x11, 0x20, 1, 0, 16, 0, 0, 0, 0, 0, 0, 0, 0xC2, 0x02, 0x80},                       // RadioSettingsBlock
      {0x11, 0x20, 1, 0, 16, 0, 0, 0, 0, 0, 0, 0},                                         // PttIdBlock
      {0x11, 0x20, 1, 0, 8, 0, 0, 0, 0, 0, 0, 0},                                          // KeyProgramBlock
      {0x11, 0x20, 2, 0, 8, 0, 0, 0, 0, 0, 0, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0, 8, 16, 24, 1}, // TtsTimingBlock
      {0x11, 0x20, 1, 0, 8, 0, 0, 0, 0, 0, 0, 0},                                          // ResetTimeBlock
      {0x11, 0x20, 2, 0, 16, 0, 0, 0, 0, 0, 0, 0, 8, 0, 0, 0, 0, 0, 0, 0},                 // SelCallCodeBlock
      {0x11, 0x20, 1, 0, 32, 0, 0, 0, 0, 0, 0, 0},                                         // ToneFrequencyBlock
      {0x11, 0x20, 1, 0, 8, 0, 0, 0, 0, 0, 0, 0, 0xB8, 0x01, 0xD6, 0x01, 0x00, 0x30},      // BandBlock
      {0x02, 0x00, 0x02, 0x01},                                                            // FiveToneStandard
      {0x11, 0x20, 1, 0, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0},                                    // EmergencyAniBlock
  };
  for (std::size_t i = 0; i < std::size(heads); ++i)
    EXPECT_EQ(Part(file, ItemOffsets[i], heads[i].size()), heads[i]) << "item " << i + 1;
}

TEST_F(FilesTest, LoadingTellsMissingFromDamaged) {
  RadioImage image;
  Put("empty.K4X", "");
  std::filesystem::create_symlink(Path("nowhere"), Path("dangling.K4X"));
  std::filesystem::create_symlink(Path("circle.K4X"), Path("circle.K4X"));
  const Bytes fresh = FreshFile();
  Put("long.K4X", std::string(fresh.begin(), fresh.end()) + std::string(2 * DataFileReadLimit, 'x'));
  const std::pair<const char*, LoadOutcome> cases[] = {
      {"none.K4X", LoadOutcome::Missing},        {"dangling.K4X", LoadOutcome::Missing},
      {"empty.K4X", LoadOutcome::Damaged},       {"", LoadOutcome::Damaged}, // a folder
      {"circle.K4X", LoadOutcome::Damaged},      {"long.K4X", LoadOutcome::Loaded},
      {"empty.K4X/below", LoadOutcome::Missing},
  };
  for (const auto& [name, outcome] : cases)
    EXPECT_EQ(LoadDataFile(files, Path(name), image).outcome, outcome) << name;
  EXPECT_EQ(LoadDataFile(files, "", image).outcome, LoadOutcome::Missing);
}

TEST(DataFile, EditedFilesHaveTheirOutcome) {
  using enum LoadOutcome;
  // clang-format off
  const struct {
    const char* what;
    std::size_t offset, removed;
    Bytes put;
    LoadResult expected;
  } cases[] = {
      {"bytes behind the last item",         713,  0, {0xFF, 0xFF}, {Loaded}},
      {"later header of the series",          22,  1, {'2'}, {LaterVersion}},
      {"series header with another end",      50,  1, {'!'}, {LaterVersion}},
      {"header of another series",            20,  1, {'3'}, {ErrorVersion}},
      {"header is an integer",                 0,  2, {2, 0}, {ErrorVersion}},
      {"header is empty",                      0,  2, {0, 0}, {ErrorVersion}},
      {"header of no known kind",              0,  2, {3, 0}, {Damaged}},
      {"header longer than the file",          2,  2, {0xFF, 0xFF}, {Damaged}},
      {"marker 0",                            51,  2, {2, 0, 0, 0}, {Loaded}},
      {"marker 1",                            51,  2, {2, 0, 1, 0}, {Loaded, true}},
      {"marker -256",                         51,  2, {2, 0, 0, 0xFF}, {Loaded, true}},
      {"marker is a text",                    51,  2, {8, 0, 0, 0}, {Loaded, true}},
      {"marker is an array without elements", 51,  2, {0x11, 0x20, 2, 0, 255, 255, 255, 255, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
                                                      {Loaded, true}},
      {"marker has no dimensions",            51,  2, {0x11, 0x20, 0, 0}, {Damaged}},
      {"marker's size overflows to 0",        51,  2, {0x11, 0x20, 4, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0,
                                                       0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0}, {Damaged}},
      {"marker 1 before a damaged item",      51,  4, {2, 0, 1, 0, 3, 0}, {Damaged, true}},
      {"a block is a text",                   53,  2, {8, 0}, {Damaged}},
      {"a dimension too few",                 53, 20, {0x11, 0x20, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0}, {Damaged}},
      {"a dimension too many",               329, 12, {0x11, 0x20, 2, 0, 16, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0},
                                                      {Damaged}},
      {"a huge number of dimensions",        331,  2, {0xFF, 0xFF}, {Damaged}},
      {"a huge count",                       333,  4, {0xFF, 0xFF, 0xFF, 0xFF}, {Damaged}},
      {"a lower bound of 1",                 337,  1, {1}, {Damaged}},
      {"a shorter block",                    385, 20, {0x11, 0x20, 1, 0, 2, 0, 0, 0, 0, 0, 0, 0, 1, 2}, {Damaged}},
      {"rows and columns exchanged",         409,  9, {4, 0, 0, 0, 0, 0, 0, 0, 8}, {Damaged}},
      {"the standard is a text",             689,  4, {8, 0, 1, 0, '3'}, {Damaged}},
      {"the last block is an integer",       693, 20, {2, 0, 0, 0}, {Damaged}},
  };
  // clang-format on
  for (const auto& edit : cases) {
    Bytes file = FreshFile();
    const auto at = file.begin() + static_cast<std::ptrdiff_t>(edit.offset);
    const auto rest = file.erase(at, at + static_cast<std::ptrdiff_t>(edit.removed));
    file.insert(rest, edit.put.begin(), edit.put.end());
    RadioImage image;
    EXPECT_EQ(ParseDataFile(file, image), edit.expected) << edit.what;
  }
}

TEST(DataFile, Version0HasNoEmergencyAniWhateverStandsInItsPlace) {
  RadioImage saved = FreshImage();
  saved.RadioSettingsBlock[14] = 0xFF;
  saved.EmergencyAniBlock.fill(0x77);
  const auto built = BuildDataFile(saved);
  Bytes file(built.begin(), built.end());
  file[22] = '0';
  Bytes withInteger = Part(file, 0, 693);
  withInteger.insert(withInteger.end(), {2, 0, 9, 9});
  saved.RadioSettingsBlock[14] = 0xE0;
  saved.EmergencyAniBlock.fill(0x00);
  for (const Bytes& bytes : {file, withInteger}) {
    RadioImage image;
    image.EmergencyAniBlock.fill(0x55);
    EXPECT_EQ(ParseDataFile(bytes, image), (LoadResult{LoadOutcome::Loaded, false}));
    EXPECT_EQ(BuildDataFile(image), BuildDataFile(saved));
  }
  RadioImage image;
  EXPECT_EQ(ParseDataFile(Part(file, 0, 712), image).outcome, LoadOutcome::Damaged);
}

} // namespace mr4500x
