#include "kept_copies.h"

#include "files_fixture.h"

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
    return {{data.begin(), data.end()}, at, "/home/a b/Fleet 1.K4X", "CH3 Rx Freq (MHz): 446.00000 -> 446.00625\n"};
  }
  void LeaveCopy(const std::string& at, std::uint8_t byte = 1) {
    KeptCopies ended(files, Folder());
    ASSERT_TRUE(ended.Keep(Copy(at, byte)));
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
  EXPECT_EQ(newest->source, expected.source);
  EXPECT_EQ(newest->differences, expected.differences);
  EXPECT_EQ(KeptCopies(files, Folder()).NextLeft()->at, "2026-11-25 04:10:31") << "held by a window that asks";
  next.PutLeftAside();
  EXPECT_EQ(next.NextLeft()->at, "2026-11-25 04:10:31");
  next.TakeLeft();
  EXPECT_FALSE(next.NextLeft()) << "asked twice, or took the copy of a running window";
}

TEST_F(KeptCopiesTest, WithoutUnsavedWorkAWindowLeavesNothing) {
  {
    KeptCopies copies(files, Folder());
    ASSERT_TRUE(copies.Keep(Copy("2026-11-25 04:10:33")));
    copies.Drop();
    EXPECT_FALSE(copies.NextLeft());
  }
  EXPECT_EQ(Kept(), std::set<std::string>());
}

TEST_F(KeptCopiesTest, TheTenNewestOfThosePutAsideStay) {
  std::filesystem::create_directories(Folder());
  std::ofstream(Folder() + "/0 my own.K4X") << "a user's file";
  KeptCopies copies(files, Folder());
  for (int second = 10; second < 22; ++second) {
    ASSERT_TRUE(copies.Keep(Copy("2026-11-25 04:10:" + std::to_string(second))));
    copies.PutAside();
  }
  std::string seconds;
  for (const std::string& name : Kept())
    if (name.ends_with(".K4X"))
      seconds += name.starts_with("2026-11-25_04-10-") ? name.substr(17, 2) + ' ' : name + ' ';
  EXPECT_EQ(seconds, "0 my own.K4X 12 13 14 15 16 17 18 19 20 21 ");
  ASSERT_TRUE(copies.Keep(Copy("2004-01-01 00:00:00"))); // the clock is wrong
  copies.PutAside();
  const auto isLate = [](const std::string& name) { return name.starts_with("2004"); };
  EXPECT_TRUE(std::ranges::any_of(Kept(), isLate));
  std::filesystem::remove_all(Folder()); // by somebody else
  EXPECT_TRUE(copies.Keep(Copy("2026-11-25 04:11:00")));
}

TEST_F(KeptCopiesTest, NothingIsOfferedFromADamagedCopy) {
  LeaveCopy("2026-11-25 04:10:33");
  for (const std::string& name : Kept())
    if (name.ends_with(".K4X")) std::filesystem::resize_file(Folder() + '/' + name, 300);
  KeptCopies next(files, Folder());
  EXPECT_FALSE(next.NextLeft());
  EXPECT_EQ(Kept().size(), 1U) << "the damaged copy is put aside";
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
