// The command line tool and simulated radios as processes.
#pragma once

#include "files_fixture.h"

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

inline Ended Shell(const std::string& command) {
  FILE* const pipe = popen(("{ " + command + "; } 2>&1 </dev/null").c_str(), "r");
  Ended ended{-1, {}};
  for (int character = fgetc(pipe); character != EOF; character = fgetc(pipe))
    ended.output += static_cast<char>(character);
  const int status = pclose(pipe);
  if (WIFEXITED(status)) ended.status = WEXITSTATUS(status);
  return ended;
}

class CommandLineTest : public FilesTest {
protected:
  CommandLineTest() { EXPECT_EQ(Cli("new " + file).output, ""); }
  // Starts a radio and waits for the line in which it names its device. Each option begins with a blank.
  void StartRadio(const std::string& options = "", const std::string& memory = "memory") {
    Radio& radio = m_radios.emplace_back();
    radio.pipe = popen(("echo $$; exec " LR7200_SIMULATOR " --memory " + Path(memory) + options).c_str(), "r");
    std::array<char, 100> device{};
    ASSERT_EQ(fscanf(radio.pipe, "%d %99s", &radio.process, device.data()), 2);
    port = device.data();
  }
  void EndRadio(int signal = SIGTERM) { // all of them
    for (const Radio& radio : m_radios) {
      kill(radio.process, signal);
      pclose(radio.pipe);
    }
    m_radios.clear();
  }

  Ended Cli(const std::string& arguments) { return Shell(MR4500X_CLI " " + arguments); }
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

  const std::string file = Path("a.K4X");
  std::string port;

private:
  struct Radio {
    FILE* pipe = nullptr;
    int process = 0;
  };
  std::vector<Radio> m_radios;
};

} // namespace mr4500x
