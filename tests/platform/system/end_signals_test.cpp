#include "end_signals.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <set>
#include <thread>

#include <unistd.h>

namespace mr4500x {
namespace {

// "held" is what a program still says that a signal has not ended at once.
TEST(EndSignals, WaitUntilTheLastHolderHasGone) {
  const auto nested = [](int signal) {
    const EndSignalsHeld outer;
    std::raise(signal);
    { const EndSignalsHeld inner; } // neither forgets the signal nor lets it through
    std::fputs("held", stderr);
  };
  const auto inTwoThreads = [](int signal) {
    std::optional<EndSignalsHeld> first(std::in_place);
    std::jthread([&] {
      const EndSignalsHeld second;
      first.reset();
      std::raise(signal);
      std::fputs("held", stderr);
    });
  };
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    EXPECT_EXIT(nested(signal), testing::KilledBySignal(signal), "^held$");
    EXPECT_EXIT(inTwoThreads(signal), testing::KilledBySignal(signal), "^held$");
  }
}

TEST(EndSignals, EndTheWaitForInputWhetherTheyComeBeforeOrDuringIt) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const auto await = [&](int before, unsigned alarmMicroseconds) {
    const EndSignalsHeld held;
    if (before != 0) std::raise(before);
    std::signal(SIGALRM, [](int) { std::raise(SIGINT); });
    ualarm(alarmMicroseconds, 0);
    std::fputs(AwaitInput(ends[0]) ? "input" : "end", stderr);
  };
  EXPECT_EXIT(await(SIGTERM, 0), testing::KilledBySignal(SIGTERM), "^end$");
  EXPECT_EXIT(await(0, 20000), testing::KilledBySignal(SIGINT), "^end$");
  ASSERT_EQ(write(ends[1], "y", 1), 1);
  EXPECT_EXIT((await(0, 0), std::_Exit(0)), testing::ExitedWithCode(0), "^input$");
}

// "heard" is what a program says from its event loop.
TEST(EndSignals, AreReportedFromTheEventLoopTheFirstTimeOrAlways) {
  const auto hear = [](int signal, NextSignal next, int times) {
    int count = 0;
    const QCoreApplication application(count, nullptr);
    const EndSignalsHeard hearing([&](int reported) { std::fputs(reported == signal ? "heard " : "other", stderr); },
                                  next);
    for (; times > 0; --times) {
      std::raise(signal);
      QCoreApplication::processEvents();
    }
    std::_Exit(0);
  };
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    EXPECT_EXIT(hear(signal, NextSignal::Ends, 1), testing::ExitedWithCode(0), "^heard $") << signal;
    EXPECT_EXIT(hear(signal, NextSignal::Ends, 2), testing::KilledBySignal(signal), "^heard $") << signal;
    EXPECT_EXIT(hear(signal, NextSignal::IsReported, 2), testing::ExitedWithCode(0), "^heard heard $") << signal;
  }
}

TEST(EndSignals, AreReportedAfterTheLastHolderUnlessTheyAreIgnored) {
  int count = 0;
  const QCoreApplication application(count, nullptr);
  std::vector<int> reported;
  std::signal(SIGINT, SIG_IGN);
  {
    const EndSignalsHeard hearing([&](int signal) { reported.push_back(signal); }, NextSignal::Ends);
    std::optional<EndSignalsHeld> held(std::in_place);
    for (const int signal : {SIGHUP, SIGTERM, SIGINT, SIGTERM})
      std::raise(signal);
    QCoreApplication::processEvents();
    EXPECT_TRUE(IsEnding());
    EXPECT_EQ(reported, std::vector<int>());
    held.reset();
    EXPECT_FALSE(IsEnding());
    QCoreApplication::processEvents();
    EXPECT_EQ(std::set(reported.begin(), reported.end()), (std::set{SIGHUP, SIGTERM}));
  }
  std::signal(SIGINT, SIG_DFL);
}

} // namespace
} // namespace mr4500x
