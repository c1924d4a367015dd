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
    return refusal->allowed;
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

// With the standard 0 nothing could be shown any more.
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

// Every text that a choice offers is stored, and shown again once it has been through the radio's bytes.
TEST_F(SetFieldTest, TakesEveryChoiceOfEverySetting) {
  for (const int mode : {TtsMode, FiveToneMode}) {
    for (const Field& field : Fields()) {
      if (field.place == FieldPlace(ChoiceList::SelectCall)) continue;
      const FieldAt at = {&field, EntriesOf(field.group)};
      configuration = NewConfiguration(image, texts, {});
      configuration[ChoiceList::SelectCall].position = mode;
      if (field.place == FieldPlace(GridColumn::TailCut)) {
        ASSERT_EQ(Set({&FieldOf(GridColumn::RxTone), at.entry}, "CTC69.3"), "");
      }
      for (const std::string_view text : ChoicesOf(configuration, at, texts)) {
        ASSERT_EQ(Set(at, text), "") << IdentifierOf(at) << " = " << text;
        SaveAndOpen();
        ASSERT_EQ(TextOf(configuration, at), text) << IdentifierOf(at);
        if (field.group == FieldGroup::Keys) configuration = NewConfiguration(image, texts, {});
      }
    }
  }
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
