// The transfers and Port, through the main window, with a radio on COM3.
#include "frm_port.h"
#include "modal_dialog.h"
#include "program_fixture.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

namespace mr4500x {
namespace {

struct TransferCase {
  const char* command;
  std::string title, done;
  bool closes; // whether the data can be closed afterwards
  bool isBusy; // what the pointer shows
  std::string interrupted;
};

// clang-format off
const TransferCase Transfers[] = {
    {"mnuProgramRead", "Read Completely - MR4500X Programming Software",
     "Read Complete|Read data is complete. Press OK button to continue ...", true, true,
     "!|Read Interrupt|Reading is interrupted, please retry Read."},
    {"mnuProgramWrite", "Write Completely - MR4500X Programming Software",
     "Write Complete|Write data is complete. Press OK button to continue ...", true, true,
     "!|Write Interrupt|Writing is interrupted, please retry Write."},
    {"mnuEmbedRead", "Read Information Completely - MR4500X Programming Software",
     "Read Information Completely|Read information is complete. Press OK button to continue ...", true, true,
     "!|Read Information Error|Read information error, please try again."},
    {"mnuEmbedWrite", "Write Information Completely - MR4500X Programming Software",
     "Write Information Completely|Write information completely. Press OK to continue.", false, false,
     "!|Information Error|Writing information is interrupted, please try again."},
};
// clang-format on

class TransferTest : public ProgramTest {
protected:
  TransferTest() {
    image.ChannelBlock(4, 0) = 0x81; // channel 5 in use
    for (const BlockPlace& place : RecordMap) {
      const auto bytes = BlockBytes(image, place.block);
      std::copy(bytes.begin(), bytes.end(), &radio.memory.at(place.address));
    }
  }
  // Nothing of a transfer stays behind.
  void ExpectIdle() {
    EXPECT_FALSE(desk.showsProgress);
    EXPECT_FALSE(radio.open);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  }
};

TEST_F(TransferTest, MakesTheDataTheRadiosWhileThePortIsOpen) {
  for (const TransferCase& c : Transfers) {
    SCOPED_TRACE(c.command);
    Start();
    Edit();
    bool wasBusy = true, wasIdle = true, wasOpen = false;
    clock.duringWait = [&] {
      const bool isBusy = QGuiApplication::overrideCursor() != nullptr;
      wasBusy = wasBusy && isBusy;
      wasIdle = wasIdle && !isBusy;
    };
    desk.beforeAnswer = [&] { wasOpen = radio.open && !desk.showsProgress; };
    Choose(c.command);
    EXPECT_EQ(Happened(), Lines{c.done});
    EXPECT_TRUE(wasOpen);
    EXPECT_EQ(Title(), c.title);
    EXPECT_EQ(Item("mnuFileClose")->isEnabled(), c.closes);
    EXPECT_TRUE(window->State().ModifiedFlag); // a transfer has nothing to do with it
    EXPECT_TRUE(c.isBusy ? wasBusy : wasIdle);
    ExpectIdle();

    Choose("mnuFileSave"); // never over a file that was open before
    EXPECT_EQ(Happened(), Lines{"dialog Save As"});
    desk.answers = {Answer::No};
    Choose("mnuFileClose"); // where it can be chosen
    EXPECT_EQ(Title(), c.closes ? ProgramTitle : c.title);
    Happened();
  }
}

TEST_F(TransferTest, ShowsWhatWasRead) {
  const auto* const noCh = window->findChild<QCheckBox*>("chkCH(4)");
  EXPECT_TRUE(noCh->isChecked());
  Choose("mnuProgramRead");
  EXPECT_FALSE(noCh->isChecked());
  EXPECT_EQ(window->Image().ChannelBlock(4, 0), 0x81);
}

TEST_F(TransferTest, SendsWhatTheWindowShows) {
  constexpr std::uint8_t inUse = 0x81;
  ASSERT_NE(radio.memory[0x10], inUse);
  window->findChild<QCheckBox*>("chkCH(1)")->click();
  Choose("mnuProgramWrite");
  EXPECT_EQ(radio.memory[0x10], inUse);
}

TEST_F(TransferTest, FailsWithItsMessageAndWithoutALeftover) {
  for (const TransferCase& c : Transfers) {
    SCOPED_TRACE(c.command);
    radio.frames.clear();
    radio.spoil = [](std::size_t frame, LineBytes& reply) {
      if (frame == 9) reply.clear();
    };
    desk.beforeAnswer = [&] { EXPECT_FALSE(radio.open || desk.showsProgress) << "the message comes last"; };
    Choose(c.command);
    EXPECT_EQ(Happened(), Lines{c.interrupted});
    radio.openFailure = "No such device";
    Choose(c.command);
    EXPECT_EQ(Happened(), Lines{"X|Error|COM3: No such device"});
    radio.openFailure.reset();
    EXPECT_EQ(Title(), ProgramTitle);
    EXPECT_FALSE(Item("mnuFileClose")->isEnabled());
    ExpectIdle();
  }
}

TEST_F(TransferTest, WritesToAnotherBandOnlyIfTheUserAgrees) {
  radio.identity[1] = 0x88;
  const std::string asked = "!|Frequency Band|The frequency band is different from the destination radio model."
                            "Are you still continue?|YN";
  desk.answers = {Answer::No, Answer::Yes};
  Choose("mnuProgramWrite");
  EXPECT_EQ(Happened(), Lines{asked});
  EXPECT_EQ(Title(), ProgramTitle);
  Choose("mnuProgramWrite");
  EXPECT_EQ(Happened(), (Lines{asked, Transfers[1].done}));
}

// Ports of which some can be opened.
struct SomePorts final : SerialPort {
  std::set<int> working;
  int number = 0;
  bool open = false;
  void SetPortNumber(int n) override { number = n; }
  std::optional<std::string> Open(const LineSettings&) override {
    open = working.contains(number);
    return open ? std::nullopt : std::optional<std::string>("none");
  }
  void Close() override { open = false; }
  bool IsOpen() const override { return open; }
  std::optional<std::size_t> BytesReceived() override { return 0; }
  bool DiscardReceived() override { return true; }
  std::optional<std::size_t> BytesToTransmit() override { return 0; }
  bool DiscardTransmit() override { return true; }
  bool Write(std::span<const std::uint8_t>) override { return true; }
  std::optional<std::vector<std::uint8_t>> TakeReceived() override { return LineBytes{}; }
};

TEST_F(ProgramTest, ChoosesThePort) {
  SomePorts ports;
  serialPort = &ports;
  const struct {
    std::set<int> working;
    int preselected, click; // 0: none
    const char* button;
    int after;
  } cases[] = {
      {{1, 3, 4}, 3, 4, "cmdOK", 4},  {{1, 3, 4}, 3, 4, "cmdCancel", 3}, {{2, 4}, 2, 0, "cmdOK", 2},
      {{2, 4}, 2, 0, "cmdCancel", 3}, {{3}, 3, 7, "cmdOK", 3}, // a port that does not work can't be chosen
      {{}, 1, 0, "cmdCancel", 3},
  };
  for (const auto& [working, preselected, click, button, after] : cases) {
    Start();
    ports.working = working;
    WhenDialogOpens([&, preselected = preselected, click = click, button = button](QWidget* dialog) {
      EXPECT_EQ(dialog->windowTitle(), "Port");
      const auto option = [&](int n) { return dialog->findChild<QRadioButton*>(QStringLiteral("optPort(%1)").arg(n)); };
      for (int n = 1; n <= PortCount; ++n) {
        EXPECT_EQ(option(n)->text(), QStringLiteral("COM%1").arg(n));
        EXPECT_EQ(option(n)->isEnabled(), ports.working.contains(n));
        EXPECT_EQ(option(n)->isChecked(), n == preselected);
        EXPECT_EQ(option(n)->toolTip() == "/dev/ttyUSB2", n == 3);
      }
      if (click != 0) option(click)->click();
      dialog->findChild<QPushButton*>(button)->click();
    });
    Button("Port")->click();
    EXPECT_EQ(window->State().CommPortNumber, after);
    EXPECT_EQ(Status(2), "COM " + std::to_string(after));
    EXPECT_FALSE(ports.open);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  }
}

} // namespace
} // namespace mr4500x
