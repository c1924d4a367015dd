// Any file, opened: what it leaves in the image, and that showing, saving and opening it again changes nothing more.
#include "configuration.h"
#include "data_file.h"
#include "decimal.h"
#include "fuzz_input.h"
#include "memory_file_system.h"

namespace mr4500x {

namespace {

const FieldTexts Texts = BuildFieldTexts('.');
constexpr char Path[] = "/file";
constexpr LocalTime Moment = {2004, 11, 4, 9, 5, 7};

RadioImage MarkedImage() {
  RadioImage image;
  for (const BlockPlace& place : RecordMap)
    std::ranges::fill(BlockBytes(image, place.block), std::uint8_t{0xA5});
  image.PatrolWorkBlock.fill(0xA5);
  image.FiveToneStandard = 7;
  return image;
}

// The image with the blocks that no file holds taken from another.
RadioImage WithUnstored(RadioImage image, const RadioImage& other) {
  image.PatrolWorkBlock = other.PatrolWorkBlock;
  image.RadioIdBlock = other.RadioIdBlock;
  image.WriteStampBlock = other.WriteStampBlock;
  image.EmbeddedInfoBlock = other.EmbeddedInfoBlock;
  image.FirmwareVersionBlock = other.FirmwareVersionBlock;
  return image;
}

RadioImage SavedAndOpened(MemoryFileSystem& files, const RadioImage& image) {
  const std::string before = files.files[Path];
  Require(SaveDataFile(files, Path, image), "an image can be saved");
  const std::string& saved = files.files.at(Path);
  Require(saved.size() == std::max(before.size(), DataFileBytes), "a save does not shorten a file");
  Require(before.size() <= DataFileBytes || saved.substr(DataFileBytes) == before.substr(DataFileBytes),
          "a save keeps what follows");
  RadioImage opened = image;
  Require(LoadDataFile(files, Path, opened) == LoadResult{LoadOutcome::Loaded, false}, "what was saved can be opened");
  Require(opened == image, "what was saved comes back");
  return opened;
}

// A frequency that the 18 bits of a written count hold.
bool IsWritable(const ChannelTexts& channel, GridColumn freq, GridColumn step) {
  const auto megahertz = ParseDecimal(channel[freq], Texts.decimalSeparator);
  const int unit = StepUnit(StepCode(channel[step], Texts.decimalSeparator).value_or(1));
  return megahertz && CountOfUnits(*megahertz, 5, unit) < 1 << 18;
}

// What the user sees must be the same after a save; a frequency beyond all bands can't be.
void RequireSameView(Configuration before, const Configuration& after) {
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    for (const auto& [freq, step] :
         {std::pair{GridColumn::RxFreq, GridColumn::RxStep}, std::pair{GridColumn::TxFreq, GridColumn::TxStep}})
      if (!IsWritable(before.channels[i], freq, step)) before.channels[i][freq] = after.channels[i][freq];
    Require(before.channels[i] == after.channels[i], "a channel is shown as before the save");
  }
  for (std::size_t list = 0; list < ChoiceListCount; ++list)
    Require(before.lists[list] == after.lists[list], "a list is shown as before the save");
  Require(before.keys.selection == after.keys.selection, "the keys are shown as before the save");
  Require(before.ttsTable == after.ttsTable, "the TTS table is shown as before the save");
  Require(before.lowerBandLimit + before.upperBandLimit == after.lowerBandLimit + after.upperBandLimit,
          "the band stays");
  Require(before.emergencyAni == after.emergencyAni && before.connectId == after.connectId &&
              before.disconnectId == after.disconnectId,
          "the IDs are shown as before the save");
  Require(before.autoResetOff == after.autoResetOff &&
              (after.autoResetOff || before.autoResetTime == after.autoResetTime),
          "the reset time is shown as before the save");
  Require(before.scanSignal == after.scanSignal, "the scan signal is shown as before the save");
}

void OpenFile(const std::string& content) {
  MemoryFileSystem files;
  files.files[Path] = content;
  const RadioImage before = MarkedImage();
  RadioImage image = before;
  const LoadResult result = LoadDataFile(files, Path, image);
  Require(!files.HasOpenFiles() && files.files.at(Path) == content, "opening leaves the file alone");
  Require(WithUnstored(image, before) == image, "blocks that no file holds are not touched");
  if (result.outcome != LoadOutcome::Loaded) {
    Require(result.outcome == LoadOutcome::Damaged || image == before, "a file of another version changes nothing");
    return;
  }
  SavedAndOpened(files, image);

  Decoded decoded = Decode(image, Texts);
  SettleAfterFill(image);
  if (decoded.end == DecodeEnd::DataError) decoded = Decode(image, Texts); // the standard is valid now
  CompleteEmergencyPair(decoded.configuration);
  Encode(decoded.configuration, image, Texts);
  image = SavedAndOpened(files, image);
  const RadioImage collected = image;
  const Decoded decodedAgain = Decode(image, Texts);
  Require(decodedAgain.end == DecodeEnd::Complete && !decodedAgain.keyConflict, "what was collected can be shown");
  RequireSameView(decoded.configuration, decodedAgain.configuration);
  SettleAfterFill(image);
  Encode(decodedAgain.configuration, image, Texts);
  Require(image == collected, "collecting once more changes nothing");
}

} // namespace

} // namespace mr4500x

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mr4500x::OpenFile(std::string(data, data + size));
  return 0;
}
