#include "setting_commands.h"

#include "channel_commands.h"
#include "commands_fixture.h"
#include "diff_command.h"
#include "file_commands.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using Words = std::vector<std::string>;

class SettingCommandsTest : public FileCommandsTest {
protected:
  std::string Set(const Words& changes) {
    return Run([&](Terminal& shown) { return RunSet(files, b, b, changes, shown); });
  }
  std::string Apply(const std::string& document) {
    return Run([&](Terminal& shown) { return RunApply(files, b, b, "-", shown); }, document);
  }
  std::string Get(const Words& fields) {
    return Run([&](Terminal& shown) { return RunGet(files, b, fields, shown); });
  }
  std::string Diff(bool asJson = false) {
    return Run([&](Terminal& shown) {
      const auto load = [&](const std::string& path, RadioImage& image) {
        return LoadForCommand(files, path, image, shown);
      };
      return RunDiff(load, a, b, asJson, shown);
    });
  }
  void Restore() { std::filesystem::copy_file(a, b, std::filesystem::copy_options::overwrite_existing); }
};

// What is given wins over what follows from another value, whatever the order on the command line.
TEST_F(SettingCommandsTest, SetsWhatIsGivenAndWhatFollows) {
  const struct {
    const char* name;
    Words changes;
    std::string differences;
    std::string told{}; // what has changed besides
  } cases[] = {
      {"nothing new", {"channels.1.rx_freq=440", "global.tx_tot=60s"}, ""},
      {"a frequency of another step",
       {"channels.3.rx_freq=446.0025", "channels.3.rx_step=2.5"},
       "CH3 Rx Freq  440.00000  446.00250\nCH3 Rx Step  6.25  2.5\n"},
      {"a tone and its tail cut",
       {"channels.2.rx_tone=-DCS023"},
       "CH2 Rx CTC/DCS  OFF  -DCS023\nCH2 Tail Cut  OFF  ON\n",
       "changed with it: channels.2.tail_cut\n"},
      {"a tone without", {"channels.2.tail_cut=OFF", "channels.2.rx_tone=DCS023"}, "CH2 Rx CTC/DCS  OFF  DCS023\n"},
      {"a key that another key must free first",
       {"keys.short_a=Talk Around", "keys.short_a=Talk Around"},
       "Short A  Unassigned  Talk Around\n"},
      {"the emergency pair",
       {"keys.long_a=Cancel Emergency Alert"},
       "Short A  Unassigned  Emergency Alert\nLong A  Unassigned  Cancel Emergency Alert\n",
       "changed with it: keys.short_a\n"},
      {"another mode, a code of it and its standard",
       {"channels.1.rx_selcall=5T 01234", "five_tone_standard=EEA", "select_call=5 Tone"},
       "Select Call  TTS  5 Tone\nStandards  ZVEI1  EEA\nCH1 Rx SelCall  OFF  5T 01234\n"},
      {"a code without a text", {"global.tx_tot={\"code\": 15}"}, "Tx TOT  60s  {\"code\": 15}\n"},
      {"an empty number", {"global.emergency_ani="}, ""},
  };
  for (const auto& [name, changes, differences, told] : cases) {
    EXPECT_EQ(Set(changes), told) << name;
    EXPECT_EQ(Diff(), differences.empty() ? "" : differences + "status 1") << name;
    Restore();
  }
  const std::string told = Set({"band.lower=480", "band.upper=520", "channels.16.rx_freq=519.99375"});
  EXPECT_TRUE(told.ends_with("channels.8.rx_freq and 23 more\n")) << "above the old band: " << told;
  EXPECT_EQ(Get({"channels.1.tx_freq", "channels.16.rx_freq", "band.lower"}), "480.00000\n519.99375\n480\n");
}

TEST_F(SettingCommandsTest, RefusesAllForOneAndTellsEach) {
  const std::pair<Words, const char*> cases[] = {
      {{"channels.3.rx_freq=446.001", "global.tx_tot=60s"},
       "channels.3.rx_freq=446.001: refused; allowed: a multiple of 6.25 kHz; nearest are 446.00000 and 446.00625\n"},
      {{"channels.3.rx_freq=470"}, "channels.3.rx_freq=470: refused; allowed: 440 to 470 MHz\n"},
      {{"channels.1.rx_tone=DCS024", "scan.signal=yes"},
       "scan.signal=yes: refused; allowed: true or false\n"
       "channels.1.rx_tone=DCS024: refused; allowed: one of OFF, CTC67.0, CTC71.9 … -DCS754\n"},
      {{"keys.short_b=Talk Around", "keys.short_c=Reverse"},
       "keys.short_c=Reverse: refused; allowed: one of Unassigned, Monitor, Scan, Nuisance Delete, Power Select, Talk "
       "Around, Reverse, Call, Selcall, GroupCall; Talk Around or Reverse on one key only\n"},
      {{"keys.short_a=Emergency Alert", "keys.long_a=Scan"},
       "keys.long_a=Scan: refused; allowed: Cancel Emergency Alert while Short A is Emergency Alert\n"},
      {{"global.connect_id=12"}, "global.connect_id=12: refused; allowed: ---------------- while PTT ID is OFF\n"},
      {{"global.squelch_level=1", "global.squelch_level=2"},
       "global.squelch_level=1: refused; allowed: one of 1, 2, 3\n"},
      {{"global.battery_save={\"code\": 2}"},
       "global.battery_save={\"code\": 2}: refused; allowed: one of OFF, 5s, 10s, 15s, 20s, 25s, 30s, 35s\n"},
      {{"channels.17.rx_freq=446", "tts.1.gap"},
       "channels.17.rx_freq: no such setting; `mr4500x-cli fields` lists them\ntts.1.gap: is no FIELD=VALUE\n"},
  };
  const std::string before = Content("b.K4X");
  for (const auto& [changes, lines] : cases)
    EXPECT_EQ(Set(changes), std::string(lines) + "status 2") << changes[0];
  EXPECT_EQ(Get({"tx_tot", "global.tx_tot"}), "tx_tot: no such setting; `mr4500x-cli fields` lists them\nstatus 2");
  EXPECT_EQ(Content("b.K4X"), before);
}

TEST_F(SettingCommandsTest, TakesPartsOfTheJsonDocument) {
  EXPECT_EQ(Apply(R"({"channels": [{"number": 3, "in_use": true}], "tts": [{}, {"tone_a": 500}], "auto_reset_time": 7,
                      "as_stored": ["channels.2.tx_freq"]})"),
            "");
  EXPECT_EQ(Diff(), "Auto Reset Time  OFF  7\nTTS 2 Tone A Freq  456  500\nCH3 In Use  no  yes\nstatus 1");
  Restore();
  EXPECT_EQ(Apply(R"({"as_stored": ["channels.2.tx_freq"], "channels": [{"number": 2, "tx_freq": "500.00000"}]})"), "");
  EXPECT_EQ(Diff(true), R"({
  "format": 1,
  "fields": [
    {
      "field": "channels.2.tx_freq",
      "a": "440.00000",
      "b": "500.00000"
    }
  ],
  "bytes": []
}
status 1)");
  const std::string before = Content("b.K4X");
  const std::pair<const char*, const char*> refused[] = {
      {"", "not a JSON document\n"},
      {"[]", "the document: no object\n"},
      {R"({"format": 2})", "format: not 1, the format of this version\n"},
      {R"({"globl": {}})", "globl: no such setting\n"},
      {R"({"global": {"tx_tot": 60, "Beep": "ON"}, "scan": {"signal": "true"}})",
       "global.tx_tot=60: needs a text, or an object with a code\nglobal.Beep: no such setting\n"
       "scan.signal=\"true\": needs true or false\n"},
      {R"({"band": [], "channels": {}, "tts": [1]})", "band: no object\nchannels: no array\ntts.1: no object\n"},
      {R"({"channels": [{"in_use": true}, {"number": 17, "in_use": true}, {"number": 1, "rx_frq": ""}, 1]})",
       "channels.\"(without a number)\".in_use: no such setting\nchannels.17.in_use: no such setting\n"
       "channels.1.rx_frq: no such setting\nchannels.3: no object\n"},
      {R"({"channels.1.rx_freq": "446.00000", "": 1})",
       "channels.1.rx_freq: no such setting\nthe document: no such setting\n"},
      {R"({"tts": [{}, {}, {}, {}, {}, {}, {}, {}, {"gap": "0.5"}]})", "tts.9.gap: no such setting\n"},
      {R"({"band": {"lower": -1}, "auto_reset_time": 0.5})",
       "band.lower=-1: needs a number\nauto_reset_time=0.5: needs a number\n"},
      {R"({"channels": [{"number": 1, "rx_freq": "500.00000"}]})",
       "channels.1.rx_freq=500.00000: refused; allowed: 440 to 470 MHz\n"},
      {R"({"channels": [{"number": 1, "rx_freq": "9999.00000"}], "as_stored": ["channels.1.rx_freq", "x"]})",
       "as_stored: names no setting\n"
       "channels.1.rx_freq=9999.00000: refused; allowed: 440 to 470 MHz, a multiple of 6.25 kHz\n"},
      {R"({"global": {"tx_tot": {"code": 77}}})", "global.tx_tot={\"code\": 77}: refused; allowed: one of OFF, 30s, "
                                                  "60s, 90s, 120s, 150s, 180s, 210s, 240s, 270s, 300s\n"},
  };
  for (const auto& [document, lines] : refused)
    EXPECT_EQ(Apply(document), std::string(lines) + "status 2") << document;
  EXPECT_EQ(Content("b.K4X"), before);
}

TEST_F(SettingCommandsTest, ImportsAllChannelsOrTheGoodOnes) {
  const std::string list = Path("list.csv");
  const auto import = [&](bool skipsBad) {
    return Run([&](Terminal& shown) { return RunChannelsImport(files, {b, list, b, skipsBad}, shown); });
  };
  Put("list.csv", "number,rx_freq,in_use\n2,446.001,true\n3,446.1,true\n17,446,true\n");
  const std::string bad =
      list + ":2: rx_freq=446.001: allowed: a multiple of 6.25 kHz; nearest are 446.00000 and 446.00625\n" + list +
      ":4: number=17: allowed: 1 to 16\n";
  EXPECT_EQ(import(false), bad + "status 2");
  EXPECT_EQ(Diff(), "");
  EXPECT_EQ(import(true), bad);
  EXPECT_EQ(Diff(), "CH3 In Use  no  yes\nCH3 Rx Freq  440.00000  446.10000\nstatus 1");

  Restore();
  const auto exportTo = [&](const std::string& csv) {
    return Run([&](Terminal& shown) { return RunChannelsExport(files, b, csv, shown); });
  };
  EXPECT_EQ(exportTo(list), "");
  EXPECT_EQ(exportTo("-"), Content("list.csv"));
  EXPECT_EQ(import(false) + Diff(), "");
  EXPECT_EQ(exportTo(Path("no/list.csv")), Path("no/list.csv: can't be written (No such file or directory)\nstatus 1"));
  Put("list.csv", "Location,Name,Frequency\n1,A,446.1\n");
  EXPECT_EQ(import(false), list + ": Name: left out; a radio has nothing for it\n");
  Put("list.csv", "A,B\n1,2\n");
  EXPECT_EQ(import(true), list + ":1: A: no such column\n" + list + ":1: B: no such column\n" + list +
                              ":1: number: is missing\nstatus 2");
}

} // namespace
} // namespace mr4500x
