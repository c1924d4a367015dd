#include "simulated_radio.h"

#include "hex_bytes.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;
using Moment = SimulatedRadio::Moment;

constexpr const char* Reading = "READ 57 00 00 08 57 00 08 08 57 AA AA AA";
constexpr const char* Writing = "WRITE 57 00 00 08 1 2 3 4 5 6 7 8 57 00 08 08 1 2 3 4 5 6 7 8 END";
constexpr const char* Identity = "52 B8 01 D6 01 00 30 00 00";

struct Case {
  const char* fault;
  const char* sent;
  std::string answers; // from a memory of zeros with a band of 440 to 470 MHz
  Moment lastDelay{0};
};

void PrintTo(const Case& c, std::ostream* out) {
  *out << c.fault;
}

class SimulatedFault : public testing::TestWithParam<Case> {};

TEST_P(SimulatedFault, ShowsItselfOnTheLine) {
  RadioMemory memory{};
  const auto band = FromHex("B8 01 D6 01");
  std::copy(band.begin(), band.end(), memory.begin() + 0x3F0);
  const auto fault = ParseFault(GetParam().fault);
  ASSERT_TRUE(fault.has_value());
  SimulatedRadio radio(memory, 0us, FaultPlan({*fault}));
  radio.Hear(FromHex(GetParam().sent), 1s);
  auto answers = radio.TakeReplies(1s + GetParam().lastDelay - 1us);
  const std::size_t early = answers.size();
  const auto last = radio.TakeReplies(1s + GetParam().lastDelay);
  answers.insert(answers.end(), last.begin(), last.end());
  EXPECT_EQ(ToHex(answers), GetParam().answers);
  EXPECT_EQ(answers.size() > early, !answers.empty()) << "something must be due at that very moment";
  EXPECT_EQ(radio.NextReplyAt(), std::nullopt);
  EXPECT_EQ(radio.HasVanished(), fault->fault == Fault::Vanish);
}

const std::string Zeros = " 00 00 00 00 00 00 00 00";
const std::string Record0 = "57 00 00 08" + Zeros;
const std::string Record1 = "57 00 08 08" + Zeros;
const std::string Id = Identity;

INSTANTIATE_TEST_SUITE_P(
    Faults, SimulatedFault,
    testing::Values(
        Case{"silent", Reading, ""}, Case{"silent@1", Reading, "06 " + Record0},
        Case{"silent@0", Writing, Id + " 06 4F 4B"}, Case{"wrong-answer", Reading, "15"},
        Case{"wrong-answer", Writing, "15"}, Case{"late-answer", "READ READ", ""},
        Case{"late-answer", "WRITE WRITE WRITE", Id}, Case{"short-identity", "WRITE", "52 B8 01 D6 01 00 30 00"},
        Case{"wrong-model", "WRITE", "51 B8 01 D6 01 00 30 00 00"},
        Case{"other-band", "WRITE", "52 88 00 AE 00 00 30 00 00"},
        Case{"short-reply@1", Reading, "06 " + Record0 + " 57 00 08 08 00 00 00 00 00 00 00"},
        Case{"foreign-reply@0", Reading, "06 58 00 00 08" + Zeros + " " + Record1},
        Case{"wrong-address@1", Reading, "06 " + Record0 + " 57 03 00 08" + Zeros},
        Case{"bad-count", Reading, "06 57 00 00 10" + Zeros + " 57 00 08 10" + Zeros},
        Case{"long-reply@0", Reading, "06 " + Record0 + " 00 " + Record1},
        Case{"wrong-acknowledge@1", Writing, Id + " 06 15 4F 4B"}, Case{"no-acknowledge", Writing, Id + " 4F 4B"},
        Case{"ng", Writing, Id + " 06 06 4E 47"}, Case{"late-status", Writing, Id + " 06 06 4F 4B", 400ms},
        Case{"long-status", Writing, Id + " 06 06 4F 4B 00"},
        Case{"garbage", Writing, "FF 00 " + Id + " FF 00 06 FF 00 06 FF 00 4F 4B"},
        Case{"garbage@1", Reading, "06 " + Record0 + " FF 00 " + Record1}, Case{"split-reply", "WRITE", Id, 50ms},
        Case{"split-reply@1", Reading, "06 " + Record0 + " " + Record1, 50ms}, Case{"vanish@1", Writing, Id + " 06"}));

TEST(FaultNames, AreRefusedWhenTheySayNothing) {
  for (const char* text : {"", "noise", "silent@", "silent@x", "silent@-1", "silent@1x", "ng@1", "Silent"})
    EXPECT_FALSE(ParseFault(text).has_value()) << text;
  EXPECT_EQ(ParseFault("vanish")->record, 10);
}

} // namespace
} // namespace mr4500x
