// The commands that use a radio, against one without real time.
#include "radio_commands.h"

#include "embedded_info.h"
#include "files_fixture.h"
#include "fill_messages.h"
#include "require.h"
#include "scripted_radio.h"

#include <gtest/gtest.h>

#include <sstream>

namespace mr4500x {
namespace {

using enum ExitStatus;

class RadioCommandsTest : public FilesTest {
protected:
  RadioCommandsTest() {
    ResetToDefaults(image, {2001, 2, 3, 4, 5, 6});
    image.ChannelBlock(2, 2) = 0x15;
    EXPECT_TRUE(SaveDataFile(files, file, image));
    std::copy_n("LR7200/~./004217", 16, radio.memory.begin() + 0x1F0);
    std::copy_n("V1.02   ", 8, radio.memory.begin() + 0x3F8);
    std::copy_n("\xB8\x01\xD6\x01", 4, radio.memory.begin() + 0x3F0);
    std::copy_n("20040304050607\0", 16, radio.memory.begin() + 0x200);
    std::fill_n(radio.memory.begin() + 0x210, 240, std::uint8_t{0});
    std::copy_n("a\0b\0\r\0\n\0c\0", 10, radio.memory.begin() + 0x210);
  }

  RadioCommand command{line, files, terminal, [] { return LocalTime{2026, 11, 4, 9, 5, 7}; }};
  // What was printed since the last call.
  std::string Printed() {
    std::string text = out.str();
    out.str("");
    return text;
  }
  std::size_t Frames() { return std::exchange(radio.frames, {}).size(); }

  const std::string file = Path("a.K4X");
  ScriptedRadio radio;
  RadioImage image;
  std::ostringstream out, err;
  std::istringstream in;
  Terminal terminal{out, err, in, false, false};
  SerialLine line{radio, radio, 3};
};

TEST_F(RadioCommandsTest, IdentifyAndReadPrintWhichRadioItIsAndChangeNothing) {
  const auto before = radio.memory;
  const std::string identity = "ID Number              LR7200/~./004217\n"
                               "Version of Firmware    V1.02\n"
                               "Frequency Band         440 to 470 MHz\n"
                               "Last Programming Time  2004-03-04, 05:06:07\n";
  EXPECT_EQ(RunIdentify(command, false), Done);
  EXPECT_EQ(Printed(), identity);
  EXPECT_LT(radio.now, 1s);
  EXPECT_EQ(Frames(), 8u);
  EXPECT_EQ(RunRead(command, Path("{date}-{id}-{time}.K4X"), false), Done);
  EXPECT_EQ(Printed(), identity);
  EXPECT_EQ(Names(), (std::set<std::string>{"a.K4X", "20261104-LR7200____004217-090507.K4X"}));
  EXPECT_EQ(RunRead(command, Path("{date}-{id}-{time}.K4X"), false), Failed) << "the file exists";
  EXPECT_EQ(RunRead(command, Path("{date}-{id}-{time}.K4X"), true), Done);
  command.trace = Path("./LR7200____004217.log");
  EXPECT_EQ(RunRead(command, Path("{id}.log"), true), UnusableArguments) << "the trace has this name";
  EXPECT_FALSE(Names().contains("LR7200____004217.log"));
  EXPECT_EQ(radio.memory, before);
  std::fill_n(radio.memory.begin() + 0x1F0, 16, std::uint8_t{0});
  EXPECT_EQ(RunRead(command, Path("{id}.K4X"), false), Done);
  EXPECT_TRUE(Names().contains("unknown.K4X"));
  for (const bool standard : {true, false}) {
    err.str("");
    radio.memory[0x1C2] = standard ? 1 : 0;
    EXPECT_EQ(RunRead(command, "-", false), Done);
    EXPECT_EQ(err.str().find(DataErrorText) == std::string::npos, standard);
  }
}

TEST_F(RadioCommandsTest, ReadRefusesATargetThatCannotBeWrittenBeforeTheRadioIsAsked) {
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  std::filesystem::create_symlink("a.K4X", Path("link"));
  for (const char* const target : {"a.K4X", "link", "", "no/folder.K4X", "."}) {
    EXPECT_EQ(RunRead(command, Path(target), false), Failed) << target;
    EXPECT_EQ(Frames(), 0u) << target;
  }
}

TEST_F(RadioCommandsTest, VerifyFindsTheOneWrongByte) {
  EXPECT_EQ(RunWrite(command, file, {BandAnswer::Ask, "", true}), Done);
  EXPECT_EQ(RunVerify(command, file, DiffForm::Labels), Done);
  const struct {
    const char* name;
    std::size_t address;
    std::uint8_t bit;
    const char* lines;
  } cases[] = {
      {"a setting", 0x022, 0x01, "CH3 Rx Freq  443.20000  441.60000\n"},
      {"a byte that no setting shows", 0x3F7, 0x80, "BandBlock 7  0x00  0x80\n"},
      {"the stamp, which is left out", 0x200, 0x01, ""},
  };
  command.speed = Speed::Quick;
  for (const auto& [name, address, bit, lines] : cases) {
    SCOPED_TRACE(name);
    radio.spoil = [&, wrong = address, flipped = bit](std::size_t, LineBytes&) { // when it has been written
      const LineBytes& frame = radio.frames.back();
      if (frame.size() == 12 && frame[1] * 256u + frame[2] == (wrong & ~7u)) radio.memory[wrong] ^= flipped;
    };
    const ExitStatus status = *lines == '\0' ? Done : Failed;
    EXPECT_EQ(RunWrite(command, file, {BandAnswer::Ask, "", true}), status);
    EXPECT_EQ(RunVerify(command, file, DiffForm::Labels), status);
    EXPECT_EQ(Printed(), std::string(lines) + lines);
  }
  command.speed = Speed::Prescribed;
  radio.memory[0x3F7] = 0x00;
  using Spoil = void (*)(LineBytes & reply);
  const std::tuple<const char*, Spoil, const char*> bandRecords[] = {
      {"of nothing, so that it was not compared", [](LineBytes& reply) { reply[2] = 0xE0; },
       "COM3: Read data error, please retry Read.\nCOM3: records not received: 1\n"},
      {"of more bytes than there are", [](LineBytes& reply) { reply[3] = 9; }, "COM3: Read data error"},
      {"of no bytes", [](LineBytes& reply) { reply.clear(); }, "COM3: Reading is interrupted"},
  };
  for (const auto& [name, spoil, reported] : bandRecords) {
    SCOPED_TRACE(name);
    radio.spoil = [spoil = spoil](std::size_t, LineBytes& reply) {
      if (reply.size() == 12 && reply[1] == 0x03 && reply[2] == 0xF0) spoil(reply);
    };
    err.str("");
    EXPECT_EQ(RunVerify(command, file, DiffForm::Labels), Failed);
    EXPECT_TRUE(err.str().starts_with(reported)) << err.str();
  }
}

TEST_F(RadioCommandsTest, WriteBacksUpTheRadioAndTheTextCanBeRestored) {
  const auto before = radio.memory;
  EXPECT_EQ(RunWrite(command, file, {BandAnswer::Ask, Path("new/folder")}), Done);
  EXPECT_NE(radio.memory, before);
  const std::string stem = "new/folder/LR7200____004217_20261104_090507";
  EXPECT_EQ(Printed(), Path(stem + ".K4X\n"));
  ASSERT_EQ(LoadDataFile(files, Path(stem + ".K4X"), image).outcome, LoadOutcome::Loaded);
  EXPECT_TRUE(std::ranges::equal(image.ChannelBlock.bytes, std::span(before).first(256)));
  EXPECT_EQ(Content(stem + ".txt"), "ab\nc\n");

  std::fill_n(radio.memory.begin() + 0x210, 240, std::uint8_t{0x20});
  EmbeddedInfo info;
  ASSERT_TRUE(StoreEmbeddedText(info, *InfoFromKept(Content(stem + ".txt"))));
  EXPECT_EQ(RunInfoWrite(command, info, true), Done);
  EXPECT_TRUE(std::equal(before.begin() + 0x210, before.begin() + 0x300, radio.memory.begin() + 0x210));
  radio.spoil = [&](std::size_t, LineBytes&) { // when it has been written
    if (radio.frames.back().size() == 12 && radio.frames.back()[2] == 0xF8) radio.memory[0x220] = 'x';
  };
  EXPECT_EQ(RunInfoWrite(command, info, true), Failed);
  radio.spoil = nullptr;
  EXPECT_EQ(RunInfoWrite(command, info, false), Done);
  EXPECT_EQ(RunInfoRead(command, false), Done);
  EXPECT_EQ(Printed(), "ab\nc\n2026-11-04, 09:05:07\n");
}

TEST_F(RadioCommandsTest, WriteWritesNothingWithoutItsBackup) {
  const auto before = radio.memory;
  const std::string stem = "LR7200____004217_20261104_090507";
  std::filesystem::create_directories(Path("taken text/" + stem + ".txt"));
  std::filesystem::create_directories(Path("taken text/backup"));
  const auto unheard = [&](std::size_t frame, LineBytes& reply) { frame == 50 ? reply.clear() : void(); };
  const auto moved = [&](std::size_t frame, LineBytes& reply) {
    reply.size() == 12 && frame == 50 ? reply[2] ^= 8 : 0;
  };
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"a.K4X", [] {}},
      {"taken text", [] {}},
      {"only the text",
       [&] {
         files.alter = [&](const std::string& path, FileStatus& status) {
           if (path == Path("only the text/" + stem + ".K4X")) status.mode = 0;
         };
       }},
      {"unwritable",
       [&] {
         files.unwritable = {Path("unwritable"), std::filesystem::path(file).parent_path()};
       }},
      {"full", [&] { files.unwritable.clear(), files.diskRoom = 100; }},
      {"broken off", [&] { files.diskRoom = SIZE_MAX, radio.spoil = unheard; }},
      {"from another address", [&] { radio.spoil = moved; }},
  };
  for (const auto& [folder, prepare] : cases) {
    SCOPED_TRACE(folder);
    prepare();
    Frames(); // counted from here
    err.str("");
    EXPECT_EQ(RunWrite(command, file, {BandAnswer::Ask, Path(folder)}), Failed);
    EXPECT_EQ(radio.memory, before);
    EXPECT_EQ(std::filesystem::exists(Path(folder) + '/' + stem + ".K4X"), folder == std::string("taken text"));
    const std::string reported = err.str();
    const bool isKnownBefore = Frames() == 0;
    EXPECT_EQ(isKnownBefore, folder == std::string("a.K4X") || !files.unwritable.empty());
    err.str("");
    radio.spoil = nullptr;
    EXPECT_EQ(RunWrite(command, file, {BandAnswer::Ask, Path(folder), false, true}), isKnownBefore ? Failed : Done);
    EXPECT_EQ(err.str(), isKnownBefore ? reported : "") << "a dry run says the same";
  }
  radio.memory[0x3F0] ^= 1; // another band
  for (const auto& [band, status] : {std::pair(BandAnswer::Ask, Failed), {BandAnswer::Yes, Done}})
    EXPECT_EQ(RunWrite(command, file, {band, "", false, true}), status);
}

} // namespace
} // namespace mr4500x
