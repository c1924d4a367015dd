#include "data_file.h"

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

Bytes FileOf(const RadioImage& image) {
  const auto file = BuildDataFile(image);
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
  const Bytes file = FileOf(image);
  const std::string header = "Data file of LR7201 Radio Series, Calvorne VTR.";
  EXPECT_EQ(Part(file, 0, 4), Bytes({0x08, 0x00, 0x2F, 0x00}));
  EXPECT_EQ(Part(file, 4, 47), Bytes(header.begin(), header.end()));
  const std::pair<std::size_t, Bytes> items[] = {
      {51, {0x00, 0x00}},                                                                         // marker
      {53, {0x11, 0x20, 2, 0, 16, 0, 0, 0, 0, 0, 0, 0, 16, 0, 0, 0, 0, 0, 0, 0, 0x81, 1, 1}},     // ChannelBlock
      {329, {0x11, 0x20, 1, 0, 16, 0, 0, 0, 0, 0, 0, 0, 0xC2, 0x02, 0x80}},                       // RadioSettingsBlock
      {357, {0x11, 0x20, 1, 0, 16, 0, 0, 0, 0, 0, 0, 0}},                                         // PttIdBlock
      {385, {0x11, 0x20, 1, 0, 8, 0, 0, 0, 0, 0, 0, 0}},                                          // KeyProgramBlock
      {405, {0x11, 0x20, 2, 0, 8, 0, 0, 0, 0, 0, 0, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0, 8, 16, 24, 1}}, // TtsTimingBlock
      {457, {0x11, 0x20, 1, 0, 8, 0, 0, 0, 0, 0, 0, 0}},                                          // ResetTimeBlock
      {477, {0x11, 0x20, 2, 0, 16, 0, 0, 0, 0, 0, 0, 0, 8, 0, 0, 0, 0, 0, 0, 0}},                 // SelCallCodeBlock
      {625, {0x11, 0x20, 1, 0, 32, 0, 0, 0, 0, 0, 0, 0}},                                         // ToneFrequencyBlock
      {669, {0x11, 0x20, 1, 0, 8, 0, 0, 0, 0, 0, 0, 0, 0xB8, 0x01, 0xD6, 0x01, 0x00, 0x30}},      // BandBlock
      {689, {0x02, 0x00, 0x02, 0x01}},                                                            // FiveToneStandard
      {693, {0x11, 0x20, 1, 0, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0}},                                    // EmergencyAniBlock
  };
  for (const auto& [offset, bytes] : items)
    EXPECT_EQ(Part(file, offset, bytes.size()), bytes) << "item at " << offset;
}

TEST_F(FilesTest, LoadingTellsMissingFromDamaged) {
  const Bytes fresh = FileOf(FreshImage());
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
      {"header of another series",            20,  1, {'3'}, {ErrorVersion}},
      {"header is empty",                      0,  2, {0, 0}, {ErrorVersion}},
      {"header of no known kind",              0,  2, {3, 0}, {Damaged}},
      {"header longer than the file",          2,  2, {0xFF, 0xFF}, {Damaged}},
      {"marker 0",                            51,  2, {2, 0, 0, 0}, {Loaded}},
      {"marker 1",                            51,  2, {2, 0, 1, 0}, {Loaded, true}},
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
    Bytes file = FileOf(FreshImage());
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
  Bytes file = FileOf(saved);
  file[22] = '0';
  Bytes withInteger = Part(file, 0, 693);
  withInteger.insert(withInteger.end(), {2, 0, 9, 9});
  saved.RadioSettingsBlock[14] = 0xE0;
  saved.EmergencyAniBlock.fill(0x00);
  RadioImage image;
  for (const Bytes& bytes : {file, withInteger}) {
    image.EmergencyAniBlock.fill(0x55);
    EXPECT_EQ(ParseDataFile(bytes, image), LoadResult{LoadOutcome::Loaded});
    EXPECT_EQ(FileOf(image), FileOf(saved));
  }
  EXPECT_EQ(ParseDataFile(Part(file, 0, 712), image), LoadResult{LoadOutcome::Damaged});
}

} // namespace mr4500x
