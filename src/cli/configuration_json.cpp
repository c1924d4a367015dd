#include "configuration_json.h"

#include "decimal.h"
#include "field_patterns.h"
#include "set_field.h"
#include "utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace mr4500x {
namespace {

using Json = nlohmann::ordered_json;
using ReadJson = nlohmann::json; // looks up its keys quickly, of which a document may have any number

constexpr int Format = 1;
constexpr std::size_t MostLevels = 8; // levels of arrays and objects; a document has three
// By FieldKind.
constexpr std::array<std::string_view, 5> Needed = {"needs a text, or an object with a code", "needs a number",
                                                    "needs a text", "needs a text", "needs true or false"};

Json ValueJson(const Configuration& configuration, FieldAt at) {
  if (const auto code = UnlistedCodeOf(configuration, at)) return {{"code", *code}};
  const std::string text = TextOf(configuration, at);
  if (at.field->kind == FieldKind::YesNo) return text == "true";
  if (at.field->kind != FieldKind::WholeNumber) return text;
  const std::optional<int> number = ParseWhole(text); // none for "OFF"
  return number ? Json(*number) : Json(text);
}

// Line and column, counted from 1, of a byte: "3:17: ".
std::string PlaceOf(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, offset);
  const std::size_t lineBegin = before.rfind('\n') + 1; // 0 if there is none
  const auto column = std::ranges::count_if(before.substr(lineBegin), BeginsCharacter) + 1;
  return std::to_string(std::ranges::count(before, '\n') + 1) + ':' + std::to_string(column) + ": ";
}

// The parser's message, without its name, the position and the surrounding text.
std::string ReasonOf(const ReadJson::parse_error& error) {
  const std::string_view all = error.what();
  const std::size_t begin = std::min(all.find(" - "), all.size());
  const std::string_view reason = all.substr(begin, all.find("; last read") - begin);
  return "not a JSON document" + std::string(reason);
}

// Builds the document. `problem` is set for what the parser would silently ignore.
ReadJson ParseStrictly(std::string_view text, std::string& problem) {
  std::vector<std::set<std::string>> keys; // keys of the objects around the current value
  using Event = ReadJson::parse_event_t;
  return ReadJson::parse(text, [&](int depth, Event event, const ReadJson& value) {
    const auto level = static_cast<std::size_t>(depth);
    const bool begins = event == Event::object_start || event == Event::array_start;
    if (begins && level >= MostLevels) problem = "the document: too many levels";
    if (!problem.empty()) return false;
    if (begins) keys.resize(level + 1);
    if (begins) keys.emplace_back();
    if (event != Event::key || keys[level].insert(value.get<std::string>()).second) return true;
    problem = Printable(value.dump()) + ": given twice in one object";
    return false;
  });
}

// Collects the changes of a document.
class Reader {
public:
  Changes Read(std::string_view text) {
    const std::size_t zero = text.find('\0'); // which the parser treats as the end
    if (zero != std::string_view::npos) return {{}, {}, PlaceOf(text, zero) + "not a JSON document - a zero byte"};
    ReadJson document;
    std::string problem;
    try {
      document = ParseStrictly(text, problem);
    } catch (const ReadJson::parse_error& error) { // its byte positions count from 1
      return {{}, {}, PlaceOf(text, std::min(std::max<std::size_t>(error.byte, 1) - 1, text.size())) + ReasonOf(error)};
    } catch (const ReadJson::out_of_range&) {
      return {{}, {}, " not a JSON document - a number is out of range"};
    }
    if (!problem.empty()) return {{}, {problem}};
    Walk("", document);
    if (document.is_object() && document.value("format", ReadJson(Format)) != Format)
      Refuse("format", "not 1, the format of this version");
    if (document.is_object()) ReadAsStored(document.value("as_stored", ReadJson::array()));
    return std::move(m_changes);
  }

private:
  void Refuse(const std::string& place, std::string_view why) {
    m_changes.problems.push_back((place.empty() ? "the document" : Printable(place)) + ": " + std::string(why));
  }

  // The path of an object or array: "", "global", "channels", "channels.3".
  void Walk(const std::string& path, const ReadJson& value) {
    const bool isArray = path == NameOf(FieldGroup::Channels) || path == NameOf(FieldGroup::Tts);
    if (!(isArray ? value.is_array() : value.is_object()))
      return Refuse(path, isArray ? "not an array" : "not an object");
    for (const auto& [key, member] : value.items()) {
      const bool isNumber = path.starts_with("channels.") && key == "number";
      if (isNumber || (path.empty() && (key == "format" || key == "as_stored" || key == "$schema"))) continue;
      const std::string place = (path.empty() ? "" : path + '.') + (isArray ? EntryOf(path, key, member) : key);
      if (isArray && !FindField(place + (path == NameOf(FieldGroup::Tts) ? ".gap" : ".in_use"))) {
        Refuse(place, "no such entry");
        continue;
      }
      const auto isIt = [&](const Field& field) { return NameOf(field.group) == place; };
      if (isArray || (!place.empty() && std::ranges::find_if(Fields(), isIt) != Fields().end()))
        Walk(place, member);
      else
        ReadValue(place, key, member);
    }
  }

  // For an array: the number of a channel, or the position of another entry, counted from 1.
  static std::string EntryOf(const std::string& path, const std::string& index, const ReadJson& entry) {
    if (path == NameOf(FieldGroup::Tts) || !entry.is_object()) return std::to_string(std::stoul(index) + 1);
    if (!entry.contains("number")) return "(without a number)";
    const auto number = WholeOf(entry["number"]);
    return number ? std::to_string(*number) : entry["number"].dump();
  }

  // A number that is not negative and has no fraction, also one such as 3.0.
  static std::optional<int> WholeOf(const ReadJson& value) {
    const double number = value.is_number() ? value.get<double>() : -1;
    const bool isWhole = number >= 0 && number <= std::numeric_limits<int>::max() && number == std::trunc(number);
    return isWhole ? std::optional(static_cast<int>(number)) : std::nullopt;
  }

  void ReadValue(const std::string& place, const std::string& key, const ReadJson& value) {
    const std::optional<FieldAt> at = FindField(place);
    if (!at || at->field->key != key) return Refuse(place, "no such setting");
    if (const auto text = TextFrom(*at, value))
      m_changes.assignments.push_back({*at, *text, at->field->place == FieldPlace(ChoiceList::Standards)});
    else
      Refuse(place + '=' + value.dump(), Needed[static_cast<std::size_t>(at->field->kind)]);
  }

  static std::optional<std::string> TextFrom(FieldAt at, const ReadJson& value) {
    const FieldKind kind = at.field->kind;
    if (kind == FieldKind::YesNo) return value.is_boolean() ? std::optional(value.dump()) : std::nullopt;
    const auto number = WholeOf(value);
    if (kind == FieldKind::WholeNumber && number) return std::to_string(*number);
    const bool isTime = at.field->place == FieldPlace(Box::AutoResetTime); // its one text is OFF
    if (value.is_string() && (kind != FieldKind::WholeNumber || isTime)) return value.get<std::string>();
    const bool isCode = kind == FieldKind::Choice && value.size() == 1 && value.contains("code");
    const auto code = isCode ? WholeOf(value["code"]) : std::nullopt;
    return code ? std::optional("{\"code\": " + std::to_string(*code) + '}') : std::nullopt;
  }

  void ReadAsStored(const ReadJson& identifiers) {
    std::set<FieldAt> asStored;
    if (!identifiers.is_array()) return Refuse("as_stored", "not an array");
    for (std::size_t i = 0; i < identifiers.size(); ++i)
      if (const auto at = identifiers[i].is_string() ? FindField(identifiers[i].get<std::string>()) : std::nullopt)
        asStored.insert(*at);
      else
        Refuse("as_stored." + std::to_string(i + 1), "is not a setting");
    for (Assignment& given : m_changes.assignments)
      given.asStored |= asStored.contains(given.at);
  }

  Changes m_changes;
};

} // namespace

std::string ConfigurationJson(const Configuration& configuration) {
  const std::vector<FieldAt> all = AllFields();
  return PartJson(configuration, {all.begin(), all.end()});
}

std::string ValueAsJson(const Configuration& configuration, FieldAt at) {
  return ValueJson(configuration, at).dump();
}

std::string PartJson(const Configuration& configuration, const std::set<FieldAt>& fields) {
  Json document = {{"format", Format}};
  for (const FieldAt at : fields) {
    const FieldGroup group = at.field->group;
    Json& container = group == FieldGroup::None ? document : document[NameOf(group)];
    if (group == FieldGroup::Channels) { // found by their numbers
      const auto isIt = [&](const Json& channel) { return channel["number"] == at.entry; };
      if (std::ranges::none_of(container, isIt)) container.push_back({{"number", at.entry}});
      (*std::ranges::find_if(container, isIt))[at.field->key] = ValueJson(configuration, at);
    } else if (group == FieldGroup::Tts) { // found by their places
      while (container.size() < at.entry)
        container.push_back(Json::object());
      container[at.entry - 1][at.field->key] = ValueJson(configuration, at);
    } else {
      container[at.field->key] = ValueJson(configuration, at);
    }
  }
  for (const FieldAt at : OutsideRules(configuration, PointTexts()))
    if (fields.contains(at)) document["as_stored"].push_back(IdentifierOf(at));
  return document.dump(2) + '\n';
}

Changes ReadChanges(std::string_view document) {
  return Reader().Read(DecodedText(document));
}

} // namespace mr4500x
