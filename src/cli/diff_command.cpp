#include "diff_command.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace mr4500x {
namespace {

// As numbers they are 0, 1 and 2.
constexpr ExitStatus Same = ExitStatus::Done, Different = ExitStatus::Failed, Trouble = ExitStatus::UnusableArguments;

} // namespace

std::string DifferenceLines(const ImageDifferences& differences) {
  std::string lines;
  for (const DifferenceWords& words : WordsFor(differences))
    lines += words.name + "  " + words.before + "  " + words.after + '\n';
  return lines;
}

std::string DifferenceJson(const ImageDifferences& differences) {
  nlohmann::ordered_json document = {
      {"format", 1}, {"fields", nlohmann::ordered_json::array()}, {"bytes", nlohmann::ordered_json::array()}};
  for (const auto& [at, before, after] : differences.settings)
    document["fields"].push_back({{"field", IdentifierOf(at)}, {"a", before}, {"b", after}});
  for (const auto& [block, offset, before, after, bits] : differences.bytes)
    document["bytes"].push_back({{"block", NameOf(block)}, {"offset", offset}, {"a", before}, {"b", after}});
  return document.dump(2) + '\n';
}

ExitStatus RunDiff(const LoadAny& load, const std::string& before, const std::string& after, bool asJson,
                   Terminal& terminal) {
  RadioImage a, b;
  if (!load(before, a) || !load(after, b)) return Trouble;
  const ImageDifferences differences = CompareImages(a, b, BuildFieldTexts('.'));
  terminal.out << (asJson ? DifferenceJson(differences) : DifferenceLines(differences));
  if (EndOutput(terminal) != ExitStatus::Done) return Trouble;
  return differences.IsEmpty() ? Same : Different;
}

} // namespace mr4500x
