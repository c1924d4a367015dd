#include "kept_copies.h"

#include "files_fixture.h"

#include <unistd.h>

namespace mr4500x {

class KeptCopiesTest : public FilesTest {
protected:
  [[nodiscard]] std::string Folder() const { return Path("state/kept"); }
  [[nodiscard]] std::set<std::string> Kept() const {
    std::set<std::string> names;
    if (!std::filesystem::exists(Folder())) return names;
    for (const auto& entry : std::filesystem::directory_iterator(Folder()))
      names.insert(entry.path().filename());
    return names;
  }
  static KeptCopy Copy(const std::string& at, std::uint8_t byte = 1) {
    RadioImage image;
    image.ChannelBlock.bytes.fill(byte);
    const auto data = BuildDataFile(image);
    const std::string differences =
        "CH3 Rx Freq (MHz): 446.00000 -> 446.00625\n" + std::string(byte == 2 ? 70'000 : 0, 'x');
    return {{data.begin(), data.end()}, at, "/home/a\nb/Fleet 1.K4X", differences};
  }
  void LeaveCopy(const std::string& at, std::uint8_t byte = 1) {
    KeptCopies ended(files, Folder());
    ASSERT_TRUE(ended.Keep(Copy(at, byte)));
  }
  // Leaves a copy of which only the beginning is there.
  void LeaveDamaged(std::size_t size) {
    const auto before = Kept();
    LeaveCopy("2026-11-25 04:10:33");
    for (const std::string& name : Kept())
      if (name.ends_with(".K4X") && !before.contains(name)) std::filesystem::resize_file(Folder() + '/' + name, size);
  }
};

TEST_F(KeptCopiesTest, AWindowTakesOnlyTheCopiesOfWindowsThatHaveEnded) {
  KeptCopies running(files, Folder());
  ASSERT_TRUE(running.Keep(Copy("2026-11-25 04:10:33", 7)));
  LeaveCopy("2026-11-25 04:10:31", 2);
  LeaveCopy("2026-11-25 04:10:32", 3);
  for (const std::string& name : Kept())
    EXPECT_EQ(std::filesystem::status(Folder() + '/' + name).permissions(), std::filesystem::perms(0600)) << name;

  KeptCopies next(files, Folder());
  const auto newest = next.NextLeft();
  ASSERT_TRUE(newest);
  const KeptCopy expected = Copy("2026-11-25 04:10:32", 3);
  EXPECT_EQ(newest->data, expected.data);
  EXPECT_EQ(newest->at, expected.at);
  EXPECT_EQ(newest->source, "/home/a b/Fleet 1.K4X");
  EXPECT_EQ(newest->differences, expected.differences);
  EXPECT_EQ(KeptCopies(files, Folder()).NextLeft()->at, "2026-11-25 04:10:31") << "held by a window that asks";
  next.PutLeftAside();
  EXPECT_EQ(next.NextLeft()->at, "2026-11-25 04:10:31");
  next.TakeLeft();
  EXPECT_FALSE(next.NextLeft()) << "asked twice, or took the copy of a running window";
}

TEST_F(KeptCopiesTest, TheTenNewestOfThosePutAsideStay) {
  std::filesystem::create_directories(Folder());
  for (const char* const own :
       {"0 my own.K4X", "2026-11-25 my own file.K4X", "2026-11-25_04-10-00_a", "my own file is a co_py.K4X"})
    std::ofstream(Folder() + '/' + own) << "a user's file";
  KeptCopies copies(files, Folder());
  for (int second = 10; second < 22; ++second) {
    ASSERT_TRUE(copies.Keep(Copy("2026-11-25 04:10:" + std::to_string(second))));
    copies.PutAside();
  }
  std::string seconds;
  for (const std::string& name : Kept())
    if (!name.ends_with(".lock"))
      seconds += name.starts_with("2026-11-25_04-10-") ? name.substr(17, 2) + ' ' : name + ' ';
  EXPECT_EQ(seconds,
            "0 my own.K4X 2026-11-25 my own file.K4X 00 12 13 14 15 16 17 18 19 20 21 my own file is a co_py.K4X ");
  ASSERT_TRUE(copies.Keep(Copy("2004-01-01 00:00:00"))); // the clock is wrong
  copies.PutAside();
  const auto isLate = [](const std::string& name) { return name.starts_with("2004"); };
  EXPECT_TRUE(std::ranges::any_of(Kept(), isLate));
  for (const bool isAll : {true, false}) { // removed by another program
    EXPECT_TRUE(copies.Keep(Copy("2026-11-25 04:11:00")));
    for (const std::string& name : Kept())
      if (isAll || name.ends_with(".lock")) std::filesystem::remove(Folder() + '/' + name);
    if (isAll) std::filesystem::remove(Folder());
    EXPECT_TRUE(copies.Keep(Copy("2026-11-25 04:12:00")));
    EXPECT_EQ(Kept().size(), 2U) << "a copy and its lock";
  }
}

TEST_F(KeptCopiesTest, ADamagedCopyKeepsItsDateAndItsTurnToGo) {
  LeaveDamaged(DataFileBytes);
  files.alter = [](const std::string& path, FileStatus& status) {
    if (path.ends_with(".K4X")) status.changed = {2026, 11, 25, 4, 10, 33};
  };
  KeptCopies next(files, Folder());
  EXPECT_FALSE(next.NextLeft());
  const auto unreadable = next.TakeUnreadable();
  ASSERT_EQ(unreadable.size(), 1U);
  EXPECT_EQ(Kept().size(), 1U) << "its lock is left";
  EXPECT_TRUE(unreadable[0].starts_with(Folder() + "/2026-11-25_04-10-33_")) << unreadable[0];
  for (int second = 10; second < 19; ++second) {
    ASSERT_TRUE(next.Keep(Copy("2026-11-25 04:10:" + std::to_string(second))));
    next.PutAside();
  }
  ASSERT_TRUE(next.Keep(Copy("2026-11-25 04:10:40")));
  next.PutAside();
  EXPECT_TRUE(std::filesystem::exists(unreadable[0])) << "older ones go first";
  EXPECT_FALSE(next.NextLeft());
  EXPECT_TRUE(next.TakeUnreadable().empty()) << "named twice";
}

TEST_F(KeptCopiesTest, EachCopyIsOfferedOnceEvenIfItsFolderCannotBeWritten) {
  for (const std::size_t size : {std::size_t{300}, DataFileBytes, DataFileBytes + 3, DataFileBytes + 27})
    LeaveDamaged(size);
  LeaveCopy("2026-11-25 04:10:31");
  LeaveCopy("2026-11-25 04:10:32");
  files.canRename = files.canCreate = files.canWrite = false;
  KeptCopies next(files, Folder());
  for (const char* const at : {"2026-11-25 04:10:32", "2026-11-25 04:10:31"}) {
    const auto copy = next.NextLeft();
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->at, at);
    next.PutLeftAside();
  }
  EXPECT_FALSE(next.NextLeft()) << "asked for ever";
  EXPECT_EQ(next.TakeUnreadable().size(), 4U);
}

// Some network file systems lock only files that are open for writing, others none at all.
TEST_F(KeptCopiesTest, CopiesAreKeptAndOfferedWhateverTheFileSystemLocks) {
  using Locks = FaultyFileSystem::Locks;
  for (const Locks locks : {Locks::OfWriters, Locks::None}) {
    SCOPED_TRACE(locks == Locks::None ? "none" : "of writers");
    std::filesystem::remove_all(Folder());
    files.locks = locks;
    KeptCopies running(files, Folder());
    ASSERT_TRUE(running.Keep(Copy("2026-11-25 04:10:33", 7)));
    EXPECT_EQ(Kept().size(), 2U) << "lock files of attempts are left";
    auto next = std::make_unique<KeptCopies>(files, Folder());
    EXPECT_FALSE(next->NextLeft()) << "of a running window";
    EXPECT_EXIT( // leaves its copy as a crash does
        {
          auto* const crashed = new KeptCopies(files, Folder());
          _exit(crashed->Keep(Copy("2026-11-25 04:10:34", 8)) ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
    ASSERT_TRUE(next->NextLeft());
    next->TakeLeft();
    next.reset();
    EXPECT_EQ(Kept().size(), 4U) << "the taken copy or its lock is lost";
  }
}

TEST_F(KeptCopiesTest, AFileIsOpenElsewhereWhileAnotherWindowHasIt) {
  Put("a.K4X", "a");
  std::filesystem::create_symlink("a.K4X", Path("link.K4X"));
  Put("b.K4X", "b");
  KeptCopies here(files, Folder()), there(files, Folder());
  there.SetOpenFile(Path("b.K4X"));
  there.SetOpenFile(Path("a.K4X"));
  here.SetOpenFile(Path("a.K4X"));
  EXPECT_TRUE(here.IsOpenElsewhere(Path("link.K4X")));
  EXPECT_TRUE(there.IsOpenElsewhere(Path("a.K4X")));
  EXPECT_FALSE(here.IsOpenElsewhere(Path("b.K4X"))) << "it was closed";
  there.SetOpenFile("");
  EXPECT_EXIT(
      {
        (new KeptCopies(files, Folder()))->SetOpenFile(Path("a.K4X"));
        _exit(0);
      },
      testing::ExitedWithCode(0), "");
  EXPECT_FALSE(here.IsOpenElsewhere(Path("a.K4X"))) << "the other windows have closed it or crashed";
  EXPECT_FALSE(there.NextLeft());
  KeptCopies(files, Folder()).SetOpenFile(Path("b.K4X")); // and closes
  EXPECT_EQ(Kept().size(), 2U) << "the one that crashed is held no longer";
}

TEST_F(KeptCopiesTest, NoFailingCallLosesTheCopy) {
  for (const std::string act : {"take", "put aside", "replace"})
    for (int call = 1, calls = call; call <= calls; ++call) {
      SCOPED_TRACE(act + (" with call " + std::to_string(call)) + " failing");
      std::filesystem::remove_all(Folder());
      LeaveCopy("2026-11-25 04:10:33");
      FaultyFileSystem faulty;
      faulty.failAt = call;
      {
        KeptCopies copies(faulty, Folder());
        if (copies.NextLeft()) act == "put aside" ? copies.PutLeftAside() : copies.TakeLeft();
        if (act == "replace") static_cast<void>(copies.Keep(Copy("2026-11-25 04:10:34")));
      }
      calls = faulty.calls;
      const auto names = Kept();
      EXPECT_TRUE(std::any_of(names.begin(), names.end(), [&](const std::string& file) {
        return file.ends_with(".K4X") && std::filesystem::file_size(Folder() + '/' + file) > DataFileBytes;
      }));
    }
}

} // namespace mr4500x
