#include "differences.h"

namespace mr4500x {

std::vector<Difference> DifferencesBetween(const Configuration& before, const Configuration& after) {
  std::vector<Difference> differences;
  for (const Field& field : Fields())
    for (std::size_t entry = 1; entry <= EntriesOf(field.group); ++entry) {
      const FieldAt at{&field, entry};
      std::string old = ShownTextOf(before, at), now = ShownTextOf(after, at);
      if (old != now) differences.push_back({at, std::move(old), std::move(now)});
    }
  return differences;
}

std::string NameOf(FieldAt at) {
  std::string name;
  if (at.field->group == FieldGroup::Channels) name = "CH" + std::to_string(at.entry) + ' ';
  if (at.field->group == FieldGroup::Tts) name = "TTS " + std::to_string(at.entry) + ' ';
  return name + OnOneLine(at.field->label);
}

std::string OnOneLine(std::string_view label) {
  std::string text;
  for (const char c : label)
    if (c != ' ' || !(text.ends_with(' ') || text.ends_with('_'))) text += c;
  return text;
}

std::string ShownTextOf(const Configuration& configuration, FieldAt at) {
  std::string text = TextOf(configuration, at);
  if (at.field->kind != FieldKind::YesNo) return text;
  const bool yes = text == "true";
  return IsArray(at.field->group) ? (yes ? "yes" : "no") : (yes ? "ON" : "OFF");
}

} // namespace mr4500x
