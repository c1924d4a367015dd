#include "set_field.h"

#include <gtest/gtest.h>

#include <set>

namespace mr4500x {
namespace {

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
  struct {
    const char *identifier, *text, *shown;
  } const cases[] = {
      {"band.upper", "520", "520"},
      {"channels.3.rx_freq", "446.00625", "446.00625"},
      {"channels.3.tx_freq", "446.1", "446.10000"},
      {"channels.16.in_use", "true", "true"},
      {"channels.1.tx_allowed", "false", "false"},
      {"global.emergency_ani", "0123456789ABCD*#", "0123456789ABCD*#"},
      {"global.ptt_id", "Both", "Both"},
      {"global.connect_id", "1*", "1*"},
      {"global.disconnect_id", "#", "#"},
      {"scan.signal", "true", "true"},
      {"auto_reset_time", "255", "255"},
      {"tts.8.tone_b", "3000", "3000"},
      {"tts.1.tone_a", "288", "288"},
      {"select_call", "5 Tone", "5 Tone"},
      {"channels.2.rx_selcall", "5T 01234", "5T 01234"},
      {"channels.2.tx_selcall", "OFF", "OFF"},
      {"auto_reset_time", "OFF", "OFF"},
      {"global.emergency_ani", "", "----------------"},
  };
  for (const auto& [identifier, text, shown] : cases) {
    EXPECT_EQ(Set(identifier, text), "") << identifier << " = " << text;
    SaveAndOpen();
    EXPECT_EQ(Get(identifier), shown) << identifier << " = " << text;
  }
}

TEST_F(SetFieldTest, RefusesWhatTheWindowCouldNotProduce) {
  ASSERT_EQ(Set("keys.short_a", "Talk Around"), "");
  ASSERT_EQ(Set("keys.short_b", "Monitor"), "");
  const std::string limits = "440 to 470 MHz";
  const std::string digits = "up to 16 of 0 to 9, A to D, * and #, or ----------------";
  const std::string keys =
      "one of Unassigned, Monitor, Scan, Nuisance Delete, Power Select, Talk Around, Reverse, Call, "
      "Selcall, GroupCall; Talk Around or Reverse on one key only";
  struct {
    const char *identifier, *text;
    std::string allowed;
  } const cases[] = {
      {"global.tx_tot", "61s", "one of OFF, 30s, 60s, 90s, 120s, 150s, 180s, 210s, 240s, 270s, 300s"},
      {"global.beep_tone", "on", "one of OFF, ON"},
      {"scan.look_back", "5s", "one of 0.3s, 0.4s, 0.5s … 5.0s"},
      {"scan.signal", "yes", "true or false"},
      {"channels.1.rx_freq", "446.001", "a multiple of 6.25 kHz; nearest are 446.00000 and 446.00625"},
      {"channels.1.rx_freq", "446.00625001", "a multiple of 6.25 kHz; nearest are 446.00625 and 446.01250"},
      {"channels.1.rx_freq", "470", limits},
      {"channels.1.tx_freq", "439.99375", limits},
      {"channels.1.tx_freq", "-446", limits},
      {"channels.1.tx_freq", "446,1", limits},
      {"channels.1.tx_freq", "", limits + ", a multiple of 6.25 kHz"},
      {"channels.1.rx_step", "2,5", "one of 2.5, 6.25"},
      {"channels.1.rx_tone", "DCS024", "one of OFF, CTC67.0, CTC71.9 … -DCS754"},
      {"channels.1.tail_cut", "ON", "one of OFF"},
      {"channels.1.rx_selcall", "TTS 9", "one of OFF, TTS 1, TTS 2, TTS 3, TTS 4, TTS 5, TTS 6, TTS 7, TTS 8"},
      {"channels.1.rx_selcall", "5T 12345", "one of OFF, TTS 1, TTS 2, TTS 3, TTS 4, TTS 5, TTS 6, TTS 7, TTS 8"},
      {"channels.1.group_call", "5T 1", "one of OFF, Tone A, Tone B"},
      {"band.lower", "470", "136 to 469"},
      {"band.upper", "521", "441 to 520"},
      {"band.upper", "46O", "441 to 520"},
      {"global.emergency_ani", "12345678901234567", digits},
      {"global.emergency_ani", "1-2", digits},
      {"global.connect_id", "1", "---------------- while PTT ID is OFF"},
      {"auto_reset_time", "256", "OFF or 1 to 255"},
      {"auto_reset_time", "0", "OFF or 1 to 255"},
      {"tts.1.tone_a", "287", "288 to 3000"},
      {"tts.1.gap", "10.1", "one of 0.1, 0.2, 0.3 … 10.0"},
      {"five_tone_standard", "ZVEI2", "no change while Select Call is TTS"},
      {"keys.short_c", "Reverse", keys},
      {"keys.long_b", "Scan", "no change while the short press is Monitor"},
      {"keys.long_a", "Emergency Alert",
       "one of Unassigned, Cancel Emergency Alert, Scan, Nuisance Delete, Power Select, Talk Around, Reverse , Call, "
       "Selcall, GroupCall; Talk Around or Reverse on one key only"},
  };
  for (const auto& [identifier, text, allowed] : cases) {
    EXPECT_EQ(Set(identifier, text), allowed) << identifier << " = " << text;
  }
  ASSERT_EQ(Set("select_call", "5 Tone"), "");
  EXPECT_EQ(Set("channels.1.rx_selcall", "5T 1234A"), "OFF, or 5T and 5 digits");
  ASSERT_EQ(Set("keys.short_a", "Emergency Alert"), "");
  EXPECT_EQ(Set("keys.long_a", "Scan"), "Cancel Emergency Alert while Short A is Emergency Alert");
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
