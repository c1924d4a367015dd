// Any text as a list of radios, and as a list of channels: each line is accepted or reported, and the accepted ones
// survive an export and an import.
#include "channel_text.h"
#include "fuzz_input.h"
#include "plan.h"

#include <algorithm>

namespace mr4500x {
namespace {

const FieldTexts Texts = BuildFieldTexts('.');

} // namespace

void Fuzz(FuzzInput input) {
  const std::string text = input.Rest();
  CsvTable table = ReadCsv(text);
  const auto isEmpty = [](const CsvRow& row) { return std::ranges::all_of(row.cells, &std::string::empty); };
  std::erase_if(table.rows, isEmpty); // only needed to report a quote that is not closed
  std::string lines;
  for (const CsvRow& row : table.rows)
    lines += CsvLine(row.cells);
  const CsvTable again = ReadCsv("a,\r\n" + lines); // a heading with the comma
  Require(again.rows.size() == table.rows.size() + 1, "as many lines come back as were written");
  for (std::size_t i = 0; i < table.rows.size(); ++i)
    Require(again.rows[i + 1].isWhole && again.rows[i + 1].cells == table.rows[i].cells, "what is written is read");

  const ChannelList list = ReadChannelList(text, Texts);
  Require(list.hasHeading || (list.rows.empty() && !list.bad.empty()), "without a heading nothing is taken");
  RadioImage image;
  static_cast<void>(NewConfiguration(image, Texts, {2004, 11, 4, 9, 5, 7}));
  const RadioImage before = image;
  Configuration pasted = Decode(image, Texts).configuration;
  const ChannelList taken = TakeChannels(pasted, 0, text, Texts);
  for (const auto& words : {TextsOf(list.bad), WordsForPasted(taken.bad)})
    Require(std::ranges::none_of(words, &std::string::empty), "a refusal without a message");
  const PlanCheck check = MakePlan(image, "", text, Texts, [](std::string_view bytes) { return std::string(bytes); });
  Require(!check.problems.empty() || !check.plan.rows.empty(), "a list of radios without rows and without a message");
  for (std::size_t row = 1; check.problems.empty() && row <= check.plan.rows.size(); ++row)
    static_cast<void>(ImageFor(check.plan, row, Texts));
  if (!ApplyCells(image, CellsOf(list.rows), Texts).empty()) return Require(image == before, "all or nothing is taken");
  const RadioImage imported = image;
  const ChannelList exported = ReadChannelList(ChannelsCsv(Decode(image, Texts).configuration), Texts);
  Require(exported.bad.empty() && exported.rows.size() == ChannelCount, "an export is a list of all channels");
  Require(ApplyCells(image, CellsOf(exported.rows), Texts).empty() && image == imported, "an export changes nothing");
}

} // namespace mr4500x
