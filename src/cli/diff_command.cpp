#include "diff_command.h"

#include "decimal.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace mr4500x {
namespace {

// As numbers they are 0, 1 and 2.
constexpr ExitStatus Same = ExitStatus::Done, Different = ExitStatus::Failed, Trouble = ExitStatus::UnusableArguments;

// The name without the unit of a heading. The two steps of a channel have the same heading.
std::string ShortNameOf(FieldAt at) {
  std::string name = NameOf(at);
  if (at.field->key == "rx_step") name.insert(name.find("Step"), "Rx ");
  if (at.field->key == "tx_step") name.insert(name.find("Step"), "Tx ");
  const std::size_t unit = name.find('(');
  if (unit != std::string::npos) name.erase(unit);
  name.erase(name.find_last_not_of(' ') + 1);
  return name;
}

std::string HexByte(std::uint8_t byte) {
  return {'0', 'x', HexDigit(byte >> 4), HexDigit(byte)};
}

} // namespace

std::string DifferenceLines(const ImageDifferences& differences) {
  std::string lines;
  for (const auto& [at, before, after] : differences.settings)
    lines += ShortNameOf(at) + "  " + before + "  " + after + '\n';
  for (const auto& [block, offset, before, after] : differences.bytes)
    lines += std::string(block) + ' ' + std::to_string(offset) + "  " + HexByte(before) + "  " + HexByte(after) + '\n';
  return lines;
}

std::string DifferenceJson(const ImageDifferences& differences) {
  nlohmann::ordered_json document = {
      {"format", 1}, {"fields", nlohmann::ordered_json::array()}, {"bytes", nlohmann::ordered_json::array()}};
  for (const auto& [at, before, after] : differences.settings)
    document["fields"].push_back({{"field", IdentifierOf(at)}, {"a", before}, {"b", after}});
  for (const auto& [block, offset, before, after] : differences.bytes)
    document["bytes"].push_back({{"block", block}, {"offset", offset}, {"a", before}, {"b", after}});
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
