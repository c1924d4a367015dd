#include "diff_command.h"

#include "changes.h"
#include "configuration_json.h"
#include "field_patterns.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <set>

namespace mr4500x {
namespace {

using Json = nlohmann::ordered_json;

// As numbers they are 0, 1 and 2.
constexpr ExitStatus Same = ExitStatus::Done, Different = ExitStatus::Failed, Trouble = ExitStatus::UnusableArguments;

Json JsonOf(const RadioImage& before, const RadioImage& after, const ImageDifferences& differences) {
  const Configuration a = Decode(WithStandard(before), PointTexts()).configuration;
  const Configuration b = Decode(WithStandard(after), PointTexts()).configuration;
  Json document = {{"format", 1}, {"fields", Json::array()}, {"bytes", Json::array()}};
  for (const Difference& difference : differences.settings)
    document["fields"].push_back({{"field", IdentifierOf(difference.at)},
                                  {"a", Json::parse(ValueAsJson(a, difference.at))},
                                  {"b", Json::parse(ValueAsJson(b, difference.at))}});
  for (const auto& [block, offset, was, is, bits] : differences.bytes)
    document["bytes"].push_back({{"block", NameOf(block)}, {"offset", offset}, {"a", was}, {"b", is}});
  return document;
}

std::string PatchOf(const RadioImage& before, const RadioImage& after) {
  const FieldTexts& texts = PointTexts();
  const Configuration wanted = Decode(WithStandard(after), texts).configuration;
  std::set<FieldAt> fields;
  for (std::size_t count = SIZE_MAX; count != fields.size();) { // until no change has another consequence
    count = fields.size();
    RadioImage changed = WithStandard(before);
    const Changes changes = ReadChanges(PartJson(wanted, fields));
    for (const RefusedValue& refused : ApplyChanges(changed, changes.assignments, texts)) // without others, as its step
      for (const FieldAt at : AllFields())
        if (at.field->group == refused.at.field->group && at.entry == refused.at.entry) fields.insert(at);
    for (const Difference& difference : CompareImages(changed, after, texts).settings)
      fields.insert(difference.at);
  }
  return PartJson(wanted, fields);
}

std::string TextFor(DiffForm form, const RadioImage& before, const RadioImage& after,
                    const ImageDifferences& differences) {
  if (form == DiffForm::Json) return JsonOf(before, after, differences).dump(2) + '\n';
  if (form == DiffForm::Patch) return PatchOf(before, after);
  std::string lines;
  for (const DifferenceWords& words : WordsFor(differences)) {
    const bool isIdentifier = form == DiffForm::Identifiers && words.at.field != nullptr;
    lines += (isIdentifier ? IdentifierOf(words.at) : words.name) + "  " + words.before + "  " + words.after + '\n';
  }
  return lines;
}

} // namespace

std::string DifferencesAs(DiffForm form, const RadioImage& before, const RadioImage& after) {
  return TextFor(form, before, after, CompareImages(before, after, PointTexts()));
}

ExitStatus RunDiff(DiffForm form, const RadioImage& before, const RadioImage& after, Terminal& terminal) {
  const ImageDifferences differences = CompareImages(before, after, PointTexts());
  if (form == DiffForm::Patch && !differences.bytes.empty())
    terminal.err << "not shown: " << differences.bytes.size() << " bytes that no setting shows\n";
  if (PrintData(terminal, TextFor(form, before, after, differences)) != ExitStatus::Done) return Trouble;
  return differences.IsEmpty() ? Same : Different;
}

} // namespace mr4500x
