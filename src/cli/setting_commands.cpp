#include "setting_commands.h"

#include "channel_list.h"
#include "columns.h"
#include "configuration_json.h"
#include "decimal.h"
#include "differences.h"
#include "field_patterns.h"
#include "messages.h"
#include "set_field.h"
#include "tone_codes.h"
#include "utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>
#include <set>
#include <sstream>

namespace mr4500x {
namespace {

constexpr std::array<std::string_view, 5> KindNames = {"choice", "number", "digits", "frequency", "yes/no"};

// The values that a setting allows depend on other settings. Here the others allow as much as possible.
Configuration MostAllowing(int mode) {
  RadioImage image;
  Configuration configuration = NewConfiguration(image, PointTexts(), {});
  configuration[ChoiceList::SelectCall].position = mode;
  configuration[ChoiceList::PttId].position = static_cast<int>(ItemsOf(ChoiceList::PttId).size()) - 1; // both
  for (ChannelTexts& channel : configuration.channels)
    channel[GridColumn::RxTone] = PointTexts().ToneChoiceList.back();
  return configuration;
}

using Json = nlohmann::ordered_json;

Json NumberOrText(const std::string& text, FieldKind kind) {
  const auto number = kind == FieldKind::WholeNumber ? ParseWhole(text) : std::nullopt;
  return number ? Json(*number) : Json(text);
}

Json FieldJson(const Configuration& configuration, FieldAt at, const std::string& allowed) {
  Json field = {{"field", IdentifierOf(at)},
                {"label", NameOf(at)},
                {"kind", KindNames[static_cast<std::size_t>(at.field->kind)]},
                {"allowed", allowed}};
  const auto choices = ChoicesOf(configuration, at, PointTexts());
  if (!choices.empty()) field["choices"] = choices;
  if (const auto limits = LimitsOf(configuration, at, PointTexts())) {
    field["min"] = NumberOrText(limits->min, at.field->kind);
    field["max"] = NumberOrText(limits->max, at.field->kind);
    field["step"] = NumberOrText(limits->step, at.field->kind);
    field["unit"] = limits->unit;
  }
  return field;
}

// Reads one FIELD=VALUE. An unusable one is added as a problem.
void ReadChange(const std::string& change, const std::string& place, bool asStored, Changes& changes) {
  const std::size_t equals = change.find('=');
  const std::string name = change.substr(0, equals);
  const std::vector<FieldAt> named = FieldsNamed(name, false);
  if (equals == std::string::npos)
    return changes.problems.push_back(place + Printable(change) + ": is not FIELD=VALUE");
  if (named.empty())
    changes.problems.push_back(place + (FieldsNamed(name, true).empty()
                                            ? NoSuchSetting(name)
                                            : name + ": is a group; name one of its settings"));
  for (const FieldAt at : named)
    changes.assignments.push_back(
        {at, change.substr(equals + 1), asStored && at.field->place == FieldPlace(ChoiceList::Standards)});
}

void ReadLines(const std::string& text, const std::string& name, Changes& changes) {
  std::istringstream lines(DecodedText(text));
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty() || line.starts_with('#')) continue;
    ReadChange(line, name + ':' + std::to_string(number) + ": ", true, changes);
  }
}

// Prints earlier problems and refused values. If there are any, nothing is stored.
ExitStatus StoreChanges(FileSystem& files, const FileChange& given, const Changes& changes, Terminal& terminal) {
  return ChangeFile(files, given, terminal, [&](RadioImage& image, std::set<FieldAt>& named) {
    for (const Assignment& assignment : changes.assignments)
      named.insert(assignment.at);
    const std::vector<RefusedValue> refused = ApplyChanges(image, changes.assignments, PointTexts());
    for (const std::string& problem : changes.problems)
      terminal.err << problem << '\n';
    for (const RefusedValue& one : refused)
      terminal.err << IdentifierOf(one.at) << '=' << Printable(one.value) << ": refused; " << ReasonOf(one.refusal)
                   << '\n';
    return changes.problems.empty() && refused.empty() ? ExitStatus::Done : ExitStatus::UnusableArguments;
  });
}

// Imports the valid rows and removes the others. Appends the refused cells.
void ImportGoodRows(RadioImage& image, ChannelList& list) {
  for (;;) {
    const std::vector<RefusedCell> refused = ApplyCells(image, CellsOf(list.rows), PointTexts());
    if (refused.empty()) return;
    list.bad.insert(list.bad.end(), refused.begin(), refused.end());
    std::erase_if(list.rows, [&](const ChannelRow& row) {
      return std::ranges::find(refused, row.line, &RefusedCell::line) != refused.end();
    });
  }
}

} // namespace

ExitStatus RunFields(FileSystem& files, const std::string& path, bool asJson, Terminal& terminal) {
  const auto ofFile = path.empty() ? std::nullopt : LoadValuesForCommand(files, path, terminal);
  if (!path.empty() && !ofFile) return ExitStatus::Failed;
  const Configuration tts = ofFile ? *ofFile : MostAllowing(TtsMode);
  const Configuration fiveTone = ofFile ? *ofFile : MostAllowing(FiveToneMode);
  Json document = {{"format", 1}, {"fields", Json::array()}};
  for (const FieldAt at : AllFields()) {
    const bool isForFiveTone = at.field->place == FieldPlace(ChoiceList::Standards);
    const Configuration& configuration = isForFiveTone ? fiveTone : tts;
    std::string allowed = AllowedFor(configuration, at, PointTexts());
    const std::string other = AllowedFor(fiveTone, at, PointTexts());
    if (at.field->group != FieldGroup::Tts && other != allowed) allowed += "; for 5 Tone " + other;
    if (asJson)
      document["fields"].push_back(FieldJson(configuration, at, allowed));
    else
      terminal.out << IdentifierOf(at) << '\t' << NameOf(at) << '\t'
                   << KindNames[static_cast<std::size_t>(at.field->kind)] << '\t' << allowed << '\n';
  }
  return PrintData(terminal, asJson ? document.dump(2) + '\n' : "");
}

ExitStatus RunGet(FileSystem& files, const std::string& path, const std::vector<std::string>& fields, bool asJson,
                  Terminal& terminal) {
  std::vector<FieldAt> places = fields.empty() ? AllFields() : std::vector<FieldAt>();
  bool hasPattern = fields.empty(), isUnusable = false;
  for (const std::string& word : fields) {
    const std::vector<FieldAt> named = FieldsNamed(word, true);
    if (named.empty()) terminal.err << NoSuchSetting(word) << '\n';
    isUnusable |= named.empty();
    hasPattern |= !FindField(word);
    places.insert(places.end(), named.begin(), named.end());
  }
  if (isUnusable) return ExitStatus::UnusableArguments;
  const std::optional<Configuration> values = LoadValuesForCommand(files, path, terminal);
  if (!values) return ExitStatus::Failed;
  Json document = {{"format", 1}, {"fields", Json::object()}};
  for (const FieldAt at : places)
    if (asJson)
      document["fields"][IdentifierOf(at)] = Json::parse(ValueAsJson(*values, at));
    else
      terminal.out << (hasPattern ? IdentifierOf(at) + '=' : "") << ValueOf(*values, at) << '\n';
  return PrintData(terminal, asJson ? document.dump(2) + '\n' : "");
}

ExitStatus RunSet(FileSystem& files, const FileChange& given, const std::vector<std::string>& changes,
                  Terminal& terminal) {
  Changes read;
  if (!given.input.empty()) {
    const std::optional<std::string> lines = ReadTextForCommand(files, given.input, terminal);
    if (!lines) return ExitStatus::Failed;
    ReadLines(*lines, NameOfSource(given.input), read);
    if (read.assignments.empty() && read.problems.empty())
      return Refuse(terminal, NameOfSource(given.input) + ": has no line FIELD=VALUE");
  }
  for (const std::string& change : changes)
    ReadChange(change, "", false, read);
  return StoreChanges(files, given, read, terminal);
}

ExitStatus RunApply(FileSystem& files, const FileChange& given, Terminal& terminal) {
  const std::optional<std::string> text = ReadTextForCommand(files, given.input, terminal);
  if (!text) return ExitStatus::Failed;
  const Changes changes = ReadChanges(*text);
  if (changes.syntaxError.empty()) return StoreChanges(files, given, changes, terminal);
  return Refuse(terminal, NameOfSource(given.input) + ':' + changes.syntaxError);
}

ExitStatus RunChannelsExport(FileSystem& files, const std::string& path, const std::string& csv, Terminal& terminal) {
  if (!CheckExport(files, csv, terminal)) return ExitStatus::UnusableArguments;
  const std::optional<Configuration> values = LoadValuesForCommand(files, path, terminal);
  return values ? StoreTextForCommand(files, csv, ChannelsCsv(*values), terminal) : ExitStatus::Failed;
}

ExitStatus RunChannelsImport(FileSystem& files, const FileChange& given, bool skipsBad, Terminal& terminal) {
  const auto text = ReadTextForCommand(files, given.input, terminal);
  if (!text) return ExitStatus::Failed;
  return ChangeFile(files, given, terminal, [&](RadioImage& image, std::set<FieldAt>& named) {
    const std::string name = NameOfSource(given.input) + ':';
    if (DecodedText(*text).find('\0') != std::string::npos) // a cell would take it for a blank
      return Refuse(terminal, name + " has a zero byte");
    ChannelList list = ReadChannelList(*text, PointTexts());
    ImportGoodRows(image, list);
    for (const std::string& bad : TextsOf(list.bad))
      terminal.err << name << bad << '\n';
    for (const std::string& column : list.leftOut)
      terminal.err << name << ' ' << column << ": column ignored; "
                   << (NamesSetting(column) ? "not one of this format\n" : "the radio has no such setting\n");
    if (!list.bad.empty() && !(skipsBad && list.hasHeading)) return ExitStatus::UnusableArguments;
    for (const GivenCell& cell : CellsOf(list.rows))
      named.insert(cell.assignment.at);
    if (list.bad.empty() && named.empty()) return Refuse(terminal, name + " has no value to import");
    return named.empty() ? ExitStatus::Failed : ExitStatus::Done;
  });
}

} // namespace mr4500x
