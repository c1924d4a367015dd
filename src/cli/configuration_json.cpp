#include "configuration_json.h"

#include "decimal.h"
#include "set_field.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>

namespace mr4500x {
namespace {

using Json = nlohmann::ordered_json;
using ReadJson = nlohmann::json; // looks up its keys, of which a document may have any number

constexpr int Format = 1;
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

// A group that is an object, or one entry of an array.
Json Entry(const Configuration& configuration, FieldGroup group, std::size_t entry) {
  Json object = Json::object();
  if (group == FieldGroup::Channels) object["number"] = entry;
  for (const Field& field : Fields())
    if (field.group == group) object[field.key] = ValueJson(configuration, {&field, entry});
  return object;
}

Json Group(const Configuration& configuration, FieldGroup group) {
  if (!IsArray(group)) return Entry(configuration, group, 1);
  Json array = Json::array();
  for (std::size_t entry = 1; entry <= EntriesOf(group); ++entry)
    array.push_back(Entry(configuration, group, entry));
  return array;
}

// Collects the changes of a document.
class Reader {
public:
  Changes Read(std::string_view text) {
    const ReadJson document = ReadJson::parse(text, nullptr, false);
    if (document.is_discarded()) return {{}, {"not a JSON document"}};
    Walk("", document);
    if (document.is_object() && document.value("format", ReadJson(Format)) != Format)
      Refuse("format", "not 1, the format of this version");
    if (document.is_object()) ReadAsStored(document.value("as_stored", ReadJson::array()));
    return std::move(m_changes);
  }

private:
  void Refuse(const std::string& place, std::string_view why) {
    m_changes.problems.push_back((place.empty() ? "the document" : place) + ": " + std::string(why));
  }

  // The path of an object or array: "", "global", "channels", "channels.3".
  void Walk(const std::string& path, const ReadJson& value) {
    const bool isArray = path == NameOf(FieldGroup::Channels) || path == NameOf(FieldGroup::Tts);
    if (!(isArray ? value.is_array() : value.is_object())) return Refuse(path, isArray ? "no array" : "no object");
    for (const auto& [key, member] : value.items()) {
      const bool isNumber = path.starts_with("channels.") && key == "number";
      if (isNumber || (path.empty() && (key == "format" || key == "as_stored"))) continue;
      const std::string place = (path.empty() ? "" : path + '.') + (isArray ? EntryOf(path, key, member) : key);
      const auto isIt = [&](const Field& field) { return NameOf(field.group) == place; };
      if (isArray || (!place.empty() && std::ranges::find_if(Fields(), isIt) != Fields().end()))
        Walk(place, member);
      else
        ReadValue(place, key, member);
    }
  }

  // Of an array: the number that a channel has, or the place of another entry.
  static std::string EntryOf(const std::string& path, const std::string& index, const ReadJson& entry) {
    if (path == NameOf(FieldGroup::Tts)) return std::to_string(std::stoul(index) + 1);
    return entry.is_object() ? entry.value("number", ReadJson("(without a number)")).dump() : index;
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
    if (kind == FieldKind::WholeNumber && value.is_number_unsigned()) return value.dump();
    const bool isTime = at.field->place == FieldPlace(Box::AutoResetTime); // its one text is OFF
    if (value.is_string() && (kind != FieldKind::WholeNumber || isTime)) return value.get<std::string>();
    const bool isCode = kind == FieldKind::Choice && value.is_object() && value.size() == 1 && value.contains("code");
    return isCode ? std::optional("{\"code\": " + value["code"].dump() + '}') : std::nullopt;
  }

  void ReadAsStored(const ReadJson& identifiers) {
    std::set<FieldAt> asStored;
    for (const ReadJson& identifier : identifiers)
      if (const auto at = identifier.is_string() ? FindField(identifier.get<std::string>()) : std::nullopt)
        asStored.insert(*at);
      else
        Refuse("as_stored", "names no setting");
    for (Assignment& given : m_changes.assignments)
      given.asStored |= asStored.contains(given.at);
  }

  Changes m_changes;
};

} // namespace

std::string ConfigurationJson(const Configuration& configuration) {
  Json document = {{"format", Format}};
  for (const Field& field : Fields())
    if (field.group == FieldGroup::None)
      document[field.key] = ValueJson(configuration, {&field, 1});
    else if (!document.contains(NameOf(field.group)))
      document[NameOf(field.group)] = Group(configuration, field.group);
  for (const FieldAt at : OutsideRules(configuration, BuildFieldTexts('.')))
    document["as_stored"].push_back(IdentifierOf(at));
  return document.dump(2) + '\n';
}

Changes ReadChanges(std::string_view document) {
  return Reader().Read(document);
}

} // namespace mr4500x
