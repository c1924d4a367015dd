// The transfers and Port, through the main window, with a radio on COM3.
#include "end_signals.h"
#include "messages.h"
#include "program_fixture.h"

#include <csignal>

namespace mr4500x {
namespace {

const struct TransferCase {
  const char* command;
  Transfer transfer;
  std::string title;
} Transfers[] = {
    {"mnuProgramRead", Transfer::Read, "Read Completely - "},
    {"mnuProgramWrite", Transfer::Write, "Write Completely - "},
    {"mnuEmbedRead", Transfer::ReadInfo, "Read Information Completely - "},
    {"mnuEmbedWrite", Transfer::WriteInfo, "Write Information Completely - "},
};

class TransferTest : public ProgramTest {
protected:
  TransferTest() { PutInRadio(); }
  // The transfer is complete, interrupted or the like, and its message is the only one.
  void ExpectToldOf(Transfer transfer, Outcome outcome) {
    const Message reported = outcome == Outcome::Complete ? CompletionOf(transfer)
                                                          : *FailureOf({transfer, outcome, "COM3", "No such device"});
    const char* const icons[] = {"", "i|", "!|", "X|"};
    EXPECT_EQ(Happened(), Lines{icons[static_cast<int>(reported.icon)] + reported.title + "|" + reported.text});
  }
};

TEST_F(TransferTest, AfterAFailureTheNextTransferWorksAndTheDataIsTheRadios) {
  for (const auto& [command, transfer, title] : Transfers) {
    SCOPED_TRACE(command);
    Start();
    radio.frames.clear();
    radio.spoil = [](std::size_t frame, LineBytes& reply) {
      if (frame == 9) reply.clear();
    };
    desktop.beforeAnswer = [&] { EXPECT_FALSE(radio.open || desktop.showsProgress) << "the message comes last"; };
    Choose(command);
    ExpectToldOf(transfer, transfer == Transfer::ReadInfo ? Outcome::DataError : Outcome::Interrupted);
    radio.openFailure = "No such device";
    Choose(command);
    ExpectToldOf(transfer, Outcome::PortNotOpened);
    EXPECT_EQ(Title(), ProgramTitle);
    EXPECT_FALSE(Item("mnuFileClose")->isEnabled());

    radio.openFailure.reset();
    radio.spoil = nullptr;
    Edit();
    desktop.beforeAnswer = [&] { EXPECT_TRUE(radio.open && !desktop.showsProgress) << "the message comes first"; };
    Choose(command);
    ExpectToldOf(transfer, Outcome::Complete);
    EXPECT_EQ(Title(), title + std::string(ProgramTitle));
    EXPECT_EQ(Item("mnuFileClose")->isEnabled(), transfer != Transfer::WriteInfo);
    EXPECT_TRUE(window->State().ModifiedFlag); // a transfer has nothing to do with it
    EXPECT_FALSE(desktop.showsProgress || radio.open || QGuiApplication::overrideCursor() != nullptr);
    Choose("mnuFileSave"); // never over a file that was open before
    EXPECT_EQ(Happened(), Lines{"dialog Save As"});
  }
}

TEST_F(TransferTest, AReadProposesItsOwnNameAndAFileShowsNoIdentityOfTheRadioBefore) {
  std::fill_n(&radio.memory[0x1F0], 16, std::uint8_t{'7'});
  std::fill_n(&radio.memory[0x3F8], 8, std::uint8_t{'2'});
  PutDataFile("a.K4X");
  OpenFile("a.K4X");
  Choose("mnuProgramRead");
  EXPECT_EQ(window->Panel().Shown().identityNumber, "7777777777777777");
  Choose("mnuFileSaveAs", {Answer::No, Answer::No});
  EXPECT_EQ(desktop.lastQuestion.proposedName, Path("7777777777777777_20041104.K4X"));
  std::fill_n(&radio.memory[0x1F0], 16, std::uint8_t{0});
  for (const char* const command : {"mnuProgramRead", "mnuFileSaveAs"})
    Choose(command);
  EXPECT_EQ(desktop.lastQuestion.proposedName, Path("unknown_20041104.K4X"));
  Choose("mnuFileOpen", {}, "a.K4X");
  const Configuration shown = window->Panel().Shown();
  EXPECT_EQ(shown.identityNumber + shown.firmwareVersion, std::string(32, '-'));
}

TEST_F(TransferTest, WritesToAnotherBandOnlyIfTheUserAgrees) {
  radio.identity[1] = 0x88;
  const std::string asked = "!|Frequency Band|" + BandQuestion().text + "|YN";
  EXPECT_EQ(HappenedAt("mnuProgramWrite", {Answer::No, Answer::Yes}), Lines{asked});
  EXPECT_EQ(Title(), ProgramTitle);
  EXPECT_EQ(HappenedAt("mnuProgramWrite").size(), 2U); // asked, and written
}

TEST_F(TransferTest, BacksUpAndVerifiesAWriteOnlyIfTheUserWantsIt) {
  std::fill_n(&radio.memory[0x1F0], 16, std::uint8_t{'7'});
  std::fill_n(&radio.memory[0x3F8], 8, std::uint8_t{'2'});
  const std::string written = "Write Complete|" + CompletionOf(Transfer::Write).text,
                    same = "The radio on COM3 matches what was written.", title(ProgramTitle),
                    differs =
                        "!|Verify after Writing|The radio on COM3 does not match what was written. Write it again. "
                        "Differences:\n\nDigit Time: 50ms -> {\"code\": 4}",
                    noFolder = "!|Back Up before Writing|The backup could not be saved in " + Path("") +
                               "/backup (Not a directory). Nothing was written.";
  const std::string other =
      "!|Verify after Writing|The radio on COM3 was exchanged: 7777777777777777, firmware 22222222 "
      "was backed up, but 6777777777777777, firmware 22222222 was read back. Check both radios.";
  // name, what is ticked or not any longer, what the radio changes after the write, sessions, reported, status
  const std::tuple<const char*, Lines, std::uint16_t, std::size_t, Lines, std::string> cases[] = {
      {"at first", {}, 0, 1, {written}, title},
      {"verified", {"mnuProgramVerify"}, 0, 2, {written}, same},
      {"not the same", {}, 0x107, 2, {written, differs}, title},
      {"backed up", {"mnuProgramVerify", "mnuProgramBackUp"}, 0, 2, {written}, title},
      {"another in the same second", {}, 0, 2, {written}, title},
      {"exchanged", {"mnuProgramVerify"}, 0x1F0, 3, {written, other}, title},
      {"both", {}, 0, 3, {written}, same},
      {"a file in place of the folder", {}, 0, 0, {noFolder}, title},
  };
  for (const auto& [name, ticked, flaw, sessions, reported, status] : cases) {
    SCOPED_TRACE(name);
    for (const std::string& item : ticked)
      Choose(item);
    Start(); // the ticks are remembered
    radio.frames.clear();
    if (reported == Lines{noFolder}) {
      std::filesystem::rename(Path("backup"), Path("kept"));
      Put("backup", "");
    }
    desktop.beforeAnswer = [&, flaw = flaw] { radio.memory[flaw] ^= flaw == 0 ? 0 : 1; };
    Choose("mnuProgramWrite");
    EXPECT_EQ(Happened(), reported);
    EXPECT_EQ(Status(1), status);
    EXPECT_EQ(std::ranges::count_if(radio.frames, [](auto& frame) { return frame[0] != 0x57; }), sessions);
  }
  RadioImage kept;
  for (const std::string name : {"20041104_090507.K4X", "20041104_090507_2.K4X", "20041104_090507_3.K4X"})
    EXPECT_EQ(LoadDataFile(files, Path("kept/7777777777777777_" + name), kept).outcome, LoadOutcome::Loaded);
  EXPECT_EQ(kept.FiveToneStandard, kept.ResetTimeBlock[2]);
  std::filesystem::remove(Path("backup"));
  radio.spoil = [](std::size_t frame, LineBytes& reply) { frame == 9 ? reply.clear() : void(); };
  radio.frames.clear();
  EXPECT_EQ(HappenedAt("mnuProgramWrite").size(), 1U) << "the backup was interrupted";
  EXPECT_LT(radio.frames.size(), 13U) << "and nothing was written";
}

TEST_F(TransferTest, StartsNoFurtherTransferAfterASignal) {
  for (const char* const item : {"mnuProgramVerify", "mnuProgramBackUp"})
    Choose(item);
  const auto sessions = [&] {
    return std::ranges::count_if(radio.frames, [](auto& frame) { return frame[0] != 0x57; });
  };
  for (const int step : {1, 2, 3}) { // the backup, the write and the verification
    SCOPED_TRACE(step);
    int reported = 0;
    const EndSignalsHeard heard([&](int /*signal*/) { ++reported; }, NextSignal::IsReported);
    radio.frames.clear();
    radio.spoil = [&, isRaised = false](std::size_t /*frame*/, LineBytes& /*reply*/) mutable {
      if (sessions() == step && !std::exchange(isRaised, true)) std::raise(SIGTERM);
    };
    EXPECT_EQ(HappenedAt("mnuProgramWrite").size(), step == 1 ? 0U : 1U) << "not only that it is written";
    EXPECT_EQ(sessions(), step);
    EXPECT_TRUE(QTest::qWaitFor([&] { return reported == 1; }));
  }
}

} // namespace
} // namespace mr4500x
