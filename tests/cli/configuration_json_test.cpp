// The JSON document against its schema, and back into other configurations.
#include "configuration_json.h"
#include "random_image.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <regex>
#include <set>

namespace mr4500x {
namespace {

using Json = nlohmann::json;

// Knows the parts of JSON Schema that the file uses. Returns the place that does not fit, "" if all does.
class Schema {
public:
  Schema() {
    std::ifstream file(SCHEMA);
    m_whole = Json::parse(file);
  }
  [[nodiscard]] std::string Misfit(const Json& value) const { return Misfit(m_whole, value, "document"); }

private:
  [[nodiscard]] std::string Misfit(const Json& schema, const Json& value, const std::string& place) const {
    std::string misfit;
    for (const auto& [keyword, wanted] : schema.items())
      if (misfit.empty()) misfit = MisfitOf(schema, keyword, wanted, value, place);
    return misfit;
  }
  [[nodiscard]] std::string MisfitOf(const Json& schema, const std::string& keyword, const Json& wanted,
                                     const Json& value, const std::string& place) const {
    const auto demand = [&](bool fits) { return fits ? "" : place; };
    const auto takes = [&](const Json& one) { return Misfit(one, value, place).empty(); };
    const auto has = [&](const Json& key) { return value.contains(key.get<std::string>()); };
    if (keyword == "$ref")
      return Misfit(m_whole[Json::json_pointer(wanted.get<std::string>().substr(1))], value, place);
    if (keyword == "type")
      return demand(wanted == value.type_name() || (wanted == "integer" && value.is_number() &&
                                                    std::trunc(value.get<double>()) == value.get<double>()));
    if (keyword == "const") return demand(wanted == value);
    if (keyword == "enum") return demand(std::ranges::find(wanted, value) != wanted.end());
    if (keyword == "pattern")
      return demand(!value.is_string() || std::regex_match(value.get<std::string>(), Pattern(wanted)));
    if (keyword == "minimum") return demand(!value.is_number() || value >= wanted);
    if (keyword == "maximum") return demand(!value.is_number() || value <= wanted);
    if (keyword == "minItems") return demand(value.size() >= wanted);
    if (keyword == "maxItems") return demand(value.size() <= wanted);
    if (keyword == "required") return demand(std::ranges::all_of(wanted, has));
    if (keyword == "anyOf") return demand(std::ranges::any_of(wanted, takes));
    std::string misfit;
    for (const auto& [key, member] : value.items())
      if (keyword == "items" || (keyword == "properties" && wanted.contains(key)))
        misfit += Misfit(keyword == "items" ? wanted : wanted[key], member, place + '.' + key);
      else if (keyword == "properties")
        misfit += demand(schema.value("additionalProperties", true));
    const bool isKnown =
        std::set<std::string>{"items", "properties", "additionalProperties", "title", "description"}.contains(keyword);
    EXPECT_TRUE(isKnown || keyword.starts_with("$")) << keyword;
    return misfit;
  }
  [[nodiscard]] const std::regex& Pattern(const std::string& text) const {
    return m_patterns.try_emplace(text, text).first->second;
  }

  Json m_whole;
  mutable std::map<std::string, std::regex> m_patterns; // making one takes long
};

const FieldTexts Texts = BuildFieldTexts('.');

std::string DocumentOf(const RadioImage& image) {
  return ConfigurationJson(Decode(image, Texts).configuration);
}

// A radio whose frequencies can be written: with 18 bits of the 24.
RadioImage RadioWithAnything(std::mt19937& random) {
  RadioImage image = RandomImage(random);
  for (std::size_t channel = 0; channel < ChannelCount; ++channel)
    for (const std::size_t highByte : {3U, 9U})
      image.ChannelBlock(channel, highByte) &= 0x03;
  return image;
}

TEST(ConfigurationJsonTest, MakesAnyConfigurationShowWhatAnotherShows) {
  const Schema schema;
  std::mt19937 random(12);
  for (int round = 0; round < 60; ++round) {
    const std::string document = DocumentOf(RadioWithAnything(random));
    ASSERT_EQ(schema.Misfit(Json::parse(document)), "") << document;
    const Changes changes = ReadChanges(document);
    ASSERT_TRUE(changes.problems.empty()) << changes.problems[0];
    RadioImage image = RadioWithAnything(random);
    for (const auto& [at, value, refusal] : ApplyChanges(image, changes.assignments, Texts))
      ADD_FAILURE() << round << ": " << IdentifierOf(at) << '=' << value << ", " << ReasonOf(refusal);
    ASSERT_EQ(DocumentOf(image), document) << round;
  }
}

// Whatever apply takes fits the schema, and whatever it can't read does not.
TEST(ConfigurationJsonTest, ItsSchemaAgreesWithApplyOnChangedDocuments) {
  const Schema schema;
  std::mt19937 random(22);
  const auto below = [&](std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(random); };
  RadioImage standard;
  static_cast<void>(NewConfiguration(standard, Texts, {}));
  const Configuration shown = Decode(standard, Texts).configuration;
  const Json values = Json::parse(std::ifstream(CASES "document_values.json"));
  std::vector<FieldAt> all;
  for (const Field& field : Fields())
    for (std::size_t entry = 1; entry <= EntriesOf(field.group); ++entry)
      all.push_back({&field, entry});
  std::size_t taken = 0, unfit = 0;
  for (int round = 0; round < 3000; ++round) {
    Json document = Json::parse(PartJson(shown, {all[below(all.size())], all[below(all.size())]}));
    std::vector<std::string> places;
    const Json flat = document.flatten();
    for (const auto& [place, value] : flat.items())
      places.push_back(place);
    const Json::json_pointer place(places[below(places.size())]), around = place.parent_pointer();
    const Json& value = values[below(values.size())];
    const std::size_t kind = below(12);
    if (kind == 0 && document[around].is_object())
      document[around].erase(place.back());
    else if (kind == 1 && document[around].is_object())
      document[around]["extra"] = value;
    else if (kind == 2)
      document[below(2) == 0 ? "as_stored" : "$schema"] = below(2) == 0 ? Json{"scan.signal", "tts.9.gap"} : value;
    else
      document[kind == 3 ? around : place] = value;
    const bool fits = schema.Misfit(document).empty();
    const Changes changes = ReadChanges(document.dump());
    const bool isRead = changes.problems.empty() && changes.syntaxError.empty();
    RadioImage image = standard;
    const bool isTaken = isRead && ApplyChanges(image, changes.assignments, Texts).empty();
    EXPECT_FALSE(fits && !isRead) << document << ": " << changes.problems.front();
    EXPECT_FALSE(!fits && isTaken) << document << ": " << schema.Misfit(document);
    taken += isTaken ? 1 : 0;
    unfit += fits ? 0 : 1;
  }
  EXPECT_GT(taken, 200U);
  EXPECT_GT(unfit, 500U);
}

} // namespace
} // namespace mr4500x
