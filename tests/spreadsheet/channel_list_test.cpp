#include "channel_list.h"

#include "differences.h"
#include "random_image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <tuple>

namespace mr4500x {
namespace {

class ChannelListTest : public testing::Test {
protected:
  // What an import changes, or what it refuses.
  std::string Imported(std::string_view csv) {
    const ChannelList list = ReadChannelList(csv);
    std::vector<BadCell> bad = list.bad;
    RadioImage changed = image;
    const std::vector<BadCell> refused = ImportChannels(changed, list.rows, texts);
    bad.insert(bad.end(), refused.begin(), refused.end());
    std::string lines;
    for (const auto& [line, column, value, why] : bad)
      lines += std::to_string(line) + ' ' + column + '=' + value + ' ' + why + '\n';
    for (const Difference& difference : CompareImages(image, changed, texts).settings)
      lines += IdentifierOf(difference.at).substr(9) + '=' + difference.after + '\n';
    return lines;
  }

  const FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  Configuration configuration = NewConfiguration(image, texts, {2026, 1, 2, 3, 4, 5});
};

TEST_F(ChannelListTest, AnExportComesBackAsTheSameBytes) {
  std::mt19937 random(12);
  for (int round = 0; round < 200; ++round) {
    const RadioImage before = RandomImage(random);
    std::string csv = ChannelsCsv(Decode(before, texts).configuration);
    if (round % 2 == 0) { // as a spreadsheet with decimal commas saves it
      std::ranges::replace(csv, ',', ';');
      std::ranges::replace(csv, '.', ',');
      csv.insert(0, "\xEF\xBB\xBF");
    }
    const ChannelList list = ReadChannelList(csv);
    ASSERT_TRUE(list.bad.empty() && list.leftOut.empty() && list.rows.size() == ChannelCount) << csv;
    RadioImage after = before;
    ASSERT_TRUE(ImportChannels(after, list.rows, texts).empty()) << csv;
    ASSERT_EQ(after, before) << round;
  }
}

TEST_F(ChannelListTest, TakesOwnColumnsInAnyOrder) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"a part", "rx_freq,number\n446.00625,3\n", "3.rx_freq=446.00625\n"},
      {"as spreadsheets write it", "number;in_use;rx_freq;bandwidth;rx_tone\n2;TRUE;446,1;12,5;CTC67,0\n3;;;;\n",
       "2.in_use=yes\n2.rx_freq=446.10000\n2.rx_tone=CTC67.0\n2.tail_cut=ON\n2.bandwidth=12.5\n"},
      {"a step that the frequency needs", "number\trx_freq\trx_step\n1\t446,0025\t2,5\n",
       "1.rx_freq=446.00250\n1.rx_step=2.5\n"},
      {"refused values", "number,rx_freq,tx_tone\n1,446.001,OFF\n2,446,DCS024\n",
       "2 rx_freq=446.001 allowed: a multiple of 6.25 kHz; nearest are 446.00000 and 446.00625\n"
       "3 tx_tone=DCS024 allowed: one of OFF, CTC67.0, CTC71.9 … -DCS754\n"},
      {"bad lines", "number,in_use\n0,true\n17,true\n\n4,true\n4,false\n5,\"a\"b\n6,true,x\n",
       "7 = quotes that do not enclose a whole cell\n8 = more cells than the heading\n"
       "2 number=0 allowed: 1 to 16\n3 number=17 allowed: 1 to 16\n6 =4 a channel that a line above "
       "has\n4.in_use=yes\n"},
      {"bad headings", "number,rx_frq,in_use,in_use\n1,446,true,true\n",
       "1 rx_frq= no such column\n1 in_use= a column twice\n1 in_use= a column twice\n"},
      {"no number", "rx_freq\n446\n", "1 number= is missing\n"},
      {"nothing", "\n", "1 = no heading\n"},
  };
  for (const auto& [name, csv, result] : cases)
    EXPECT_EQ(Imported(csv), result) << name;
}

// One line of an exchanged list each; the columns that are not given are as other programs fill them.
TEST_F(ChannelListTest, TakesTheListThatProgramsExchange) {
  const struct {
    const char* name;
    const char* cells; // Frequency to Mode
    const char* result;
  } cases[] = {
      {"simplex", "446.006250,,0.000000,,88.5,88.5,023,NN,023,Tone->Tone,FM", "rx_freq=446.00625\ntx_freq=446.00625\n"},
      {"above", "446.1,+,5.000000,,88.5,88.5,023,NN,023,Tone->Tone,NFM",
       "rx_freq=446.10000\ntx_freq=451.10000\nbandwidth=12.5\n"},
      {"below, with the small step", "446.0025,-,5,,88.5,88.5,023,NN,023,Tone->Tone,FM",
       "rx_freq=446.00250\nrx_step=2.5\ntx_freq=441.00250\ntx_step=2.5\n"},
      {"split, each with its step", "446.00625,split,450.0025,,88.5,88.5,023,NN,023,Tone->Tone,FM",
       "rx_freq=446.00625\ntx_freq=450.00250\ntx_step=2.5\n"},
      {"off", "440,off,,,88.5,88.5,023,NN,023,Tone->Tone,FM", "tx_allowed=no\n"},
      {"tone sent", "440,,,Tone,100.0,88.5,023,NN,023,Tone->Tone,", "tx_tone=CTC100.0\n"},
      {"tone both ways", "440,,,TSQL,88.5,67,023,NN,023,Tone->Tone,",
       "rx_tone=CTC67.0\ntail_cut=ON\ntx_tone=CTC67.0\n"},
      {"code both ways", "440,,,DTCS,88.5,88.5,25,RN,023,Tone->Tone,",
       "rx_tone=DCS025\ntail_cut=ON\ntx_tone=-DCS025\n"},
      {"cross", "440,,,Cross,100.0,88.5,025,NR,031,Tone->DTCS,", "rx_tone=-DCS031\ntail_cut=ON\ntx_tone=CTC100.0\n"},
      {"cross back", "440,,,Cross,88.5,100.0,025,RN,031,DTCS->Tone,",
       "rx_tone=CTC100.0\ntail_cut=ON\ntx_tone=-DCS025\n"},
      {"cross, nothing sent", "440,,,Cross,88.5,100.0,025,NN,031,->Tone,", "rx_tone=CTC100.0\ntail_cut=ON\n"},
      {"cross, nothing expected", "440,,,Cross,88.5,100.0,025,NN,031,DTCS->,", "tx_tone=DCS025\n"},
      {"reversed", "440,,,TSQL-R,88.5,88.5,023,NN,023,,",
       "2 Tone=TSQL-R allowed: Tone, TSQL, DTCS, Cross or nothing; a radio has no others\n"},
      {"wrong values", "446.000001,?,,DTCS,88.5,88.5,023,NX,023,,AM",
       "2 Frequency=446.000001 allowed: MHz with up to five decimals\n2 Duplex=? allowed: +, -, split, off or nothing\n"
       "2 DtcsPolarity=NX allowed: NN, NR, RN or RR\n"
       "2 Mode=AM allowed: FM or NFM\n"},
      {"no step and no such tone", "446.001,,,Tone,88.4,88.5,023,NN,023,,",
       "2 Frequency=446.001 allowed: a multiple of 6.25 kHz; nearest are 446.00000 and 446.00625\n"
       "2 rToneFreq=88.4 allowed: one of OFF, CTC67.0, CTC71.9 … -DCS754\n"},
      {"outside the band", "469,+,5,,,,,,,,", "2 Offset=5 allowed: 440 to 470 MHz\n"},
      {"a cross without arrow", "440,,,Cross,,,,,,Tone,",
       "2 CrossMode=Tone allowed: Tone or DTCS or nothing, ->, the same\n"},
      {"without a frequency", ",,,,,,,,,,", "2 Frequency= allowed: MHz with up to five decimals\n"},
  };
  const std::string heading = "Location,Name,Frequency,Duplex,Offset,Tone,rToneFreq,cToneFreq,DtcsCode,DtcsPolarity,"
                              "RxDtcsCode,CrossMode,Mode,Power\n";
  for (const auto& [name, cells, result] : cases) {
    std::string expected;
    std::istringstream lines(result);
    for (std::string line; std::getline(lines, line);)
      expected += (line.starts_with("2 ") ? "" : "1.") + line + '\n';
    EXPECT_EQ(Imported(heading + "1,Name," + cells + ",High\n"), expected) << name;
  }
  EXPECT_EQ(ReadChannelList(heading).leftOut, (std::vector<std::string>{"Name", "Power"}));
  EXPECT_EQ(Imported("Location,Frequency\n0,446\n15,446.1\n16,446.1\n"),
            "4 Location=16 allowed: 0 to 15\n16.in_use=yes\n1.rx_freq=446.00000\n16.rx_freq=446.10000\n"
            "1.tx_freq=446.00000\n16.tx_freq=446.10000\n");
}

} // namespace
} // namespace mr4500x
