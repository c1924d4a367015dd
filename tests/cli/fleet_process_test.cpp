// The fleet command with simulated radios, all as processes.
#include "process_fixture.h"

namespace mr4500x {
namespace {

class FleetCommandTest : public CommandLineTest {
protected:
  // A radio with its own memory. Its port is added to `ports`.
  void AddRadio(const std::string& number, const std::string& options = "") {
    StartRadio(" --number " + number + options, number);
    ports += (ports.empty() ? "" : ",") + port;
  }
  Ended Fleet(const std::string& arguments) { return Cli("fleet " + file + " --quick --ports " + ports + arguments); }
  // On a terminal, with an answer to its question.
  Ended FleetOnTerminal(const std::string& arguments, const std::string& answer) {
    return Shell("echo " + answer + " | script -qec '" MR4500X_CLI " fleet " + file + " --quick --ports " + ports +
                 arguments + "' /dev/null");
  }

  std::string ports;
};

TEST_F(FleetCommandTest, EveryRadioGetsItsRowAndIsInTheJournal) {
  Put("rows.csv", "label,radio,channels.1.rx_freq\nCar 1,,446.00625\nCar 2,LR-2,446.01875\nCar 3,,446.03125\n");
  AddRadio("LR-1", " --fault silent@50"); // at the prescribed speed a read is interrupted
  AddRadio("LR-2");
  AddRadio("LR-3", " --fault other-band");
  const std::string rows = " --rows " + Path("rows.csv");
  const Ended two = Fleet(rows + " --count 2 --log " + Path("log.csv") + " --on-verified 'tee -a " + Path("seen") +
                          " | grep -q LR-1 || { echo; echo no label >&2; exit 3; }'");
  EXPECT_EQ(two.status, 1) << "a command has failed\n" << two.output;
  EXPECT_EQ(CountOf(two.output, "row 2, Car 2, radio LR-2: the command ended with status 3: no label\n"), 1U);
  EXPECT_EQ(CountOf(two.output, ": the command "), 1U) << two.output;
  EXPECT_EQ(CountOf(Content("seen"), "{\"format\":1,\"row\":"), 2U) << Content("seen");
  EXPECT_EQ(CountOf(Content("seen"), "\"id_number\":\"LR-2\""), 1U);
  EXPECT_EQ(CountOf(Content("log.csv"), "2,note,"), 1U) << Content("log.csv");
  const std::string dry = "fleet --dry-run " + file + rows;
  ExpectAll({{dry, 0, "3 rows: 2 done, 0 taken, 1 free\n"},
             {dry + " --journal " + Path("none.journal"), 0, "3 rows: 0 done, 0 taken, 3 free\n"},
             {"fleet --dry-run " + file + " --rows " + Path("log.csv"), 2, Path("log.csv line 1, ")}});
  Put("a.journal-wal", "");
  EXPECT_EQ(Cli(dry + " --log " + Path("a.journal-wal")).status, 2) << "is the journal's";
  EXPECT_FALSE(std::filesystem::exists(Path("none.journal")));
  EXPECT_EQ(CountOf(Cli("fleet journal " + file + " --json").output, "\"outcome\": \"verified\""), 2U);
  const std::string radio = "fleet journal " + file + " --radio 'LR-2 '", json = Cli(radio + " --json").output;
  EXPECT_EQ(CountOf(json, "LR-1") + CountOf(json, "\"outcome\": \"verified\""), 1U) << json;
  EXPECT_EQ(CountOf(Cli(radio).output, "Holds row 2, Car 2 since "), 1U) << "whatever the command did";
  EXPECT_EQ(CountOf(two.output, "row 2, Car 2, radio LR-2"), CountOf(two.output, ", radio LR-2: ")) << two.output;

  // Runs again: radios that are done are not written again. The one with another band is, because of the option.
  const Ended all = Fleet(rows + " --accept-band --compare-done --backup " + Path("kept") + " --trace " +
                          Path("traces") + " --log - >" + Path("log2.csv"));
  EXPECT_EQ(all.status, 0) << all.output;
  EXPECT_TRUE(Content("log2.csv").starts_with("row,outcome,")) << Content("log2.csv");
  EXPECT_EQ(CountOf(Content("log2.csv"), ",verified,"), 1U) << "of this bench alone";
  EXPECT_TRUE(Shell("ls " + Path("kept")).output.starts_with("LR-3_"));
  EXPECT_EQ(Shell("grep -l radio " + Path("traces/*.txt") + " | wc -l").output, "3\n") << "one for each port";
  EXPECT_EQ(CountOf(all.output, "done before"), 2U) << all.output;
  EXPECT_GE(CountOf(all.output, ": reading back"), 3U) << "the whole is compared: " << all.output;
  EXPECT_EQ(CountOf(all.output, "LR-3: verified"), 1U) << all.output;
  EXPECT_EQ(
      Shell(MR4500X_CLI " read --quick " + port + " - 2>/dev/null | " MR4500X_CLI " get - channels.1.rx_freq").output,
      all.output.find("row 1, Car 1, radio LR-3") != std::string::npos ? "446.00625\n" : "446.03125\n");

  const Ended listed = Cli("fleet journal " + file);
  EXPECT_EQ(CountOf(listed.output, ": verified\n"), 3U) << listed.output;
  const std::string elsewhere = Shell("TZ=XYZ-5 " MR4500X_CLI " fleet journal " + file).output;
  EXPECT_NE(elsewhere, Shell("TZ=XYZ-6 " MR4500X_CLI " fleet journal " + file).output) << "the times are local";
  EXPECT_TRUE(Cli("fleet journal " + Path("a.journal") + " --csv -").output.starts_with("row,outcome,start,"));
  EXPECT_EQ(Fleet(" --count 1 --trace /proc/self/none").status, 1) << "nothing can be written there";
  EXPECT_EQ(Fleet(" --count 1 --log /proc/self/oom_score_adj").status, 1); // another plan; the log takes no text
  const std::string both = Cli("fleet journal " + file).output;
  EXPECT_EQ(CountOf(both, "plan ") + CountOf(both, "Not verified: "), CountOf(both, "\n")) << both;
  EXPECT_EQ(CountOf(listed.output, "plan "), 0U);
  EndRadio();
}

TEST_F(FleetCommandTest, EntriesThatAMovedJournalMissesAreAddedLater) {
  Put("rows.csv", "label\nCar 1\n");
  AddRadio("LR-1", " --pace 9600");
  const std::string fleet = MR4500X_CLI " fleet " + file + " --quick --ports " + ports + " --rows " + Path("rows.csv");
  const Ended ended =
      Shell(fleet + " --count 1 >" + Path("out") + " & fleet=$!; until grep -qs writing " + Path("out") +
            "; do sleep 0.05; done; mv " + Path("a.journal ") + Path("a.moved; ") + "wait $fleet");
  EXPECT_NE(Content("out").find("verified; unplug the radio: the entry will be added to the journal later\n"),
            std::string::npos);
  EXPECT_EQ(ended.status, 1);
  const std::string journal = std::filesystem::weakly_canonical(Path("a.journal")).string();
  EXPECT_EQ(ended.output, "1 entry is waiting for the journal; the next start will add it.\n" + journal +
                              ": The journal does not exist.\n");
  const std::string late = Path("state/MR4500X/fleet/$(printf %s ") + journal + " | sha256sum | head -c 16)-1.csv";
  EXPECT_EQ(Shell("ls " + late).status, 0) << "each journal has its own";
  Shell("cp " + late + ' ' + Path("late.csv"));
  std::filesystem::rename(Path("a.moved"), Path("a.journal"));
  EXPECT_EQ(Shell(fleet).status, 0);
  EXPECT_EQ(CountOf(Cli("fleet journal " + file).output, "row 1, Car 1, radio LR-1: verified\n"), 1U);
  // Another radio now claims the row: its number and the last digit of its key differ.
  Shell("awk -F, -v OFS=, 'NR > 1 { sub(/LR-1/, \"LR-9\"); $15 = $15 \"9\" } { print }' " + Path("late.csv >") + late);
  const Ended conflict = Shell(fleet);
  EXPECT_EQ(conflict.status, 1);
  EXPECT_EQ(CountOf(conflict.output, "Two radios have one row, or one radio has two rows: row 1, Car 1, radio LR-9"),
            1U)
      << conflict.output;
  EndRadio();
}

TEST_F(FleetCommandTest, AChangedListCarriesOverWhatRadiosHold) {
  const std::string rows = " --rows " + Path("rows.csv"), heading = "label,channels.1.rx_freq\n";
  Put("rows.csv", heading + "Car 1,446.00625\nCar 2,446.01875\n");
  AddRadio("LR-1");
  EXPECT_EQ(Fleet(rows + " --count 1").status, 0);
  Put("rows.csv", heading + "Car 3,446.1\nCar 1,446.00625\nCar 2,446.2\n");
  const std::string changes = "1 done carried over, 1 new, 1 changed";
  const std::string dry = "fleet --dry-run " + file + rows;
  const auto rowsOf = [&](const std::string& options) { return Cli(dry + options).output; };
  ExpectAll({{dry, 1, changes + "\n3 rows: 1 done, 0 taken, 2 free\nUse --carry-over or --start-over.\n"},
             {dry + " --start-over", 0, "Starting over: 1 done not carried over\n3 rows: 0 done, 0 taken, 3 free\n"},
             {dry + " --carry-over", 0, changes + "\n3 rows: 1 done, 0 taken, 2 free\n"},
             {dry + " --start-over --carry-over", 2, ""}});
  const Ended refused = Fleet(rows);
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.output, "The list has changed: " + changes + ". Use --carry-over or --start-over.\n");
  const Ended quit = FleetOnTerminal(rows, "q");
  EXPECT_EQ(quit.status, 1);
  EXPECT_EQ(CountOf(quit.output, changes + ".\r\nCarry these over, start over, or quit? (c/s/q) "), 1U) << quit.output;
  EXPECT_EQ(CountOf(rowsOf(""), "carried over"), 1U) << "nothing was entered";

  // The radio keeps its row, which is another one now. It is not written.
  Shell(MR4500X_CLI " fleet " + file + " --quick --ports " + ports + rows + " --carry-over >" + Path("out") +
        " & fleet=$!; until grep -qs 'unplug the radio' " + Path("out") +
        "; do sleep 0.05; done; kill $fleet; wait $fleet");
  EXPECT_EQ(CountOf(Content("out"), "row 2, Car 1, radio LR-1: done before"), 1U) << Content("out");
  EXPECT_EQ(rowsOf(""), "3 rows: 1 done, 0 taken, 2 free\n") << "the decision is entered";
  // Given out again, it carries over no more. Each decision is an entry of its own.
  const std::string journal = "fleet journal " + file;
  const std::string where = std::filesystem::weakly_canonical(Path("a.journal")).string();
  ExpectAll({{journal + " --free 2", 1, where + ": Row 2 is not taken; it is done.\n"},
             {journal + " --reissue 4", 1, where + ": Row 4 is not in the plan.\n"},
             {journal + " --reissue 2 --plan 0x", 1, where + ": The journal has no plan with this key.\n"},
             {journal + " --reissue 2 --free 2", 2, ""}});
  EXPECT_TRUE(
      Cli(journal + " --reissue 2 --operator Ann").output.ends_with("  Ann: row 2, Car 1, radio LR-1: reissued\n"));
  EXPECT_TRUE(Cli(journal + " --note 1 'new aerial'").output.ends_with("  row 1, Car 3: note: new aerial\n"));
  EXPECT_EQ(rowsOf(""), "3 rows: 0 done, 0 taken, 3 free\n");
  const std::string radio = Cli(journal + " --radio LR-1").output;
  for (const char* const part : {": row 1, Car 1, radio LR-1: verified\n    firmware ", "    backup ", "done before\n",
                                 "Ann: row 2, Car 1, radio LR-1: reissued\n"})
    EXPECT_EQ(CountOf(radio, part), 1U) << part << radio;
  EXPECT_EQ(CountOf(radio, "Holds ") + CountOf(radio, "note"), 0U) << radio;
  EXPECT_EQ(CountOf(Cli(journal + " --radio '\x1b[2J'").output, "\x1b"), 0U);
  Put("rows.csv", heading + "Car 9,446.1\nCar 1,446.00625\n");
  EXPECT_EQ(rowsOf(""), "0 done carried over, 1 new, 0 changed, 1 not done\n2 rows: 0 done, 0 taken, 2 free\n");
  const std::string statistics = Cli(journal + " --statistics").output;
  EXPECT_EQ(CountOf(statistics, "\n"), 2U) << statistics;
  EXPECT_EQ(CountOf(statistics, "         1       0      100 "), 1U) << statistics;
  EXPECT_EQ(CountOf(Cli(journal + " --statistics --json").output, "\"yield\": 1.0,"), 1U);

  // In a list without its row it gets another one.
  Put("rows.csv", heading + "Car 3,446.1\n");
  const Ended other = FleetOnTerminal(rows + " --accept-reissued", "");
  EXPECT_EQ(other.status, 0) << other.output;
  EXPECT_EQ(CountOf(other.output, "0 done carried over, 0 new, 0 changed, 1 not done\r\n"), 1U) << other.output;
  EXPECT_EQ(CountOf(Cli(journal + " --radio LR-1").output, "Holds row 1, Car 3 since "), 1U);
  Put("rows.csv", heading + "Car 3,446.7\n");
  const std::string old = "\nHolds a row of an earlier list: row 1, Car 3, radio LR-1\n";
  EXPECT_EQ(rowsOf(""), "0 done carried over, 0 new, 1 changed" + old + "1 rows: 0 done, 0 taken, 1 free\n");
  // The list before it also has that row left.
  Put("rows.csv", heading + "Car 3,446.1\nCar 1,446.00625\nCar 2,446.2\n");
  const Ended older = Fleet(rows);
  EXPECT_EQ(older.status, 1);
  EXPECT_TRUE(older.output.starts_with("The list has changed: 1 done carried over, 0 new, 1 changed, 1 not done. "))
      << older.output;
  ExpectAll({{dry + " --start-over", 0, "Starting over: 1 done not carried over\n3 rows: 0 done, "},
             {dry + " --carry-over", 0, "1 done carried over, 0 new, 1 changed, 1 not done\n3 rows: 1 done, "}});
  Put("rows.csv", heading + "Car 1,446.00625\nCar 5,446.1\n");
  EXPECT_EQ(rowsOf(""), "0 done carried over, 1 new, 0 changed, 1 not done\n2 rows: 0 done, 0 taken, 2 free\n");

  // A template that was renamed leaves its journal behind; and then the journal is gone.
  std::filesystem::copy(file, Path("b.K4X"));
  const Ended renamed = Cli("fleet " + Path("b.K4X") + rows + " --ports " + ports);
  EXPECT_EQ(renamed.status, 1);
  EXPECT_TRUE(renamed.output.starts_with("This template has the journal ")) << renamed.output;
  EXPECT_FALSE(std::filesystem::exists(Path("b.journal")));
  std::filesystem::create_directory(Path("job"));
  std::filesystem::copy(file, Path("job/a.K4X"));
  EXPECT_EQ(Cli("fleet --dry-run " + Path("job/a.K4X") + rows).status, 0) << "a copy of the same name is another job";
  std::filesystem::rename(Path("a.journal"), Path("b.journal"));
  EXPECT_EQ(Cli("fleet --dry-run " + Path("b.K4X") + rows).status, 0) << "it was renamed as well";
  Cli("set " + Path("b.K4X") + " global.tx_tot=120s");
  ExpectAll({{"fleet --dry-run " + Path("b.K4X") + rows, 1, "The template " + Path("b.K4X") + " has changed, so "}});
  const Ended missing = Fleet(rows + " --carry-over");
  EXPECT_EQ(missing.status, 1);
  EXPECT_TRUE(missing.output.starts_with("A bench has used the journal ")) << missing.output;
  EXPECT_FALSE(std::filesystem::exists(Path("a.journal")));
  EXPECT_EQ(Fleet(rows + " --start-over --count 1").status, 0);

  // A template whose content changes. Another template in the same journal is not meant.
  Cli("set " + file + " global.tx_tot=120s");
  Cli("set " + file + " global.tx_tot=180s --output " + Path("c.K4X"));
  const std::string where2 = " --journal " + Path("a.journal");
  const Ended changed = Fleet(rows + " --carry-over");
  EXPECT_EQ(changed.status, 1);
  EXPECT_TRUE(changed.output.starts_with("The template " + file + " has changed, so ")) << changed.output;
  ExpectAll({{dry, 1, "The template " + file + " has changed, so "},
             {dry + " --start-over", 0, "Starting over: rows that radios hold may be given out again.\n"},
             {"fleet --dry-run " + file, 0, "every radio gets the template: 0 done, 0 taken\n"},
             {"fleet --dry-run " + Path("c.K4X") + rows + where2, 0, "2 rows: 0 done, 0 taken, 2 free\n"}});

  // A radio that is swapped after its backup.
  ports.clear();
  AddRadio("LR-5", " --swap LR-6");
  const Ended swapped = FleetOnTerminal(rows + " --count 1", "y");
  EXPECT_EQ(swapped.status, 1);
  EXPECT_EQ(CountOf(swapped.output,
                    ": radio LR-5: failed; unplug the radio: the radio was swapped in the meantime: LR-5 was "),
            1U)
      << swapped.output;
  EXPECT_EQ(CountOf(swapped.output, "\r\nStart over? (y/n) "), 1U) << swapped.output;
  EXPECT_EQ(CountOf(swapped.output, ", radio LR-6: verified"), 1U) << swapped.output;
  EXPECT_GE(CountOf(swapped.output, "\n0 of 1, 1 failed\r\x1b[K"), 1U) << swapped.output;
  AddRadio("LR-7");
  const Ended rest = Fleet(rows);
  EXPECT_EQ(rest.status, 0) << rest.output;
  EXPECT_EQ(CountOf(rest.output, "\nMay be only partly programmed: row 1, Car 1, radio LR-5\n"), 1U) << rest.output;
  EXPECT_EQ(CountOf(Cli(journal).output, "\nNot verified: radio LR-5, at "), 1U);
  EndRadio();
}

TEST_F(FleetCommandTest, DoesWhatTheFileSays) {
  setenv("radio", LR7200_SIMULATOR, 1);
  setenv("with", CASES "with-radios", 1);
  ExpectLines(CASES "fleet_lines.txt");
}

} // namespace
} // namespace mr4500x
