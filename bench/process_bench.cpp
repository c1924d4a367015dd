// The command line tool as a process, compared with `true`, the minimum cost of a process.
#include "child_process.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace mr4500x {

pid_t StartProgram(const std::vector<std::string>& words, int* output) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (const std::string& word : words)
    arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  int ends[2] = {-1, -1};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (output != nullptr && pipe2(ends, O_CLOEXEC) == 0) {
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    *output = ends[0];
  } else {
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  }
  pid_t process = -1;
  if (posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ) != 0) process = -1;
  posix_spawn_file_actions_destroy(&actions);
  if (ends[1] >= 0) close(ends[1]);
  return process;
}

int WaitForProgram(pid_t process, rusage& used) {
  int status = 0;
  if (wait4(process, &status, 0, &used) != process || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

namespace {

void RunProgram(benchmark::State& state, const std::vector<std::string>& words) {
  long peak = 0;
  for (auto _ : state) {
    rusage used{};
    if (WaitForProgram(StartProgram(words), used) != 0) {
      state.SkipWithError("the program failed");
      return;
    }
    peak = std::max(peak, used.ru_maxrss);
  }
  state.counters["peak_MB"] = static_cast<double>(peak) / 1024;
}

void True(benchmark::State& state) {
  RunProgram(state, {"true"});
}
BENCHMARK(True)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(40)->Repetitions(5)->ReportAggregatesOnly();

void CliShow(benchmark::State& state) {
  const std::string file =
      std::filesystem::temp_directory_path() / ("mr4500x-bench-" + std::to_string(getpid()) + ".K4X");
  rusage used{};
  WaitForProgram(StartProgram({MR4500X_CLI, "new", file}), used);
  RunProgram(state, {MR4500X_CLI, "show", file});
  std::filesystem::remove(file);
}
BENCHMARK(CliShow)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(40)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

void CliPrint(benchmark::State& state) {
  const std::string stem = std::filesystem::temp_directory_path() / ("mr4500x-bench-" + std::to_string(getpid()));
  rusage used{};
  WaitForProgram(StartProgram({MR4500X_CLI, "new", stem + ".K4X"}), used);
  RunProgram(state, {MR4500X_CLI, "print", stem + ".K4X", stem + ".pdf"});
  std::filesystem::remove(stem + ".K4X");
  std::filesystem::remove(stem + ".pdf");
}
BENCHMARK(CliPrint)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(20)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

} // namespace
} // namespace mr4500x
