#include "configuration_json.h"

#include "decimal.h"
#include "set_field.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace mr4500x {
namespace {

using Json = nlohmann::ordered_json;

constexpr int Format = 1;

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
    const Json document = Json::parse(text, nullptr, false);
    if (!document.is_object()) return Refuse("", document.is_discarded() ? "not a JSON document" : "not an object");
    for (const auto& [key, value] : document.items()) {
      if (key == "format") {
        if (value != Format) Refuse(key, "not 1, the format of this version");
      } else if (key != "as_stored") {
        ReadMember(key, value);
      }
    }
    if (document.contains("as_stored")) ReadAsStored(document["as_stored"]); // of what has been read
    return std::move(m_changes);
  }

private:
  Changes& Refuse(const std::string& place, std::string_view why) {
    m_changes.problems.push_back(place.empty() ? std::string(why) : place + ": " + std::string(why));
    return m_changes;
  }

  void ReadMember(const std::string& key, const Json& value) {
    const auto isGroup = [&](const Field& field) { return NameOf(field.group) == key; };
    const auto found = std::ranges::find_if(Fields(), isGroup);
    if (key.empty() || found == Fields().end()) return ReadValue(key, value);
    if (!IsArray(found->group)) return ReadEntry(key, value);
    if (!value.is_array()) return static_cast<void>(Refuse(key, "not an array"));
    for (std::size_t i = 0; i < value.size(); ++i)
      if (found->group == FieldGroup::Tts)
        ReadEntry(key + '.' + std::to_string(i + 1), value[i]);
      else
        ReadChannel(key, value[i]);
  }

  void ReadChannel(const std::string& key, const Json& channel) {
    const auto number = channel.is_object() ? channel.find("number") : channel.end();
    if (!channel.is_object() || number == channel.end() || !number->is_number_unsigned() ||
        number->get<std::uint64_t>() - 1 >= ChannelCount)
      return static_cast<void>(Refuse(key, "an entry without a number from 1 to 16"));
    ReadEntry(key + '.' + number->dump(), channel);
  }

  void ReadEntry(const std::string& path, const Json& entry) {
    if (!entry.is_object()) return static_cast<void>(Refuse(path, "not an object"));
    for (const auto& [key, value] : entry.items())
      if (key != "number" || !path.starts_with("channels.")) ReadValue(path + '.' + key, value);
  }

  void ReadValue(const std::string& identifier, const Json& value) {
    const std::optional<FieldAt> at = FindField(identifier);
    if (!at) return static_cast<void>(Refuse(identifier, "no such setting"));
    if (const auto text = TextFrom(*at, value))
      m_changes.assignments.push_back({*at, *text, at->field->place == FieldPlace(ChoiceList::Standards)});
    else
      Refuse(identifier + '=' + value.dump(-1, ' ', false, Json::error_handler_t::replace), NeededFor(*at->field));
  }

  static std::optional<std::string> TextFrom(FieldAt at, const Json& value) {
    const FieldKind kind = at.field->kind;
    if (kind == FieldKind::YesNo) return value.is_boolean() ? std::optional(value.dump()) : std::nullopt;
    if (kind == FieldKind::WholeNumber && value.is_number_unsigned()) return value.dump();
    const bool isTime = at.field->place == FieldPlace(Box::AutoResetTime); // its one text is OFF
    if (value.is_string() && (kind != FieldKind::WholeNumber || isTime)) return value.get<std::string>();
    const bool isCode = kind == FieldKind::Choice && value.is_object() && value.size() == 1 && value.contains("code") &&
                        value["code"].is_number_unsigned();
    return isCode ? std::optional("{\"code\": " + value["code"].dump() + '}') : std::nullopt;
  }

  static std::string_view NeededFor(const Field& field) {
    if (field.kind == FieldKind::YesNo) return "needs true or false";
    if (field.kind == FieldKind::WholeNumber) return "needs a number";
    return field.kind == FieldKind::Choice ? "needs a text, or an object with a code" : "needs a text";
  }

  void ReadAsStored(const Json& identifiers) {
    if (!identifiers.is_array()) return static_cast<void>(Refuse("as_stored", "not an array"));
    for (const Json& identifier : identifiers) {
      const auto at = identifier.is_string() ? FindField(identifier.get<std::string>()) : std::nullopt;
      if (!at) Refuse("as_stored", "names no setting");
      for (Assignment& given : m_changes.assignments)
        given.asStored |= at == given.at;
    }
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
