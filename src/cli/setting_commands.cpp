#include "setting_commands.h"

#include "configuration_json.h"
#include "differences.h"
#include "file_commands.h"
#include "messages.h"
#include "set_field.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>
#include <set>
#include <span>

namespace mr4500x {
namespace {

constexpr std::string_view NoSuchSetting = ": no such setting; `mr4500x-cli fields` lists them";
constexpr std::array<std::string_view, 5> KindNames = {"choice", "number", "digits", "frequency", "yes/no"};

const FieldTexts& PointTexts() { // "." in every locale: scripts read the output
  static const FieldTexts texts = BuildFieldTexts('.');
  return texts;
}

// What a setting allows depends on others: here on none that forbids something.
Configuration MostAllowing(int mode) {
  RadioImage image;
  Configuration configuration = NewConfiguration(image, PointTexts(), {});
  configuration[ChoiceList::SelectCall].position = mode;
  configuration[ChoiceList::PttId].position = static_cast<int>(ItemsOf(ChoiceList::PttId).size()) - 1; // both
  for (ChannelTexts& channel : configuration.channels)
    channel[GridColumn::RxTone] = PointTexts().ToneChoiceList.back();
  return configuration;
}

// Names the settings that have changed with those that were given: a new lower limit, for instance, resets all
// channels.
void TellConsequences(const std::vector<Difference>& differences, const std::vector<Assignment>& assignments,
                      Terminal& terminal) {
  constexpr std::size_t MostNamed = 8;
  std::vector<std::string> names;
  std::set<FieldAt> given;
  for (const Assignment& assignment : assignments)
    given.insert(assignment.at);
  for (const Difference& difference : differences)
    if (!given.contains(difference.at)) names.push_back(IdentifierOf(difference.at));
  if (names.empty()) return;
  terminal.err << "changed with it:";
  for (const std::string& name : std::span(names).first(std::min(names.size(), MostNamed)))
    terminal.err << ' ' << name;
  if (names.size() > MostNamed) terminal.err << " and " << names.size() - MostNamed << " more";
  terminal.err << '\n';
}

} // namespace

ExitStatus RunFields(bool asJson, Terminal& terminal) {
  const Configuration tts = MostAllowing(TtsMode), fiveTone = MostAllowing(FiveToneMode);
  nlohmann::ordered_json document = nlohmann::ordered_json::array();
  for (const Field& field : Fields())
    for (std::size_t entry = 1; entry <= EntriesOf(field.group); ++entry) {
      const FieldAt at = {&field, entry};
      const std::string_view kind = KindNames[static_cast<std::size_t>(field.kind)];
      const bool isForFiveTone = field.place == FieldPlace(ChoiceList::Standards);
      const Configuration& configuration = isForFiveTone ? fiveTone : tts;
      std::string allowed = AllowedFor(configuration, at, PointTexts());
      const std::string other = AllowedFor(fiveTone, at, PointTexts());
      if (field.group != FieldGroup::Tts && other != allowed) allowed += "; for 5 Tone " + other;
      if (!asJson) {
        terminal.out << IdentifierOf(at) << '\t' << NameOf(at) << '\t' << kind << '\t' << allowed << '\n';
        continue;
      }
      document.push_back({{"field", IdentifierOf(at)}, {"label", NameOf(at)}, {"kind", kind}, {"allowed", allowed}});
      const auto choices = ChoicesOf(configuration, at, PointTexts());
      if (!choices.empty()) document.back()["choices"] = choices;
    }
  if (asJson) terminal.out << document.dump(2) << '\n';
  return EndOutput(terminal);
}

ExitStatus RunGet(FileSystem& files, const std::string& path, const std::vector<std::string>& fields,
                  Terminal& terminal) {
  std::vector<FieldAt> places;
  for (const std::string& identifier : fields)
    if (const auto at = FindField(identifier))
      places.push_back(*at);
    else
      terminal.err << identifier << NoSuchSetting << '\n';
  if (places.size() < fields.size()) return ExitStatus::UnusableArguments;
  RadioImage image;
  Configuration values;
  if (!LoadValuesForCommand(files, path, '.', image, values, terminal)) return ExitStatus::Failed;
  for (const FieldAt at : places)
    terminal.out << ValueOf(values, at) << '\n';
  return EndOutput(terminal);
}

ExitStatus RunSet(FileSystem& files, const std::string& path, const std::string& output,
                  const std::vector<std::string>& changes, Terminal& terminal) {
  std::vector<Assignment> assignments;
  std::vector<std::string> problems;
  for (const std::string& change : changes) {
    const std::size_t equals = change.find('=');
    if (equals == std::string::npos)
      problems.push_back(change + ": is no FIELD=VALUE");
    else if (const auto at = FindField(change.substr(0, equals)))
      assignments.push_back({*at, change.substr(equals + 1)});
    else
      problems.push_back(change.substr(0, equals).append(NoSuchSetting));
  }
  return StoreChanges(files, path, output, assignments, problems, terminal);
}

ExitStatus RunApply(FileSystem& files, const std::string& path, const std::string& output, const std::string& document,
                    Terminal& terminal) {
  const std::optional<std::string> text = ReadTextForCommand(files, document, terminal);
  if (!text) return ExitStatus::Failed;
  const Changes changes = ReadChanges(*text);
  return StoreChanges(files, path, output, changes.assignments, changes.problems, terminal);
}

ExitStatus StoreChanges(FileSystem& files, const std::string& path, const std::string& output,
                        const std::vector<Assignment>& assignments, const std::vector<std::string>& problems,
                        Terminal& terminal) {
  RadioImage image;
  Configuration before;
  if (!LoadValuesForCommand(files, path, '.', image, before, terminal)) return ExitStatus::Failed;
  const std::vector<RefusedValue> refused = ApplyChanges(image, assignments, PointTexts());
  for (const std::string& problem : problems)
    terminal.err << problem << '\n';
  for (const RefusedValue& one : refused)
    terminal.err << IdentifierOf(one.at) << '=' << one.value << ": refused; " << ReasonOf(one) << '\n';
  if (!problems.empty() || !refused.empty()) return ExitStatus::UnusableArguments;
  if (!SaveForCommand(files, output, image, terminal)) return ExitStatus::Failed;
  TellConsequences(DifferencesBetween(before, Decode(image, PointTexts()).configuration), assignments, terminal);
  return ExitStatus::Done;
}

std::optional<std::string> ReadTextForCommand(FileSystem& files, const std::string& path, Terminal& terminal) {
  TextInput input = ReadTextInput(files, path, &terminal.in);
  const std::string failure = LineFor(input);
  if (failure.empty()) return std::move(input.text);
  terminal.err << NameOfSource(path) << ": " << failure << '\n';
  return std::nullopt;
}

} // namespace mr4500x
