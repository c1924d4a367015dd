// Opens any file: checks the image, and that showing, saving and opening it again changes nothing more.
#include "configuration.h"
#include "data_file.h"
#include "fuzz_input.h"

namespace mr4500x {
namespace {

const FieldTexts Texts = BuildFieldTexts('.');

void RequireKept(const RadioImage& image) {
  RadioImage opened = image;
  Require(ParseDataFile(BuildDataFile(image), opened) == LoadResult{LoadOutcome::Loaded},
          "what was saved can be opened");
  Require(opened == image, "what was saved comes back");
}

} // namespace

void Fuzz(FuzzInput input) {
  const std::string content = input.Rest();
  RadioImage image;
  for (const BlockLocation& place : RecordMap)
    std::ranges::fill(BlockBytes(image, place.block), std::uint8_t{0xA5});
  image.PatrolWorkBlock.fill(0xA5);
  image.FiveToneStandard = 7;
  const RadioImage before = image;
  const LoadOutcome outcome = ParseDataFile(std::vector<std::uint8_t>(content.begin(), content.end()), image).outcome;
  Require(image.RadioIdBlock == before.RadioIdBlock && image.WriteStampBlock == before.WriteStampBlock &&
              image.EmbeddedInfoBlock == before.EmbeddedInfoBlock,
          "blocks that no file holds are not touched");
  Require(outcome == LoadOutcome::Loaded || outcome == LoadOutcome::Damaged || image == before,
          "a file of another version changes nothing");
  if (outcome != LoadOutcome::Loaded) return;
  RequireKept(image);

  Decoded decoded = Decode(image, Texts);
  SettleAfterFill(image);
  if (decoded.end == DecodeEnd::DataError) decoded = Decode(image, Texts); // the standard is valid now
  Encode(decoded.configuration, image, Texts);
  RequireKept(image);
  const RadioImage collected = image;
  const Decoded decodedAgain = Decode(image, Texts);
  Require(decodedAgain.end == DecodeEnd::Complete && decodedAgain.keyConflicts == 0, "what was collected can be shown");
  SettleAfterFill(image);
  Encode(decodedAgain.configuration, image, Texts);
  Require(image == collected, "collecting once more changes nothing");
}

} // namespace mr4500x
