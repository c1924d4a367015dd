#include "setting_commands.h"

#include "commands_fixture.h"
#include "diff_command.h"
#include "file_commands.h"
#include "rows.h"
#include "signaling.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using Words = std::vector<std::string>;

Words SplitAt(const std::string& text, char separator) {
  Words words;
  std::istringstream in(text);
  for (std::string word; std::getline(in, word, separator);)
    words.push_back(word);
  return words;
}

class SettingCommandsTest : public FileCommandsTest {
protected:
  std::string Set(const Words& changes) {
    return Run([&](Terminal& shown) { return RunSet(files, {b, b}, changes, shown); });
  }
  std::string Apply(const std::string& document) {
    return Run([&](Terminal& shown) { return RunApply(files, {b, b, "-"}, shown); }, document);
  }
  std::string Get(const Words& fields) {
    return Run([&](Terminal& shown) { return RunGet(files, b, fields, false, shown); });
  }
  std::string Diff(DiffForm form = DiffForm::Labels) {
    return Run([&](Terminal& shown) {
      RadioImage before, after;
      EXPECT_TRUE(LoadForCommand(files, a, before, shown) && LoadForCommand(files, b, after, shown));
      return RunDiff(form, before, after, shown);
    });
  }
  void Restore() { std::filesystem::copy_file(a, b, std::filesystem::copy_options::overwrite_existing); }
};

TEST_F(SettingCommandsTest, APatchContainsValuesThatItWouldOtherwiseChange) {
  EXPECT_EQ(Set({"channels.1.rx_tone=CTC88.5", "channels.1.tail_cut=OFF"}), "");
  EXPECT_NE(Diff(DiffForm::Patch).find("\"tail_cut\": \"OFF\""), std::string::npos) << "of a tone";
  Restore();
}

// A given value takes precedence over the effect of another one, in any order on the command line.
TEST_F(SettingCommandsTest, SetsGivenValuesWithTheirEffects) {
  for (const Row& row : RowsOf(CASES "set_changes.txt", "([^:]*): (.*) -> (.*) -> (.*)")) {
    EXPECT_EQ(Set(SplitAt(row[2], '|')), Unescaped(row[4])) << row[1];
    EXPECT_EQ(Diff(), row[3].empty() ? "" : Unescaped(row[3]) + "status 1") << row[1];
    Restore();
  }
  const std::string reported = Set({"band.lower=480", "band.upper=520", "channels.16.rx_freq=519.99375"});
  EXPECT_TRUE(reported.ends_with("channels.8.rx_freq and 23 more\n")) << "above the old band: " << reported;
  EXPECT_EQ(Get({"channels.1.tx_freq", "channels.16.rx_freq", "band.lower"}), "480.00000\n519.99375\n480\n");
  Put("b.K4X", Content("a.K4X").replace(688, 1, "\x80"));
  EXPECT_EQ(Diff(), "BandBlock 7  0x00  0x80\nstatus 1") << "what no setting shows";
  EXPECT_NE(Diff(DiffForm::Patch).find("not shown: 1 bytes that no setting shows\n"), std::string::npos);
}

TEST_F(SettingCommandsTest, RefusesAllForOneAndListsEach) {
  const std::string before = Content("b.K4X");
  for (const Row& row : RowsOf(CASES "refused_changes.txt", "(set|apply) (.*) => (.*)"))
    EXPECT_EQ(row[1] == "set" ? Set(SplitAt(row[2], '|')) : Apply(row[2]), Unescaped(row[3]) + "status 2") << row[2];
  EXPECT_EQ(Get({"tx_tot", "global.tx_tot"}), "tx_tot: no such setting; `mr4500x-cli fields` lists them\nstatus 2");
  EXPECT_EQ(Content("b.K4X"), before);
}

TEST_F(SettingCommandsTest, RepairsAStandardOfZeroAndWritesNothingUnchanged) {
  RadioImage image;
  ASSERT_EQ(LoadDataFile(files, b, image).outcome, LoadOutcome::Loaded);
  image.ResetTimeBlock[StandardByte] = 0;
  ASSERT_TRUE(SaveDataFile(files, b, image));
  const std::string reported = b +
                               ": Data occur error in the Radio, please re-set. (The 5-tone standard is 0. It is taken "
                               "for ZVEI1.)\n";
  EXPECT_EQ(Get({"five_tone_standard"}), reported + "ZVEI1\n");
  EXPECT_EQ(Set({"global.tx_tot=60s"}), reported);
  EXPECT_EQ(Get({"five_tone_standard"}), "ZVEI1\n");
  image.ResetTimeBlock[StandardByte] = 1;
  image.KeyProgramBlock[0] = image.KeyProgramBlock[2] = 0x86;
  ASSERT_TRUE(SaveDataFile(files, Path("keys.K4X"), image));
  EXPECT_TRUE(Run([&](Terminal& shown) {
                return RunGet(files, Path("keys.K4X"), {"band.lower"}, false, shown);
              }).starts_with(Path("keys.K4X: Talk Around or Reverse ")));
  std::filesystem::permissions(b, std::filesystem::perms::owner_read); // so that no save succeeds
  const auto dry = [&](const std::string& change) {
    return Run([&](Terminal& shown) { return RunSet(files, {b, b, "", true}, {change}, shown); });
  };
  EXPECT_EQ(Set({"global.tx_tot=60s"}) + dry("global.tx_tot=60s"), "");
  const std::string refused = Set({"global.tx_tot=90s"});
  EXPECT_TRUE(refused.ends_with("status 1")) << refused;
  EXPECT_EQ(dry("global.tx_tot=90s"), refused);
}

TEST_F(SettingCommandsTest, TakesPartsOfTheJsonDocument) {
  EXPECT_EQ(Apply(R"({"channels": [{"number": 3, "in_use": true}], "tts": [{}, {"tone_a": 500}], "auto_reset_time": 7,
                      "as_stored": ["channels.2.tx_freq"]})"),
            "");
  EXPECT_EQ(Diff(), "Auto Reset Time  OFF  7\nTTS 2 Tone A Freq  456  500\nCH3 In Use  no  yes\nstatus 1");
  Restore();
  EXPECT_EQ(Apply(R"({"as_stored": ["channels.2.tx_freq"], "channels": [{"number": 2, "tx_freq": "500.00000"}]})"), "");
  EXPECT_EQ(Diff(DiffForm::Json), R"({
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
}

TEST_F(SettingCommandsTest, ImportsAllChannelsOrTheGoodOnes) {
  const std::string list = Path("list.csv");
  const auto import = [&](bool skipsBad) {
    return Run([&](Terminal& shown) { return RunChannelsImport(files, {b, b, list}, skipsBad, shown); });
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
  Put("list.csv", "number,rx_freq\n2,446.001\n");
  EXPECT_TRUE(import(true).ends_with("446.00625\nstatus 1"));
  EXPECT_EQ(Diff(), "");
  const auto exportTo = [&](const std::string& csv) {
    return Run([&](Terminal& shown) { return RunChannelsExport(files, b, csv, shown); });
  };
  EXPECT_EQ(exportTo(list), "");
  EXPECT_EQ(exportTo("-"), Content("list.csv"));
  EXPECT_EQ(import(false) + Diff(), "");
  EXPECT_EQ(exportTo(Path("no/list.csv")), Path("no/list.csv: can't be written (No such file or directory)\nstatus 1"));
  Put("list.csv", "Location,Name,Frequency\n1,A,446.1\n");
  EXPECT_EQ(import(false), list + ": Name: column ignored; the radio has no such setting\n");
  Put("list.csv", "A,B\n1,2\n");
  EXPECT_TRUE(import(true).starts_with(list + ":1: none of these headings is known"));
}

} // namespace
} // namespace mr4500x
