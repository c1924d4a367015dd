#include "changes.h"

#include <algorithm>

namespace mr4500x {
namespace {

// A value depends at most on the other band limit, its step and a key of the emergency pair.
constexpr int MostRounds = 5;

// Returns false if the setting can't hold the code. Whether the code has a text is only known after storing it.
bool SetCode(Configuration& configuration, FieldAt at, std::uint8_t code) {
  if (const auto* const key = std::get_if<Key>(&at.field->place)) {
    configuration.keys.codes[*key] = code;
    return SelectKey(configuration.keys, *key, KeyNoSelection) == 0;
  }
  const auto* const list = std::get_if<ChoiceList>(&at.field->place);
  const bool isStandard = list != nullptr && *list == ChoiceList::Standards;
  if (list == nullptr || (!CodingOf(*list).setting && !isStandard)) return false;
  if (isStandard && code == 0) return false; // no Decode would read it
  configuration[*list] = {-1, code};
  return true;
}

// Sets a text that breaks the rules.
bool SetAsStored(Configuration& configuration, const Assignment& given) {
  const FieldPlace& place = given.at.field->place;
  if (place == FieldPlace(ChoiceList::Standards)) {
    const auto items = ItemsOf(ChoiceList::Standards);
    const auto position = static_cast<int>(std::ranges::find(items, given.value) - items.begin());
    if (position == static_cast<int>(items.size())) return false;
    configuration[ChoiceList::Standards] = {position, 0};
    return true;
  }
  if (std::holds_alternative<ChoiceList>(place) || std::holds_alternative<Key>(place) ||
      given.at.field->kind == FieldKind::YesNo)
    return false;
  TextIn(configuration, given.at) = given.value;
  return true;
}

std::optional<Refusal> SetValue(Configuration& configuration, const Assignment& given, const FieldTexts& texts) {
  if (given.value == ValueOf(configuration, given.at)) return std::nullopt;
  if (const auto code = CodeIn(given.value); code && SetCode(configuration, given.at, *code)) return std::nullopt;
  std::optional<Refusal> refusal = SetField(configuration, given.at, given.value, texts);
  if (refusal && given.asStored && SetAsStored(configuration, given)) refusal.reset();
  return refusal;
}

// The emergency pair occupies both keys of A, and may hide a function that conflicts with another key.
void TakePairApart(Configuration& configuration, const std::vector<Assignment>& assignments) {
  constexpr std::array Pair = {ShortA, LongA};
  std::size_t given = 0, changed = 0;
  for (const Key key : Pair)
    for (const Assignment& assignment : assignments)
      if (assignment.at == FieldAt{&FieldOf(key)}) {
        ++given;
        changed += assignment.value != ValueOf(configuration, assignment.at) ? 1 : 0;
      }
  if (given < Pair.size() || changed == 0) return;
  for (const Key key : Pair)
    static_cast<void>(SelectKey(configuration.keys, key, KeyUnassigned)); // conflicts with no other key
}

// The result of one assignment: the value that the setting got, or the refusal.
struct Result {
  std::string value;
  std::optional<Refusal> refusal;
};

// Keeps one assignment for each setting, in the order of the table. Returns the values that differ from it.
std::vector<RefusedValue> DropRepeated(std::vector<Assignment>& assignments) {
  std::ranges::stable_sort(assignments, {}, &Assignment::at);
  std::vector<RefusedValue> twice;
  const auto repeats = [&](const Assignment& kept, const Assignment& next) {
    if (kept.at != next.at) return false;
    if (kept.value != next.value && (twice.empty() || twice.back().at != next.at))
      twice.push_back({next.at, next.value, {"", Refusal::Cause::GivenTwice}});
    return true;
  };
  assignments.erase(std::unique(assignments.begin(), assignments.end(), repeats), assignments.end());
  return twice;
}

// Sets the values in rounds until nothing changes any more.
std::vector<Result> SetAll(Configuration& configuration, const std::vector<Assignment>& assignments,
                           const FieldTexts& texts) {
  std::vector<Result> results(assignments.size());
  TakePairApart(configuration, assignments);
  for (int round = 0; round < MostRounds; ++round) {
    const Configuration before = configuration;
    for (std::size_t i = 0; i < assignments.size(); ++i) {
      results[i].refusal = SetValue(configuration, assignments[i], texts);
      results[i].value = results[i].refusal ? assignments[i].value : ValueOf(configuration, assignments[i].at);
    }
    if (configuration == before) break;
  }
  return results;
}

// Appends the values that `shown`, the result of the changes, does not show.
void AppendRefused(std::vector<RefusedValue>& refused, const std::vector<Assignment>& assignments,
                   const std::vector<Result>& results, const Configuration& shown, const Configuration& configuration,
                   const FieldTexts& texts) {
  for (std::size_t i = 0; i < results.size(); ++i) {
    const auto& [value, refusal] = results[i];
    const FieldAt at = assignments[i].at;
    if (ValueOf(shown, at) == value) continue; // even if it could not be set but has this value anyway
    refused.push_back({at, assignments[i].value, refusal.value_or(Refusal{AllowedFor(configuration, at, texts)})});
  }
}

} // namespace

std::vector<RefusedValue> ApplyChanges(RadioImage& image, std::vector<Assignment> assignments,
                                       const FieldTexts& texts) {
  RadioImage changed = image;
  Configuration shown = Decode(image, texts).configuration;
  Configuration configuration = shown;
  std::vector<RefusedValue> refused = DropRepeated(assignments);
  const std::vector<Result> results = SetAll(configuration, assignments, texts);
  if (configuration != shown) { // otherwise keep even bytes that an Encode would tidy up
    SettleAfterFill(changed);
    const Choice& standard = configuration[ChoiceList::Standards];
    if (standard != shown[ChoiceList::Standards]) // in TTS mode Encode ignores it
      changed.FiveToneStandard =
          static_cast<std::int16_t>(standard.position < 0 ? standard.unlisted : standard.position + 1);
    Encode(configuration, changed, texts);
    shown = Decode(changed, texts).configuration;
  }
  AppendRefused(refused, assignments, results, shown, configuration, texts);
  if (refused.empty()) image = changed;
  return refused;
}

std::vector<RefusedValue> ApplyChanges(Configuration& configuration, std::vector<Assignment> assignments,
                                       const FieldTexts& texts) {
  Configuration changed = configuration;
  std::vector<RefusedValue> refused = DropRepeated(assignments);
  const std::vector<Result> results = SetAll(changed, assignments, texts);
  AppendRefused(refused, assignments, results, changed, changed, texts);
  if (refused.empty()) configuration = changed;
  return refused;
}

} // namespace mr4500x
