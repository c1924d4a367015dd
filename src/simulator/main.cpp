// lr7200-simulator: a simulated LR7200 radio on a pseudo-terminal, for training, demos and tests.
#include "device_link.h"
#include "memory_file.h"
#include "pseudo_terminal.h"
#include "simulated_radio.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include <sys/prctl.h>

namespace mr4500x {
namespace {

struct Options {
  std::string memoryFile;
  std::string link;
  int baud = 0; // 0: no delay
  std::vector<std::string> faults;
};

constexpr int BitsPerCharacter = 12; // start, 8 data, parity, 2 stop

volatile std::sig_atomic_t g_isStopped = 0;

void Stop(int) {
  g_isStopped = 1;
}

// From now on SIGINT and SIGTERM arrive only in waits. Returns the signal mask for the waits.
sigset_t CatchSignals() {
  struct sigaction action {};
  action.sa_handler = Stop;
  sigset_t held;
  sigset_t before;
  sigemptyset(&held);
  for (const int signal : {SIGINT, SIGTERM}) {
    sigaddset(&held, signal);
    sigaction(signal, &action, nullptr);
  }
  sigprocmask(SIG_BLOCK, &held, &before);
  sigdelset(&before, SIGINT);
  sigdelset(&before, SIGTERM);
  return before;
}

SimulatedRadio::Moment Now() {
  return std::chrono::duration_cast<SimulatedRadio::Moment>(std::chrono::steady_clock::now().time_since_epoch());
}

int Fail(const std::string& reason) {
  std::fprintf(stderr, "lr7200-simulator: %s\n", reason.c_str());
  return 1;
}

// Runs until a signal or the fault "vanish".
void RunRadio(SimulatedRadio& radio, const PseudoTerminal& terminal, const std::string& memoryFile,
              const sigset_t& mask) {
  constexpr SimulatedRadio::Moment Idle = std::chrono::seconds(1);
  unsigned storedSessions = 0;
  SimulatedRadio::Moment lastHeard = Now();
  while (g_isStopped == 0 && !radio.HasVanished()) {
    const auto next = radio.NextReplyAt();
    const auto pause = next ? *next - Now() : Idle;
    terminal.Wait(std::max(pause, SimulatedRadio::Moment::zero()), mask);
    const auto bytes = terminal.Read();
    const auto now = Now();
    if (!bytes.empty()) lastHeard = now;
    radio.Hear(bytes, now);
    terminal.Write(radio.TakeReplies(now));
    if (now - lastHeard >= Idle) terminal.EndExclusiveUse();
    // Only after the last answer of the session: the computer is waiting for it.
    if (!memoryFile.empty() && radio.EndedSessions() != storedSessions && !radio.NextReplyAt()) {
      if (const auto failure = Store(memoryFile, radio.Memory())) Fail(*failure);
      storedSessions = radio.EndedSessions();
    }
  }
}

int Serve(const Options& options) {
  const sigset_t mask = CatchSignals();
  RadioMemory memory = FactoryMemory();
  if (!options.memoryFile.empty()) {
    if (const auto failure = LoadOrCreate(options.memoryFile, memory)) return Fail(*failure);
  }
  std::vector<PlannedFault> faults;
  for (const std::string& text : options.faults)
    if (const auto fault = ParseFault(text)) faults.push_back(*fault);
  const auto characterTime = options.baud == 0
                                 ? std::chrono::microseconds(0)
                                 : std::chrono::microseconds(std::chrono::seconds(1)) * BitsPerCharacter / options.baud;
  SimulatedRadio radio(memory, characterTime, FaultPlan(std::move(faults)));
  {
    PseudoTerminal terminal;
    if (const auto failure = terminal.Open()) return Fail(*failure);
    DeviceLink link;
    if (!options.link.empty()) {
      if (const auto failure = link.Make(options.link, terminal.Device())) return Fail(*failure);
    }
    std::printf("%s\n", terminal.Device().c_str());
    std::fflush(stdout);
    RunRadio(radio, terminal, options.memoryFile, mask);
  }
  if (options.memoryFile.empty()) return 0;
  const auto failure = Store(options.memoryFile, radio.Memory());
  return failure ? Fail(*failure) : 0;
}

std::string FaultHelp() {
  std::string text = "Faults; those marked * also as NAME@RECORD, at one record only, counted from 0:\n";
  for (const FaultKind& kind : FaultKinds()) {
    std::string name = "  " + std::string(kind.name) + (kind.takesRecord ? "*" : "");
    name.resize(22, ' ');
    text += name + std::string(kind.description) + "\n";
  }
  return text;
}

std::string CheckFault(const std::string& text) {
  return ParseFault(text) ? std::string() : text + " is not a fault; --help lists them";
}

int Main(int argc, char** argv) {
  Options options;
  CLI::App app("A simulated LR7200 radio. Prints the path of its serial device and serves it until interrupted.");
  app.add_option("--memory", options.memoryFile, "Keep the radio's memory in this file; made when missing")
      ->type_name("FILE");
  app.add_option("--link", options.link, "Make a symbolic link to the device here")->type_name("PATH");
  app.add_option("--pace", options.baud, "Take the time of a real line, 9600 for the radio's; none by default")
      ->type_name("BAUD")
      ->check(CLI::Range(300, 115200));
  app.add_option("--fault", options.faults, "Fail in this way; may be given several times")
      ->type_name("NAME")
      ->allow_extra_args(false)
      ->check(CLI::Validator(CheckFault, std::string()));
  app.footer(FaultHelp());
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : 2;
  }
  prctl(PR_SET_TIMERSLACK, 1000UL, 0UL, 0UL, 0UL); // send replies within 1 us of their time, not the default 50
  return Serve(options);
}

} // namespace
} // namespace mr4500x

int main(int argc, char** argv) {
  try {
    return mr4500x::Main(argc, argv);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "lr7200-simulator: %s\n", failure.what());
    return 1;
  }
}
