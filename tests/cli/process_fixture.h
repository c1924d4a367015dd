// The command line tool and simulated radios as processes.
#pragma once

#include "files_fixture.h"
#include "rows.h"

#include <signal.h>

#include <array>
#include <cstdio>
#include <tuple>
#include <vector>

namespace mr4500x {

struct Ended {
  int status;
  std::string output; // standard output and standard error
};

struct Process {
  FILE* output;
  int id = 0;
};
// Its signals are not ignored, unlike in a background job of a shell.
inline Process Start(const std::string& command) {
  Process process{popen(("echo $$; exec env --default-signal " + command).c_str(), "r")};
  EXPECT_EQ(fscanf(process.output, "%d", &process.id), 1);
  return process;
}

// Reads the output until the process ends. As in a shell, the status after a signal is 128 plus its number.
inline Ended Await(const Process& process) {
  Ended ended{-1, {}};
  for (int character = fgetc(process.output); character != EOF; character = fgetc(process.output))
    ended.output += static_cast<char>(character);
  const int status = pclose(process.output);
  ended.status = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  return ended;
}

inline Ended Shell(const std::string& command) {
  return Await({popen(("{ " + command + "; } 2>&1 </dev/null").c_str(), "r")});
}

inline std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

class CommandLineTest : public FilesTest {
protected:
  CommandLineTest() {
    setenv("XDG_STATE_HOME", Path("state").c_str(), 1);
    EXPECT_EQ(Cli("new " + file).output, "");
  }
  // Starts a radio and waits for the line in which it names its device. Each option begins with a blank.
  void StartRadio(const std::string& options = "", const std::string& memory = "memory") {
    m_radios.push_back(Start(LR7200_SIMULATOR " --memory " + Path(memory) + options));
    std::array<char, 100> device{};
    ASSERT_EQ(fscanf(m_radios.back().output, "%99s", device.data()), 1);
    port = device.data();
  }
  void EndRadio(int signal = SIGTERM) { // all of them
    for (const Process& radio : m_radios) {
      kill(radio.id, signal);
      pclose(radio.output);
    }
    m_radios.clear();
  }

  // Repeats a transfer if its radio was late, as it can be on a busy machine.
  Ended Cli(const std::string& arguments) {
    Ended ended = Shell(MR4500X_CLI " " + arguments);
    const auto isLate = [&] { return CountOf(ended.output, "please ") > 0 && !arguments.starts_with("fleet"); };
    for (int tries = 0; tries < 3 && isLate(); ++tries)
      ended = Shell(MR4500X_CLI " " + arguments);
    return ended;
  }
  // For each command line its status, and how its output begins; empty: says nothing, or the usage.
  using Case = std::tuple<std::string, int, std::string>;
  void ExpectAll(const std::vector<Case>& rows) {
    for (const auto& [arguments, status, output] : rows) {
      const Ended ended = Cli(arguments);
      EXPECT_EQ(ended.status, status) << arguments;
      EXPECT_TRUE(ended.output.starts_with(output)) << arguments << ": " << ended.output;
      EXPECT_EQ(ended.output.empty(), output.empty() && status == 0) << arguments << ": " << ended.output;
    }
  }
  // The lines of a file like command_lines.txt, in the test's folder.
  void ExpectLines(const char* cases) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(Path(""));
    setenv("cli", MR4500X_CLI, 1);
    setenv("port", port.c_str(), 1);
    for (const Row& row : RowsOf(cases, "(\\d) (.*?)(?: -> (.*?)(\\.\\.\\.)?)?")) {
      const auto [status, output] = Cli(row[2]);
      std::string expected = std::regex_replace(Unescaped(row[3]), std::regex("\\$port"), port);
      expected = std::regex_replace(expected, std::regex("HERE"), std::filesystem::current_path().string());
      EXPECT_EQ(std::to_string(status), row[1]) << row[0];
      EXPECT_EQ(row[4].empty() ? output : output.substr(0, expected.size()), expected) << row[0];
    }
    std::filesystem::current_path(before);
  }

  const std::string file = Path("a.K4X");
  std::string port;

private:
  std::vector<Process> m_radios;
};

} // namespace mr4500x
