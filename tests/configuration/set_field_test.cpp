#include "changes.h"
#include "set_field.h"

#include "rows.h"

#include <set>

namespace mr4500x {
namespace {

class SetFieldTest : public testing::Test {
protected:
  FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  Configuration configuration = NewConfiguration(image, texts, {2026, 1, 2, 3, 4, 5});

  // What is allowed instead; "" when the text was accepted.
  std::string Set(FieldAt at, std::string_view text) {
    const Configuration before = configuration;
    const std::optional<Refusal> refusal = SetField(configuration, at, text, texts);
    if (!refusal) return "";
    EXPECT_EQ(configuration, before) << IdentifierOf(at) << " was refused and changed something";
    const std::string reason = ReasonOf(*refusal);
    return reason.starts_with("allowed: ") ? reason.substr(9) : reason;
  }
  // Taken over by the image and shown again.
  void SaveAndOpen() {
    Encode(configuration, image, texts);
    configuration = Decode(image, texts).configuration;
  }
};

TEST_F(SetFieldTest, EverySettingHasAnIdentifierOfItsOwn) {
  std::set<std::string> identifiers;
  for (const Field& field : Fields()) {
    for (std::size_t entry = 1; entry <= EntriesOf(field.group); ++entry) {
      const std::string identifier = IdentifierOf({&field, entry});
      EXPECT_TRUE(identifiers.insert(identifier).second) << identifier;
      EXPECT_EQ(FindField(identifier), (FieldAt{&field, entry}));
    }
  }
  EXPECT_EQ(identifiers.size(), 33U + 8 * 6 + 16 * 16);
  for (const char* const wrong :
       {"", "tx_tot", "global", "global.", "global.1.tx_tot", "channels.rx_freq", "channels.0.rx_freq",
        "channels.17.rx_freq", "channels.03.rx_freq", "tts.9.gap", "Global.tx_tot"}) {
    EXPECT_FALSE(FindField(wrong)) << wrong;
  }
}

// With the standard 0 nothing could be shown.
TEST_F(SetFieldTest, TakesACodeOfAStandardButNotTheOneThatNoImageShows) {
  configuration[ChoiceList::SelectCall].position = FiveToneMode;
  const FieldAt at = *FindField("five_tone_standard");
  for (const auto& [code, refusals] : {std::pair("{\"code\": 0}", 1U), {"{\"code\": 200}", 0U}}) {
    const Configuration before = configuration;
    EXPECT_EQ(ApplyChanges(configuration, {{at, code}}, texts).size(), refusals) << code;
    EXPECT_EQ(configuration == before, refusals != 0) << code;
  }
  EXPECT_EQ(ValueOf(configuration, at), "{\"code\": 200}");
}

// Each is stored as the file says, and shown again once it has been through the radio's bytes.
TEST_F(SetFieldTest, TakesEveryChoiceOfEverySetting) {
  std::set<const Field*> tried;
  for (const Row& row : RowsOf(CASES "choices.txt", "(\\S+) (\\w+) (\\w+)(?: after (.*?)=(.*?))?: (.*)")) {
    const FieldAt at = FindField(row[1]).value();
    const auto address = static_cast<std::uint16_t>(std::stoul(row[2], nullptr, 16));
    const BlockLocation& place = *LocationOf(address);
    tried.insert(at.field);
    configuration = NewConfiguration(image, texts, {});
    EXPECT_EQ(row[4].empty() ? "" : Set(FindField(row[4]).value(), row[5]), "");
    const auto choices = ChoicesOf(configuration, at, texts);
    std::size_t count = 0;
    std::istringstream items(row[6]);
    for (std::string item; std::getline(items, item, '|'); ++count) {
      const std::string text = item.substr(0, item.find('='));
      ASSERT_EQ(count < choices.size() ? choices[count] : "", text) << row[1];
      if (at.field->group == FieldGroup::Keys) configuration = NewConfiguration(image, texts, {});
      ASSERT_EQ(Set(at, text), "") << row[1] << " = " << text;
      SaveAndOpen();
      EXPECT_EQ(TextOf(configuration, at), text) << row[1];
      const int bits = BlockBytes(image, place.block)[address - place.address] & std::stoi(row[3], nullptr, 16);
      EXPECT_EQ(bits, std::stoi(item.substr(text.size() + 1), nullptr, 16)) << row[1] << " = " << text;
    }
    EXPECT_EQ(choices.size(), count) << row[1];
  }
  for (const Field& field : Fields())
    EXPECT_TRUE(field.kind != FieldKind::Choice || tried.contains(&field)) << field.key;
}

TEST_F(SetFieldTest, DoesWhatTheFileSays) {
  for (const Row& row : RowsOf(CASES "set_field.txt", "new|([^= ]+) (=|is) (.*?)(?: -> (.*))?")) {
    SCOPED_TRACE(row[0]);
    configuration = row[0] == "new" ? NewConfiguration(image, texts, {}) : configuration;
    if (row[2] == "is") {
      EXPECT_EQ(TextOf(configuration, FindField(row[1]).value()), row[3]);
    } else if (row[2] == "=") {
      EXPECT_EQ(Set(FindField(row[1]).value(), row[3]), row[4]);
      SaveAndOpen();
    }
  }
}

} // namespace
} // namespace mr4500x
