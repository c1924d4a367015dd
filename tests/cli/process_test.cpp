// The command line tool against the simulated radio, both as processes, over a real serial device.
#include "data_file.h"
#include "process_fixture.h"
#include "rows.h"

#include <map>

#include <fcntl.h>
#include <unistd.h>

namespace mr4500x {
namespace {

TEST_F(CommandLineTest, TheTypicalJob) {
  StartRadio();
  ExpectAll({{"read --quick " + port + " " + file, 0, "ID Number              LR7200-000004217\n"}});
  RadioImage image;
  ASSERT_EQ(LoadDataFile(files, file, image).outcome, LoadOutcome::Loaded);
  EXPECT_EQ(image.FiveToneStandard, image.ResetTimeBlock[2]);

  image.RadioSettingsBlock[4] = 100;
  ASSERT_TRUE(SaveDataFile(files, file, image));
  ExpectAll({{"write --quick - " + port + " <" + file, 0, ""},
             {"info write " + port + " 'two\nlines'", 0, ""},
             {"info read --json " + port, 0, "{\n  \"format\": 1,\n  \"text\": \"two\\nlines\",\n"}});
  EndRadio(SIGKILL); // what was written is in its file
  StartRadio();
  ExpectAll({{"read --quick " + port + " - 2>" + Path("said") + " | cmp - " + file, 0, ""}});
  EndRadio();
}

TEST_F(CommandLineTest, CarefulAndQuickTransfers) {
  StartRadio(" --fault wrong-byte@5");
  ExpectLines(CASES "radio_lines.txt");
  EndRadio();
  std::string both; // options together; quick requests are lost and repeated
  for (const std::string speed : {"slow", "quick"}) {
    std::filesystem::copy(Path("memory"), Path(speed + ".memory"));
    StartRadio(" --deaf 30", speed + ".memory");
    both += "for i in 1 2 3; do rm -f " + Path(speed) + "; " MR4500X_CLI " verify " + file + ' ' + port + " --trace " +
            Path(speed) + (speed == "quick" ? " --quick" : "") + " | grep 'CH3 Group Call' && break; done & ";
  }
  EXPECT_EQ(CountOf(Shell(both + "wait").output, "CH3 Group Call"), 2U);
  EXPECT_LT(CountOf(Content("slow"), "computer 57 0"), CountOf(Content("quick"), "computer 57 0"));
  EndRadio();
}

// A running transfer is finished, however many signals arrive, and no other is started after it.
TEST_F(CommandLineTest, SignalsEndEachProgramAfterTheTransferThatRuns) {
  const std::string readBegins = "computer 72 45 41 44\n", writeBegins = "computer 77 52 49 54 45\n";
  const std::map<std::string, int> signals = {{"INT", SIGINT}, {"TERM", SIGTERM}, {"HUP", SIGHUP}, {"QUIT", SIGQUIT}};
  std::vector<Row> rows = RowsOf(CASES "signals.txt", "(\\w+) x(\\d) (.*) @ (.*) -> (.*) -> (\\d) (\\d)");
  struct Running {
    std::string number, device;
    Process process;
    bool isSignalled = false;
  };
  const auto filledIn = [&](std::string text, const Running& at) {
    for (const std::string name : {"PORT", "FILE", "TRACE", "COPY", "KEPT"}) {
      const std::string value = name == "PORT" ? at.device : name == "FILE" ? file : Path(name + at.number);
      text = std::regex_replace(text, std::regex(name), value);
    }
    return text;
  };
  for (int round = 0; round <= 3 && !rows.empty(); ++round) { // repeats a row if its radio was late
    std::vector<Running> all;
    std::vector<Row> again;
    for (const Row& row : rows) {
      const std::string number = std::to_string(round) + '-' + std::to_string(all.size());
      StartRadio(" --pace 9600", "memory" + number); // otherwise it would be over at once
      all.push_back({number, port, {}});
      all.back().process = Start(MR4500X_CLI " " + filledIn(row[3], all.back()) + " 2>&1");
    }
    for (int tries = 0; tries < 20'000 && !std::ranges::all_of(all, &Running::isSignalled); ++tries, usleep(1000))
      for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].isSignalled || CountOf(Content("TRACE" + all[i].number), rows[i][4] + '\n') == 0) continue;
        for (int times = std::stoi(rows[i][2]); times > 0; --times)
          kill(all[i].process.id, signals.at(rows[i][1]));
        all[i].isSignalled = true;
      }
    for (std::size_t i = 0; i < all.size(); ++i) {
      const std::string& arguments = rows[i][3];
      const std::size_t reads = std::stoul(rows[i][6]), writes = std::stoul(rows[i][7]);
      const auto [status, output] = Await(all[i].process);
      const std::string trace = Content("TRACE" + all[i].number);
      const auto says = [all = output + trace](const char* part) { return CountOf(all, part) > 0; };
      const bool isLate = says("please retry") || says("was swapped") || says("was interrupted");
      if (isLate && round < 3) {
        again.push_back(rows[i]);
        continue;
      }
      SCOPED_TRACE(arguments + ": " + output + trace);
      EXPECT_EQ(status, arguments.starts_with("fleet") ? 1 : 128 + signals.at(rows[i][1]));
      EXPECT_EQ(CountOf(output + trace, filledIn(rows[i][5], all[i])), 1U);
      EXPECT_EQ(CountOf(trace, readBegins) > 0, reads > 0); // again if the radio is late
      EXPECT_EQ(CountOf(trace, writeBegins) > 0, writes > 0);
      EXPECT_EQ(CountOf(trace, "computer 57 AA AA AA"), reads + writes); // each session has its end
    }
    EndRadio();
    rows = again;
  }
}

TEST_F(CommandLineTest, TheSimulatorTouchesNoFileThatIsNotItsOwn) {
  Put("text", "a text");
  for (const Row& row : RowsOf(CASES "simulator_lines.txt", "(\\d) (.*) -> (.*)")) {
    const Ended ended = Shell("cd " + Path("") + "; timeout 5 " LR7200_SIMULATOR " " + row[2]);
    EXPECT_EQ(std::to_string(ended.status), row[1]) << row[0];
    EXPECT_EQ(CountOf(ended.output, Unescaped(row[3])), 1U) << row[0] << ": " << ended.output;
  }
  EXPECT_EQ(Content("text"), "a text");
}

TEST_F(CommandLineTest, DoesWhatTheFileSays) {
  Put("newer.K4X", Content("a.K4X").replace(51, 2, std::string("\x02\0\x01\0", 4))); // with the format marker 1
  Put("damaged.K4X", "nonsense");
  Put("cut.K4X", Content("a.K4X").substr(0, 400));
  RadioImage image;
  ASSERT_EQ(LoadDataFile(files, file, image).outcome, LoadOutcome::Loaded);
  image.ResetTimeBlock[2] = 0;
  ASSERT_TRUE(SaveDataFile(files, Path("zero.K4X"), image));
  Put("unknown.csv", "label,foo\nCar 1,2\n");
  Put("refused.csv", "label,channels.1.rx_freq\nCar 1,12\nCar 1,446.00625\n");
  std::filesystem::create_symlink("a.K4X", Path("link.pdf"));
  port = "/nowhere" + std::to_string(getpid()); // its lock is not another run's
  ExpectLines(CASES "command_lines.txt");
  ExpectLines(CASES "refused_lines.txt");
}

TEST_F(CommandLineTest, CompletionKnowsFieldsAndTheirValues) {
  for (const Row& row : RowsOf(CASES "completions.txt", "(.*?)(\"\")? -> ?(.*)"))
    EXPECT_EQ(Shell("bash -c '. " BASH_COMPLETION "; COMP_WORDS=(" MR4500X_CLI " " + row[1] + row[2] +
                    "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _mr4500x_cli; IFS=\"|\"; echo -n \"${COMPREPLY[*]}\"' "
                    "2>/dev/null")
                  .output,
              row[3])
        << row[0];
}

TEST_F(CommandLineTest, ChoosesThePortAndTracesIntoAPipe) {
  const std::string tool = Path("tool") + ' '; // beside settings of its own
  std::filesystem::copy(MR4500X_CLI, Path("tool"));
  const auto expect = [&](const std::string& command, const std::string& output) {
    Ended ended{};
    for (int tries = 0; tries < 8 && !ended.output.starts_with(output); ++tries) // on a busy machine answers come late
      ended = Shell(command);
    EXPECT_TRUE(ended.output.starts_with(output)) << command << ": " << ended.output;
  };
  PutPortDevices("MR4500X.ini", "COM3=" + file + "\n");
  expect(tool + "identify auto", "auto: no radio answers on any port; COM3: ");
  StartRadio();
  const std::string first = port, memory = Content("memory"), pipe = Path("pipe");
  PutPortDevices("MR4500X.ini", "COM3=" + first + "\nCOM4=" + first + "\n"); // two names of one device
  expect(tool + "identify auto", "auto: COM3\nID Number");
  expect("MR4500X_PORT=3 " + tool + "identify", "ID Number");
  expect("MR4500X_PORT=" + first + ' ' + tool + "write -n --quick --backup " + Path("kept ") + file,
         "Battery Save  10s");
  EXPECT_TRUE(Content("memory") == memory && !std::filesystem::exists(Path("kept")));
  Shell("mkfifo " + pipe);
  expect(tool + "identify 3 --trace " + pipe, pipe + ": No such device or address\n");
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  expect(tool + "identify 3 --trace " + pipe, "ID Number");
  std::string trace(10'000, '\0');
  EXPECT_GT(read(reader, trace.data(), trace.size()), 0);
  close(reader);
  EXPECT_GE(CountOf(trace, "computer 72 45 41 44\n"), 1U);
  expect("timeout 5 head -c 1 " + pipe + " >" + Path("trace") + " & sleep 0.1; " + tool + "identify 3 --trace " + pipe,
         "ID Number");
  StartRadio(" --fault short-reply", "memory2"); // it answers, even if its records are wrong
  PutPortDevices("MR4500X.ini", "COM3=" + first + "\nCOM16=" + port + "\n");
  expect(tool + "identify auto", "auto: more than one radio answers: COM3 COM16\n");
  EndRadio();
}

// The help lists the options of each command, and completion asks for them.
TEST_F(CommandLineTest, ManAndManualKnowEveryCommandAndOption) {
  std::string man = Shell("sed 's/\\\\-/-/g' " MAN_PAGE).output, manual = Shell("cat " MANUAL).output;
  std::string completion = Shell("grep -A1 -- '-o | --output' " BASH_COMPLETION " | tr ')' ' '").output;
  const auto matches = [](const std::string& text, const char* pattern) {
    std::set<std::string> found;
    const std::regex form(pattern);
    for (std::sregex_iterator at(text.begin(), text.end(), form), end; at != end; ++at)
      found.insert(at->str(1));
    return found;
  };
  std::vector<std::string> commands{""};
  std::string texts;
  for (std::size_t i = 0; i < commands.size(); ++i) {
    const std::string command = commands[i], help = Cli(command + " --help").output;
    texts += help;
    const std::size_t subcommands = help.find("\nSubcommands:");
    const bool hasCommands = subcommands != std::string::npos;
    for (const std::string& name : matches(hasCommands ? help.substr(subcommands) : "", "\n  ([a-z]+) "))
      if (name != "help") commands.push_back(command.empty() ? name : command + ' ' + name);
    const std::size_t begin = man.find("mr4500x-cli " + command + '\n');
    const std::string synopsis = man.substr(std::min(begin, man.size()), man.find("\n.br", begin) - begin);
    std::set<std::string> options = matches(help, "\n  (?:-[a-z],)?(--[a-z-]+)");
    EXPECT_EQ(CountOf(help, "\nExample: mr4500x-cli " + command) * CountOf(help, "\nExit status: 0 "),
              command.empty() ? 0U : 1U)
        << help;
    const std::string example = help.substr(std::min(help.find("\nExample: "), help.size()));
    EXPECT_TRUE(std::ranges::includes(options, matches(example, " (--[a-z-]+)"))) << example;
    for (const std::string& option : matches(help, "\n  (?:-[a-z],)?(--[a-z-]+) [A-Z](?!xcludes)"))
      EXPECT_NE(completion.find(" " + option + " "), std::string::npos) << command << ' ' << option << " has a value";
    for (const std::string& option : options)
      EXPECT_NE((synopsis + manual).find(option), std::string::npos) << command << ' ' << option;
    for (const char* const everywhere : {"--help", "--trace", "--version"})
      options.erase(everywhere);
    const bool mayLackSynopsis = hasCommands && begin == std::string::npos;
    EXPECT_EQ(mayLackSynopsis ? options : matches(synopsis, "(--[a-z-]+)"), options) << command;
  }
  std::ifstream help(CASES "help.txt"); // all of them, the tool's own first and the simulator's last
  EXPECT_EQ(texts + Shell(LR7200_SIMULATOR " --help").output, std::string(std::istreambuf_iterator<char>(help), {}));
}

} // namespace
} // namespace mr4500x
