#include "configuration.h"
#include "configuration_json.h"
#include "configuration_table.h"
#include "function_settings.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using Json = nlohmann::ordered_json;

class ConfigurationTest : public testing::Test {
protected:
  FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  Configuration values;
  void SetUp() override { values = NewConfiguration(image, texts, {2026, 1, 1, 0, 0, 0}); }
};

// The keys and their order are what scripts rely on.
TEST_F(ConfigurationTest, JsonFollowsItsSchema) {
  Json document = Json::parse(ConfigurationJson(values));
  ASSERT_EQ(document["tts"].size(), 8U);
  ASSERT_EQ(document["channels"].size(), 16U);
  document["tts"] = Json::array({document["tts"][0]});
  document["channels"] = Json::array({document["channels"][0]});
  EXPECT_EQ(
      document.dump(),
      R"({"band":{"lower":440,"upper":470},"manual_tune":"Disable","select_call":"TTS","five_tone_standard":"ZVEI1",)"
      R"("global":{"battery_save":"OFF","beep_tone":"ON","tx_tot":"60s","busy_ch_lock":"OFF","squelch_level":"2",)"
      R"("compander":"ON","vox_sensivity":"OFF","beep_enable":"OFF","emergency_ani":"----------------",)"
      R"("ptt_id":"OFF","connect_id":"----------------","disconnect_id":"----------------",)"
      R"("digit_time":"50ms","inter_digit_time":"50ms"},)"
      R"("scan":{"signal":false,"scan_mode":"CO","priority_ch":"OFF","to_scan_delay":"0.5s","revert_ch":"Current CH",)"
      R"("restore_time":"0.5s","look_back":"0.5s"},)"
      R"("keys":{"short_a":"Unassigned","long_a":"Unassigned","short_b":"Unassigned","long_b":"Unassigned",)"
      R"("short_c":"Unassigned","long_c":"Unassigned"},"auto_reset_time":"OFF",)"
      R"("tts":[{"tone_a":400,"tone_a_dur":"0.5","tone_b":1141,"tone_b_dur":"0.5","gap":"0.5","group_call_dur":"0.5"}],)"
      R"("channels":[{"number":1,"in_use":true,"rx_freq":"440.00000","rx_step":"6.25","rx_tone":"OFF",)"
      R"("rx_selcall":"OFF","combination":"OR","tail_cut":"OFF","tx_allowed":true,"tx_freq":"440.00000",)"
      R"("tx_step":"6.25","tx_tone":"OFF","tx_selcall":"OFF","high_tx_power":"Permit","ptt_id":"OFF","bandwidth":"25",)"
      R"("group_call":"OFF"}]})");
}

TEST_F(ConfigurationTest, JsonShowsWhatTheEditorShows) {
  image.KeyProgramBlock = {0xC1, 0xC2, 0x00, 0x87, 0x00, 0x00};
  image.RadioSettingsBlock[1] = 0x0F; // a time-out that the list does not offer
  image.ResetTimeBlock[0] = 255;
  values = Decode(image, texts).configuration;
  const Json document = Json::parse(ConfigurationJson(values));
  EXPECT_EQ(document["keys"]["long_a"], "Cancel Emergency Alert");
  EXPECT_EQ(document["keys"]["long_b"], "Reverse");
  EXPECT_EQ(document["global"]["tx_tot"], "");
  EXPECT_EQ(document["auto_reset_time"], 255);
}

TEST_F(ConfigurationTest, TheTableHoldsEverySetting) {
  const std::string table = ConfigurationTable(values);
  for (const char* const text : {"440 ~ 470 MHz", "   CH16  ", "Squelch Level     2", "Revert CH      Current CH",
                                 "2855", "Standards    ZVEI1"}) {
    EXPECT_NE(table.find(text), std::string::npos) << text;
  }
}

} // namespace
} // namespace mr4500x
