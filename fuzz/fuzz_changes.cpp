// Any text as a JSON document of changes, for any image: refused as a whole, or shown afterwards as it was given.
#include "configuration_json.h"
#include "fuzz_input.h"
#include "signaling.h"

namespace mr4500x {
namespace {

const FieldTexts Texts = BuildFieldTexts('.');

} // namespace

void Fuzz(FuzzInput input) {
  RadioImage image;
  static_cast<void>(NewConfiguration(image, Texts, {2004, 11, 4, 9, 5, 7}));
  for (int changes = input.Below(4); changes > 0; --changes) {
    const auto bytes = BlockBytes(image, RecordMap[input.Byte() % RecordMap.size()].block);
    const std::string content = input.Text();
    std::copy_n(content.begin(), std::min(content.size(), bytes.size()), bytes.begin());
  }
  if (image.ResetTimeBlock[StandardByte] == 0) image.ResetTimeBlock[StandardByte] = 1;
  const RadioImage before = image;
  const Changes changes = ReadChanges(input.Rest());
  if (!ApplyChanges(image, changes.assignments, Texts).empty())
    return Require(image == before, "a refused document changes nothing");

  const Configuration shown = Decode(image, Texts).configuration;
  for (const Assignment& given : changes.assignments)
    if (CodeIn(given.value)) Require(ValueOf(shown, given.at) == given.value, "a code is shown as it was given");
  const RadioImage changed = image;
  const Changes again = ReadChanges(ConfigurationJson(shown));
  Require(again.problems.empty(), "what is printed can be read");
  Require(ApplyChanges(image, again.assignments, Texts).empty(), "a configuration takes its own document");
  Require(ConfigurationJson(Decode(image, Texts).configuration) == ConfigurationJson(shown) && image == changed,
          "and is not changed by it");
}

} // namespace mr4500x
