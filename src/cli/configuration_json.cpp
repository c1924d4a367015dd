#include "configuration_json.h"

#include "decimal.h"
#include "fields.h"

#include <nlohmann/json.hpp>

namespace mr4500x {
namespace {

using Json = nlohmann::ordered_json;

Json ValueOf(const Configuration& configuration, FieldAt at) {
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
    if (field.group == group) object[field.key] = ValueOf(configuration, {&field, entry});
  return object;
}

Json Group(const Configuration& configuration, FieldGroup group) {
  if (!IsArray(group)) return Entry(configuration, group, 1);
  Json array = Json::array();
  for (std::size_t entry = 1; entry <= EntriesOf(group); ++entry)
    array.push_back(Entry(configuration, group, entry));
  return array;
}

} // namespace

std::string ConfigurationJson(const Configuration& configuration) {
  Json document;
  for (const Field& field : Fields())
    if (field.group == FieldGroup::None)
      document[field.key] = ValueOf(configuration, {&field, 1});
    else if (!document.contains(NameOf(field.group)))
      document[NameOf(field.group)] = Group(configuration, field.group);
  return document.dump(2) + '\n';
}

} // namespace mr4500x
