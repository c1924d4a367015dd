// All frames together, filled in the order of the editor's fill.
#include "band_frame.h"
#include "five_tone_frame.h"
#include "functions_fixture.h"
#include "global_settings_frame.h"
#include "key_frame.h"
#include "record_frame.h"
#include "reset_time_frame.h"
#include "scan_frame.h"
#include "select_call_frame.h"
#include "tts_frame.h"
#include "tune_frame.h"

#include <random>

namespace mr4500x {
namespace {

struct AllFrames {
  ScriptedMessages messages;
  MemoryClipboard clipboard;
  BandFrame band{messages, {}};
  TuneFrame tune;
  SelectCallFrame selectCall;
  GlobalSettingsFrame global{messages};
  ScanFrame scan;
  RecordFrame record;
  KeyFrame keys{messages};
  FiveToneFrame fiveTone;
  TtsFrame tts{messages, clipboard, '.'};
  ResetTimeFrame resetTime{messages};

  void Fill(const Configuration& values, bool conflict) {
    band.Fill(values), tune.Fill(values), selectCall.Fill(values), global.FillLists(values), scan.FillSignal(values);
    global.FillIdBoxes(values), global.FillAni(values), record.Fill(values), scan.FillLists(values);
    keys.Fill(values, conflict), fiveTone.Fill(values), tts.Fill(values), resetTime.Fill(values);
  }
  void Gather(Configuration& values) const {
    band.Gather(values), tune.Gather(values), selectCall.Gather(values), global.Gather(values), scan.Gather(values);
    record.Gather(values), keys.Gather(values), fiveTone.Gather(values), tts.Gather(values), resetTime.Gather(values);
  }
};

TEST(FillAndGather, GiveBackWhatAnyImageHolds) {
  AllFrames frames;
  const FieldTexts texts = BuildFieldTexts('.');
  std::mt19937 random(20031);
  Configuration values;
  int conflicts = 0, unlisted = 0;
  for (int round = 0; round < 200; ++round) {
    RadioImage image;
    const auto fill = [&](auto& block) {
      for (auto& byte : block) {
        byte = static_cast<std::uint8_t>(random());
      }
    };
    fill(image.RadioSettingsBlock), fill(image.KeyProgramBlock), fill(image.PttIdBlock), fill(image.EmergencyAniBlock);
    fill(image.ResetTimeBlock), fill(image.RadioIdBlock), fill(image.BandBlock), fill(image.FirmwareVersionBlock);
    for (std::uint8_t& key : image.KeyProgramBlock) {
      if (random() % 2 == 0) key = std::array<std::uint8_t, 4>{0x86, 0x87, 0xC0, 0x8A}[random() % 4];
    }
    image.ResetTimeBlock[StandardByte] |= 1;
    Decoded result = Decode(image, texts);
    if (result.configuration.autoResetOff)
      result.configuration.autoResetTime = values.autoResetTime; // the box keeps it
    values = result.configuration;
    frames.Fill(values, result.keyConflict);
    EXPECT_EQ(frames.messages.Taken().size(), result.keyConflict ? 1U : 0U);
    conflicts += result.keyConflict ? 1 : 0;
    unlisted += values[ChoiceList::DigitTime].position < 0 ? 1 : 0;

    Configuration gathered;
    gathered.channels = values.channels;
    frames.Gather(gathered);
    ASSERT_EQ(gathered, values) << "round " << round;
  }
  EXPECT_GT(conflicts, 10);
  EXPECT_GT(unlisted, 10);
}

} // namespace
} // namespace mr4500x
