// lr7200-simulator: a simulated LR7200 radio on a pseudo-terminal, for training, demos and tests.
#include "pseudo_terminal.h"
#include "simulated_radio.h"

#include <CLI/CLI.hpp>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <system_error>

#include <sys/prctl.h>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;

struct Options {
  std::string memoryFile;
  std::string link;
  std::string number, nextNumber;
  int baud = 0; // 0: no delay
  int deafness = 0;
  std::vector<PlannedFault> faults;
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

void PrintFailure(const std::exception& failure) {
  std::fprintf(stderr, "lr7200-simulator: %s\n", failure.what());
}

// Runs until a signal or the fault "vanish".
void RunRadio(SimulatedRadio& radio, const PseudoTerminal& terminal, const Options& options, const sigset_t& mask) {
  constexpr SimulatedRadio::Moment Idle = 1s;
  constexpr unsigned SessionsBeforeSwap = 2; // an identification and a backup
  const std::string& memoryFile = options.memoryFile;
  unsigned storedSessions = 0;
  SimulatedRadio::Moment lastReceived = Now();
  while (g_isStopped == 0 && !radio.HasVanished()) {
    const auto next = radio.NextReplyAt();
    const auto pause = next ? *next - Now() : Idle;
    terminal.Wait(std::max(pause, SimulatedRadio::Moment::zero()), mask);
    const auto bytes = terminal.Read();
    const auto now = Now();
    if (!bytes.empty()) lastReceived = now;
    radio.Receive(bytes, now);
    terminal.Write(radio.TakeReplies(now));
    if (now - lastReceived >= Idle) terminal.EndExclusiveUse();
    if (radio.EndedSessions() == SessionsBeforeSwap && !options.nextNumber.empty()) radio.Swap(options.nextNumber);
    // Only after the last answer of the session, because the computer is waiting for it.
    if (!memoryFile.empty() && radio.EndedSessions() != storedSessions && !radio.NextReplyAt()) {
      storedSessions = radio.EndedSessions();
      try {
        Store(memoryFile, radio.Memory());
      } catch (const std::exception& failure) {
        PrintFailure(failure); // and continue
      }
    }
  }
}

void Serve(const Options& options) {
  const sigset_t mask = CatchSignals();
  RadioMemory memory = options.memoryFile.empty() ? FactoryMemory() : LoadOrCreate(options.memoryFile);
  if (!options.number.empty()) SetIdentityNumber(memory, options.number);
  const auto characterTime = options.baud == 0 ? 0us : std::chrono::microseconds(1s) * BitsPerCharacter / options.baud;
  SimulatedRadio radio(memory, characterTime, options.faults, std::chrono::milliseconds(options.deafness));
  {
    const PseudoTerminal terminal(options.link);
    if (std::printf("%s\n", terminal.Device().c_str()) < 0 || std::fflush(stdout) != 0)
      throw std::system_error(errno, std::generic_category(), "cannot print the device");
    RunRadio(radio, terminal, options, mask);
  }
  if (!options.memoryFile.empty()) Store(options.memoryFile, radio.Memory());
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

// CLI11 would read 010 as 8, and 0x10 as 16.
std::string DecimalProblem(const std::string& text) {
  const bool isDecimal =
      text == "0" || (text.find_first_not_of("0123456789") == std::string::npos && !text.starts_with('0'));
  return isDecimal ? "" : text + " is not a decimal number";
}

std::string NumberProblem(const std::string& text) {
  return text.size() > IdentityCharacters ? "has more than 16 characters" : "";
}

int Main(int argc, char** argv) {
  Options options;
  CLI::App app("A simulated LR7200 radio. Prints the path of its serial device and serves it until interrupted.",
               "lr7200-simulator");
  app.add_option("--memory", options.memoryFile, "Keep the radio's memory in this file; made when missing")
      ->type_name("FILE");
  app.add_option("--link", options.link, "Make a symbolic link to the device here")->type_name("PATH");
  app.add_option("--number", options.number, "The radio's identity number, at most 16 characters")
      ->type_name("TEXT")
      ->check(NumberProblem);
  app.add_option("--swap", options.nextNumber, "Be another radio, with this number, after two sessions")
      ->type_name("TEXT")
      ->check(NumberProblem);
  app.add_option("--pace", options.baud, "Take the time of a real line, 9600 for the radio's; none by default")
      ->type_name("BAUD")
      ->check(DecimalProblem)
      ->check(CLI::Range(300, 115200));
  const auto addFault = [&](const std::string& text) {
    const auto fault = ParseFault(text);
    if (!fault) throw CLI::ValidationError("--fault", text + " is not a fault; --help lists them");
    options.faults.push_back(*fault);
  };
  app.add_option_function<std::string>("--fault", addFault, "Fail in this way; may be given several times")
      ->type_name("NAME")
      ->trigger_on_parse();
  app.add_option("--deaf", options.deafness, "Lose what comes within this many ms after the end of an answer")
      ->type_name("MS")
      ->check(DecimalProblem)
      ->check(CLI::Range(0, 1000));
  for (CLI::Option* const option : app.get_options())
    if (option->get_items_expected_max() > 0)
      option->check([](const std::string& value) { return std::string(value.empty() ? "is empty" : ""); });
  app.set_version_flag("--version", "lr7200-simulator " MR4500X_VERSION);
  app.footer(FaultHelp());
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : 2;
  }
  prctl(PR_SET_TIMERSLACK, 1000UL, 0UL, 0UL, 0UL); // send replies within 1 us of their time, not the default 50
  Serve(options);
  return 0;
}

} // namespace
} // namespace mr4500x

int main(int argc, char** argv) {
  try {
    return mr4500x::Main(argc, argv);
  } catch (const std::exception& failure) {
    mr4500x::PrintFailure(failure);
    return 1;
  }
}
