#include "set_field.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>

namespace mr4500x {
namespace {

struct Case {
  std::string identifier, text, result;
};

std::vector<Case> CasesOf(const std::string& name) {
  std::ifstream file(SET_FIELD "/" + name);
  EXPECT_TRUE(file) << name;
  std::vector<Case> cases;
  const std::regex form("([^#= ]+) = (.*?) ->(?: (.*))?");
  std::smatch match;
  for (std::string line; std::getline(file, line);)
    if (std::regex_match(line, match, form)) cases.push_back({match[1], match[2], match[3]});
  EXPECT_GT(cases.size(), 15U) << name;
  return cases;
}

class SetFieldTest : public testing::Test {
protected:
  FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  Configuration configuration = NewConfiguration(image, texts, {2026, 1, 2, 3, 4, 5});

  // What is allowed instead; "" when the text was taken.
  std::string Set(std::string_view identifier, std::string_view text) {
    const std::optional<FieldAt> at = FindField(identifier);
    if (!at) return "no such field";
    const Configuration before = configuration;
    const std::optional<Refusal> refusal = SetField(configuration, *at, text, texts);
    if (!refusal) return "";
    EXPECT_EQ(configuration, before) << identifier << " was refused and changed something";
    return refusal->allowed;
  }
  std::string Get(std::string_view identifier) { return TextOf(configuration, *FindField(identifier)); }
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

// Every text that a choice offers is stored, and shown again once it has been through the radio's bytes.
TEST_F(SetFieldTest, TakesEveryChoiceOfEverySetting) {
  for (const char* const mode : {"TTS", "5 Tone"}) {
    for (const Field& field : Fields()) {
      if (field.place == FieldPlace(ChoiceList::SelectCall)) continue;
      const bool tts = std::string_view(mode) == "TTS";
      if (field.group == FieldGroup::Tts && !tts) continue; // the radio keeps none then
      if (field.place == FieldPlace(ChoiceList::Standards) && tts) continue;
      const FieldAt at = {&field, EntriesOf(field.group)};
      configuration = NewConfiguration(image, texts, {});
      ASSERT_EQ(Set("select_call", mode), "");
      if (field.place == FieldPlace(GridColumn::TailCut)) {
        ASSERT_EQ(Set("channels.16.rx_tone", "CTC69.3"), "");
      }
      for (const std::string& text : ChoicesOf(configuration, at, texts)) {
        ASSERT_EQ(Set(IdentifierOf(at), text), "") << IdentifierOf(at) << " = " << text;
        SaveAndOpen();
        ASSERT_EQ(TextOf(configuration, at), text) << IdentifierOf(at);
        if (field.group == FieldGroup::Keys) configuration = NewConfiguration(image, texts, {});
      }
    }
  }
}

TEST_F(SetFieldTest, TakesValues) {
  for (const Case& c : CasesOf("values.txt")) {
    EXPECT_EQ(Set(c.identifier, c.text), "") << c.identifier << " = " << c.text;
    SaveAndOpen();
    EXPECT_EQ(Get(c.identifier), c.result) << c.identifier << " = " << c.text;
  }
}

TEST_F(SetFieldTest, RefusesWhatTheWindowCouldNotProduce) {
  for (const Case& c : CasesOf("refusals.txt"))
    EXPECT_EQ(Set(c.identifier, c.text), c.result) << c.identifier << " = " << c.text;
}

TEST_F(SetFieldTest, BringsTheConsequencesOfTheWindow) {
  EXPECT_EQ(Set("channels.2.rx_tone", "DCS023"), "");
  EXPECT_EQ(Get("channels.2.tail_cut"), "ON");
  EXPECT_EQ(Set("channels.2.tail_cut", "OFF"), "");
  EXPECT_EQ(Set("channels.2.rx_tone", "DCS023"), "") << "the tone that it has";
  EXPECT_EQ(Get("channels.2.tail_cut"), "OFF");

  EXPECT_EQ(Set("channels.2.rx_step", "2.5"), "");
  EXPECT_EQ(Set("channels.2.rx_freq", "441.0025"), "");
  EXPECT_EQ(Set("channels.2.rx_step", "6.25"), "");
  EXPECT_EQ(Get("channels.2.rx_freq"), "441.00000");

  EXPECT_EQ(Set("channels.2.rx_selcall", "TTS 3"), "");
  EXPECT_EQ(Set("channels.9.group_call", "Tone B"), "");
  EXPECT_EQ(Set("select_call", "5 Tone"), "");
  EXPECT_EQ(Get("channels.2.rx_selcall") + Get("channels.9.group_call"), "OFFOFF");

  EXPECT_EQ(Set("global.ptt_id", "Both"), "");
  EXPECT_EQ(Set("global.connect_id", "12"), "");
  EXPECT_EQ(Set("global.disconnect_id", "34"), "");
  EXPECT_EQ(Set("global.ptt_id", "Disconnect ID"), "");
  EXPECT_EQ(Get("global.connect_id") + Get("global.disconnect_id"), "----------------34");

  EXPECT_EQ(Set("keys.short_a", "Emergency Alert"), "");
  EXPECT_EQ(Get("keys.long_a"), "Cancel Emergency Alert");

  EXPECT_EQ(Set("band.lower", "450"), "");
  EXPECT_EQ(Get("channels.2.rx_freq") + Get("channels.2.rx_tone") + Get("channels.2.in_use"), "450.00000OFFfalse");
  EXPECT_EQ(Get("channels.1.in_use"), "true");
}

} // namespace
} // namespace mr4500x
