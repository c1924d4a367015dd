// The simulator as a process, with the program's own serial port at the other end.
#include "files_fixture.h"
#include "hex_bytes.h"
#include "qt_serial_port.h"
#include "radio_memory.h"
#include "steady_clock.h"

#include <QProcess>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;
constexpr int LimitMilliseconds = 10'000; // for what happens at once unless it never does

class Simulator : public QProcess {
public:
  explicit Simulator(std::initializer_list<std::string> arguments) {
    QStringList texts;
    for (const std::string& argument : arguments)
      texts << QString::fromStdString(argument);
    start(SIMULATOR, texts);
  }
  ~Simulator() override { End(); }
  void End() {
    kill();
    waitForFinished();
  }
  // The first line that it prints; empty when it ends without.
  std::string Device() {
    while (!canReadLine() && waitForReadyRead(LimitMilliseconds))
      continue;
    return readLine().trimmed().toStdString();
  }
  int ExitStatus() {
    waitForFinished(LimitMilliseconds);
    return state() == NotRunning && exitStatus() == NormalExit ? exitCode() : -1;
  }
};

class SimulatorProgram : public FilesTest {
protected:
  QtSerialPort& PortOf(Simulator& simulator) {
    m_port = std::make_unique<QtSerialPort>(simulator.Device());
    EXPECT_EQ(m_port->Open({9600, Parity::Odd, 8, 2}), std::nullopt);
    return *m_port;
  }
  // Sends, and takes as many bytes as the answer is to have; fewer when no more come or the port fails.
  static std::string Ask(SerialPort& port, const std::string& bytes, std::size_t count) {
    SteadyClock clock;
    if (!port.Write(FromHex(bytes))) return "port failed";
    const auto limit = clock.Now() + LimitMilliseconds * 1ms;
    while (port.BytesReceived().value_or(count) < count && clock.Now() < limit)
      clock.WaitUntil(clock.Now() + 1ms);
    const auto answer = port.TakeReceived();
    return answer ? ToHex(*answer) : "port failed";
  }

private:
  std::unique_ptr<QtSerialPort> m_port;
};

TEST_F(SimulatorProgram, KeepsItsMemoryInAFile) {
  {
    Simulator simulator({"--memory", Path("memory")});
    QtSerialPort& port = PortOf(simulator);
    EXPECT_EQ(Content("memory").size(), RadioMemoryBytes);
    EXPECT_EQ(Ask(port, "WRITE", 9), "52 B8 01 D6 01 00 30 00 00");
    EXPECT_EQ(Ask(port, "57 01 00 08 A1 A2 A3 A4 A5 A6 A7 A8", 1), "06");
    EXPECT_EQ(Ask(port, "END", 2), "4F 4B");
    EXPECT_EQ(Ask(port, "WRITE", 9), "52 B8 01 D6 01 00 30 00 00");
    // The second session has been answered, so the first is in the file. Killed, it stores nothing more.
    EXPECT_EQ(Ask(port, "57 01 08 08 B1 B2 B3 B4 B5 B6 B7 B8", 1), "06");
    simulator.End();
  }
  RadioMemory expected = FactoryMemory();
  const auto record = FromHex("A1 A2 A3 A4 A5 A6 A7 A8");
  std::copy(record.begin(), record.end(), expected.begin() + 0x100);
  EXPECT_EQ(Content("memory"), std::string(expected.begin(), expected.end()));

  Simulator again({"--memory", Path("memory")});
  QtSerialPort& port = PortOf(again);
  EXPECT_EQ(Ask(port, "READ", 1), "06");
  EXPECT_EQ(Ask(port, "57 01 00 08", 12), "57 01 00 08 A1 A2 A3 A4 A5 A6 A7 A8");
}

TEST_F(SimulatorProgram, TouchesNoFileThatIsNotItsOwn) {
  Put("short", "a text");
  Put("long", std::string(RadioMemoryBytes + 1, 'x'));
  std::filesystem::create_symlink("/dev/null", Path("other-link"));
  std::filesystem::create_symlink("/dev/nothing", Path("stale-link"));
  for (const auto& [option, name] :
       std::initializer_list<std::pair<const char*, const char*>>{{"--memory", "short"},
                                                                  {"--memory", "long"},
                                                                  {"--memory", ""},
                                                                  {"--link", "short"},
                                                                  {"--link", "other-link"}}) {
    Simulator simulator({option, Path(name)});
    EXPECT_EQ(simulator.Device(), "") << option << name;
    EXPECT_EQ(simulator.ExitStatus(), 1) << option << name;
  }
  EXPECT_EQ(Content("short"), "a text");
  EXPECT_EQ(std::filesystem::read_symlink(Path("other-link")), "/dev/null");

  Simulator simulator({"--link", Path("stale-link")});
  const std::string device = simulator.Device();
  EXPECT_EQ(std::filesystem::read_symlink(Path("stale-link")), device);
}

TEST_F(SimulatorProgram, VanishesInMidTransfer) {
  Simulator simulator({"--fault", "vanish@1", "--fault", "late-answer"});
  QtSerialPort& port = PortOf(simulator);
  EXPECT_EQ(Ask(port, "READ READ READ", 1), "06");
  EXPECT_EQ(Ask(port, "57 00 80 08", 12), "57 00 80 08 01 00 13 01 00 00 81 00");
  EXPECT_EQ(Ask(port, "57 00 00 08", 12), "port failed");
  EXPECT_EQ(simulator.ExitStatus(), 0);
}

} // namespace
} // namespace mr4500x
