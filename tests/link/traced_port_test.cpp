#include "traced_port.h"

#include "require.h"
#include "scripted_radio.h"

#include <sstream>

namespace mr4500x {
namespace {

TEST(TracedPort, ShowsEveryFrameWithItsTimeAndItsRecordAndChangesNoWait) {
  Computer computer, plain;
  std::ostringstream trace;
  TracedPort port(
      computer.radio, computer.radio, [] { return LocalTime{2026, 11, 4, 9, 5, 7}; }, trace);
  SerialLine line(port, computer.radio, 3);
  computer.radio.spoil = plain.radio.spoil = [](std::size_t frame, LineBytes& reply) {
    if (frame == 1) reply.insert(reply.end(), 6, 0xEE); // two of them too late
  };
  ASSERT_EQ(ReadIdentity(line, computer.image, computer).outcome, Outcome::Complete);
  ASSERT_EQ(ReadIdentity(plain.line, plain.image, plain).outcome, Outcome::Complete);
  EXPECT_EQ(computer.radio.now, plain.radio.now);
  EXPECT_EQ(computer.radio.frames, plain.radio.frames);
  const std::string begin =
      "2026-11-04 09:05:07\n"
      "     0.0 computer 72 45 41 44\n"
      "    25.0 radio    06\n"
      "    65.0 computer 57 01 F0 08                         0x1F0 RadioIdBlock\n"
      "    90.0 radio    57 01 F0 08 B2 D7 FC 21 46 6B 90 B5 EE EE EE EE EE EE 0x1F0 RadioIdBlock\n";
  EXPECT_EQ(trace.str().substr(0, begin.size()), begin);

  computer.radio.spoil = [&](std::size_t, LineBytes& reply) { reply.assign(40, 0xEE); };
  ASSERT_EQ(WriteRadio(
                line, computer.image, [] { return LocalTime{}; }, computer)
                .outcome,
            Outcome::WrongModel);
  EXPECT_TRUE(trace.str().ends_with(" EE EE EE EE             thrown away\n")) << trace.str();
  computer.radio.operationsLeft = 0;
  ASSERT_EQ(ReadIdentity(line, computer.image, computer).outcome, Outcome::PortNotOpened);
  EXPECT_TRUE(trace.str().ends_with("the port has failed\n")) << trace.str();
}

} // namespace
} // namespace mr4500x
