// The simulator as a process, with the program's own serial port at the other end.
#include "hex_bytes.h"
#include "qt_serial_port.h"
#include "radio_memory.h"
#include "steady_clock.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mr4500x {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
constexpr auto Limit = 10s; // for what happens at once unless it never does

class Simulator {
public:
  explicit Simulator(std::vector<std::string> arguments) {
    int ends[2];
    if (pipe(ends) != 0) return;
    arguments.insert(arguments.begin(), SIMULATOR);
    std::vector<char*> argv(arguments.size() + 1, nullptr);
    std::transform(arguments.begin(), arguments.end(), argv.begin(), [](std::string& text) { return text.data(); });
    m_process = fork();
    if (m_process == 0) {
      dup2(ends[1], STDOUT_FILENO);
      const int nothing = open("/dev/null", O_WRONLY);
      if (nothing >= 0) dup2(nothing, STDERR_FILENO); // complaints are expected here
      close(ends[0]);
      close(ends[1]);
      execv(SIMULATOR, argv.data());
      _exit(127);
    }
    close(ends[1]);
    m_output = ends[0];
  }
  ~Simulator() {
    if (m_process > 0) {
      kill(m_process, SIGKILL);
      waitpid(m_process, nullptr, 0);
    }
    close(m_output);
  }
  Simulator(const Simulator&) = delete;
  Simulator& operator=(const Simulator&) = delete;

  // The first line that it prints; empty when it ends without.
  std::string Device() const {
    std::string line;
    pollfd state{m_output, POLLIN, 0};
    char c = 0;
    while (poll(&state, 1, static_cast<int>(std::chrono::milliseconds(Limit).count())) == 1 &&
           read(m_output, &c, 1) == 1) {
      if (c == '\n') return line;
      line += c;
    }
    return {};
  }
  void Signal(int signal) const { kill(m_process, signal); }
  int ExitStatus() {
    int status = 0;
    waitpid(m_process, &status, 0);
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

private:
  pid_t m_process = -1;
  int m_output = -1;
};

class SimulatorProgram : public testing::Test {
protected:
  void SetUp() override {
    m_folder = fs::path(testing::TempDir()) / ("mr4500x_simulator_" + std::to_string(getpid()));
    fs::create_directories(m_folder);
  }
  void TearDown() override { fs::remove_all(m_folder); }
  std::string Path(const char* name) const { return (m_folder / name).string(); }

  // Sends, and takes as many bytes as the answer is to have; fewer when no more come or the port fails.
  static std::string Ask(SerialPort& port, const std::string& bytes, std::size_t count) {
    SteadyClock clock;
    if (!port.Write(FromHex(bytes))) return "port failed";
    const auto limit = clock.Now() + Limit;
    while (port.BytesReceived().value_or(count) < count && clock.Now() < limit)
      clock.WaitUntil(clock.Now() + 1ms);
    const auto answer = port.TakeReceived();
    return answer ? ToHex(*answer) : "port failed";
  }
  static void WriteText(const std::string& path, const std::string& text) { std::ofstream(path) << text; }
  static std::string ReadText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  fs::path m_folder;
};

TEST_F(SimulatorProgram, KeepsItsMemoryInAFile) {
  const std::string file = Path("memory");
  {
    Simulator simulator({"--memory", file});
    QtSerialPort port(simulator.Device());
    EXPECT_EQ(fs::file_size(file), RadioMemoryBytes);
    ASSERT_EQ(port.Open({9600, Parity::Odd, 8, 2}), std::nullopt);
    EXPECT_EQ(Ask(port, "WRITE", 9), "52 B8 01 D6 01 00 30 00 00");
    EXPECT_EQ(Ask(port, "57 01 00 08 A1 A2 A3 A4 A5 A6 A7 A8", 1), "06");
    EXPECT_EQ(Ask(port, "END", 2), "4F 4B");
    EXPECT_EQ(Ask(port, "WRITE", 9), "52 B8 01 D6 01 00 30 00 00");
    // The second session has been answered, so the first is in the file. Killed, it stores nothing more.
    EXPECT_EQ(Ask(port, "57 01 08 08 B1 B2 B3 B4 B5 B6 B7 B8", 1), "06");
    simulator.Signal(SIGKILL);
    simulator.ExitStatus();
  }
  RadioMemory expected = FactoryMemory();
  const auto record = FromHex("A1 A2 A3 A4 A5 A6 A7 A8");
  std::copy(record.begin(), record.end(), expected.begin() + 0x100);
  EXPECT_EQ(ReadText(file), std::string(expected.begin(), expected.end()));

  Simulator again({"--memory", file});
  QtSerialPort port(again.Device());
  ASSERT_EQ(port.Open({9600, Parity::Odd, 8, 2}), std::nullopt);
  EXPECT_EQ(Ask(port, "READ", 1), "06");
  EXPECT_EQ(Ask(port, "57 01 00 08", 12), "57 01 00 08 A1 A2 A3 A4 A5 A6 A7 A8");
}

TEST_F(SimulatorProgram, TouchesNoFileThatIsNotItsOwn) {
  WriteText(Path("short"), "a text");
  WriteText(Path("long"), std::string(RadioMemoryBytes + 1, 'x'));
  fs::create_symlink("/dev/null", Path("other-link"));
  fs::create_symlink("/dev/nothing", Path("stale-link"));
  for (const auto& arguments : std::vector<std::vector<std::string>>{{"--memory", Path("short")},
                                                                     {"--memory", Path("long")},
                                                                     {"--memory", m_folder.string()},
                                                                     {"--link", Path("short")},
                                                                     {"--link", Path("other-link")}}) {
    Simulator simulator(arguments);
    EXPECT_EQ(simulator.Device(), "");
    EXPECT_EQ(simulator.ExitStatus(), 1) << arguments[1];
  }
  EXPECT_EQ(ReadText(Path("short")), "a text");
  EXPECT_EQ(fs::read_symlink(Path("other-link")), "/dev/null");

  const Simulator simulator({"--link", Path("stale-link")});
  const std::string device = simulator.Device();
  EXPECT_EQ(fs::read_symlink(Path("stale-link")), device);
}

TEST_F(SimulatorProgram, VanishesInMidTransfer) {
  Simulator simulator({"--fault", "vanish@1", "--fault", "late-answer"});
  QtSerialPort port(simulator.Device());
  ASSERT_EQ(port.Open({9600, Parity::Odd, 8, 2}), std::nullopt);
  EXPECT_EQ(Ask(port, "READ READ READ", 1), "06");
  EXPECT_EQ(Ask(port, "57 00 80 08", 12), "57 00 80 08 01 00 13 01 00 00 81 00");
  EXPECT_EQ(Ask(port, "57 00 00 08", 12), "port failed");
  EXPECT_EQ(simulator.ExitStatus(), 0);
}

} // namespace
} // namespace mr4500x
