#include "diff_command.h"

#include "changes.h"
#include "configuration_json.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <set>

namespace mr4500x {
namespace {

using Json = nlohmann::ordered_json;

// As numbers they are 0, 1 and 2.
constexpr ExitStatus Same = ExitStatus::Done, Different = ExitStatus::Failed, Trouble = ExitStatus::UnusableArguments;

std::vector<FieldAt> FieldsOf(const ImageDifferences& differences) {
  std::vector<FieldAt> fields;
  fields.reserve(differences.settings.size());
  for (const Difference& difference : differences.settings)
    fields.push_back(difference.at);
  return fields;
}

} // namespace

std::string DifferenceLines(const ImageDifferences& differences, NamedBy names) {
  std::string lines;
  for (const DifferenceWords& words : WordsFor(differences)) {
    const bool isIdentifier = names == NamedBy::Identifier && words.at.field != nullptr;
    lines += (isIdentifier ? IdentifierOf(words.at) : words.name) + "  " + words.before + "  " + words.after + '\n';
  }
  return lines;
}

std::string DifferenceJson(const RadioImage& before, const RadioImage& after) {
  const FieldTexts& texts = PointTexts();
  const Configuration a = Decode(WithStandard(before), texts).configuration;
  const Configuration b = Decode(WithStandard(after), texts).configuration;
  const ImageDifferences differences = CompareImages(before, after, texts);
  Json document = {{"format", 1}, {"fields", Json::array()}, {"bytes", Json::array()}};
  for (const FieldAt at : FieldsOf(differences))
    document["fields"].push_back(
        {{"field", IdentifierOf(at)}, {"a", Json::parse(ValueAsJson(a, at))}, {"b", Json::parse(ValueAsJson(b, at))}});
  for (const auto& [block, offset, was, is, bits] : differences.bytes)
    document["bytes"].push_back({{"block", NameOf(block)}, {"offset", offset}, {"a", was}, {"b", is}});
  return document.dump(2) + '\n';
}

std::string DifferencePatch(const RadioImage& before, const RadioImage& after) {
  const FieldTexts& texts = PointTexts();
  const Configuration wanted = Decode(WithStandard(after), texts).configuration;
  std::set<FieldAt> fields;
  for (std::size_t count = SIZE_MAX; count != fields.size();) { // until no change has another consequence
    count = fields.size();
    RadioImage changed = WithStandard(before);
    std::vector<Assignment> changes;
    changes.reserve(fields.size());
    for (const FieldAt at : fields)
      changes.push_back({at, ValueOf(wanted, at), true});
    static_cast<void>(ApplyChanges(changed, changes, texts));
    for (const FieldAt at : FieldsOf(CompareImages(changed, after, texts)))
      fields.insert(at);
  }
  return PartJson(wanted, fields);
}

ExitStatus RunDiff(const LoadAny& load, const std::string& before, const std::string& after, DiffForm form,
                   Terminal& terminal) {
  RadioImage a, b;
  if (!load(before, a) || !load(after, b)) return Trouble;
  const ImageDifferences differences = CompareImages(a, b, PointTexts());
  if (form == DiffForm::Json || form == DiffForm::Patch)
    terminal.out << (form == DiffForm::Json ? DifferenceJson(a, b) : DifferencePatch(a, b));
  else
    terminal.out << DifferenceLines(differences, form == DiffForm::Labels ? NamedBy::Label : NamedBy::Identifier);
  if (form == DiffForm::Patch && !differences.bytes.empty())
    terminal.err << "not shown: " << differences.bytes.size() << " bytes that no setting shows\n";
  if (EndOutput(terminal) != ExitStatus::Done) return Trouble;
  return differences.IsEmpty() ? Same : Different;
}

} // namespace mr4500x
