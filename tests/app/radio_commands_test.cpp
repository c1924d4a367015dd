// Read, Write and Port, through the main window, with a radio on COM3.
#include "frm_port.h"
#include "modal_dialog.h"
#include "program_fixture.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

namespace mr4500x {
namespace {

class RadioTest : public ProgramTest {
protected:
  RadioTest() {
    image.ChannelBlock(4, 0) = 0x81; // channel 5 in use
    for (const BlockPlace& place : RecordMap) {
      const auto bytes = BlockBytes(image, place.block);
      std::copy(bytes.begin(), bytes.end(), &radio.memory.at(place.address));
    }
  }
};

TEST_F(RadioTest, FailsWithoutALeftover) {
  const struct {
    const char* command;
    std::function<void(std::size_t, LineBytes&)> spoil;
    std::string message;
  } cases[] = {
      {"mnuProgramRead", [](auto, LineBytes& reply) { reply.clear(); },
       "!|Communication port error|COM3 port don't respond, please check your connection!"},
      {"mnuProgramRead",
       [](auto frame, LineBytes& reply) {
         if (frame == 9) reply.pop_back();
       },
       "!|Read Interrupt|Reading is interrupted, please retry Read."},
      {"mnuProgramWrite",
       [](auto frame, LineBytes& reply) {
         if (frame == 9) reply.clear();
       },
       "!|Write Interrupt|Writing is interrupted, please retry Write."},
  };
  for (const auto& [command, spoil, message] : cases)
    ExpectFailure(command, spoil, message);
}

TEST_F(RadioTest, WhatARadioHoldsCanBeClosed) {
  for (const char* const command : {"mnuProgramRead", "mnuProgramWrite"}) {
    SCOPED_TRACE(command);
    Start();
    ASSERT_FALSE(Item("mnuFileClose")->isEnabled());
    Choose(command);
    EXPECT_TRUE(Item("mnuFileClose")->isEnabled());
    ExpectIdle();
  }
}

// Ports of which some can be opened.
struct SomePorts final : SerialPort {
  std::set<int> working;
  int number = 0;
  bool open = false;
  void SetPortNumber(int n) override { number = n; }
  std::optional<std::string> Open(const char*) override {
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
