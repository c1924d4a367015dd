// Opens any file: checks the image, and that showing, saving and opening it again changes nothing more.
#include "configuration.h"
#include "data_file.h"
#include "decimal.h"
#include "fuzz_input.h"

namespace mr4500x {
namespace {

const FieldTexts Texts = BuildFieldTexts('.');

RadioImage MarkedImage() {
  RadioImage image;
  for (const BlockPlace& place : RecordMap)
    std::ranges::fill(BlockBytes(image, place.block), std::uint8_t{0xA5});
  image.PatrolWorkBlock.fill(0xA5);
  image.FiveToneStandard = 7;
  return image;
}

// The image with the blocks that no file holds from `other`.
RadioImage WithUnstored(RadioImage image, const RadioImage& other) {
  image.PatrolWorkBlock = other.PatrolWorkBlock;
  image.RadioIdBlock = other.RadioIdBlock;
  image.WriteStampBlock = other.WriteStampBlock;
  image.EmbeddedInfoBlock = other.EmbeddedInfoBlock;
  image.FirmwareVersionBlock = other.FirmwareVersionBlock;
  return image;
}

void RequireKept(const RadioImage& image) {
  RadioImage opened = image;
  Require(ParseDataFile(BuildDataFile(image), opened) == LoadResult{LoadOutcome::Loaded},
          "what was saved can be opened");
  Require(opened == image, "what was saved comes back");
}

// Whether the frequency fits the 18 bits of a written count.
bool IsWritable(const ChannelTexts& channel, GridColumn freq, GridColumn step) {
  const auto megahertz = ParseDecimal(channel[freq], Texts.decimalSeparator);
  const int unit = StepUnit(StepCode(channel[step], Texts).value_or(1));
  return megahertz && CountOfUnits(*megahertz, 5, unit) < 1 << 18;
}

// The user must see the same after a save, except a frequency that can't be written.
void RequireSameView(Configuration before, const Configuration& after) {
  for (std::size_t i = 0; i < ChannelCount; ++i)
    for (const auto& [freq, step] :
         {std::pair{GridColumn::RxFreq, GridColumn::RxStep}, std::pair{GridColumn::TxFreq, GridColumn::TxStep}})
      if (!IsWritable(before.channels[i], freq, step)) before.channels[i][freq] = after.channels[i][freq];
  Require(before.keys.selection == after.keys.selection, "the keys are shown as before the save");
  before.keys = after.keys; // the rest is nothing that is shown
  before.keyCodes = after.keyCodes;
  before.identityNumber = after.identityNumber;
  before.firmwareVersion = after.firmwareVersion;
  before.fiveToneStandard = after.fiveToneStandard;
  if (after.autoResetOff) before.autoResetTime = after.autoResetTime;
  Require(before == after, "all is shown as before the save");
}

void OpenFile(std::span<const std::uint8_t> content) {
  const RadioImage before = MarkedImage();
  RadioImage image = before;
  const LoadOutcome outcome = ParseDataFile(content, image).outcome;
  Require(WithUnstored(image, before) == image, "blocks that no file holds are not touched");
  Require(outcome == LoadOutcome::Loaded || outcome == LoadOutcome::Damaged || image == before,
          "a file of another version changes nothing");
  if (outcome != LoadOutcome::Loaded) return;
  RequireKept(image);

  Decoded decoded = Decode(image, Texts);
  SettleAfterFill(image);
  if (decoded.end == DecodeEnd::DataError) decoded = Decode(image, Texts); // the standard is valid now
  CompleteEmergencyPair(decoded.configuration);
  Encode(decoded.configuration, image, Texts);
  RequireKept(image);
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
  mr4500x::OpenFile({data, size});
  return 0;
}
