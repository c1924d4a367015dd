// Every way in which an exchange can go wrong: what the user sees, what is on the line, what survives in the image.
#include "scripted_radio.h"

namespace mr4500x {
namespace {

using enum Outcome;
using Exchanging = Outcome (Desk::*)();
constexpr Exchanging Read = &Desk::Read, Write = &Desk::Write, ReadInfo = &Desk::ReadInfo, WriteInfo = &Desk::WriteInfo;

using Fault = std::function<void(Desk&)>;

// From frame `first` on (0 is the wake-up) the answers are spoilt by `how`.
template<class How>
Fault From(std::size_t first, How how) {
  return [=](Desk& desk) {
    desk.radio.spoil = [=, &desk](std::size_t frame, LineBytes& reply) {
      if (frame >= first) how(desk.radio, reply);
    };
  };
}

// clang-format off
Fault Answer(std::size_t frame, const LineBytes& bytes) { return From(frame, [=](auto&, auto& reply) { reply = bytes; }); }
Fault Silent(std::size_t frame) { return Answer(frame, {}); }
Fault Cut(std::size_t frame) { return From(frame, [](auto&, auto& reply) { reply.pop_back(); }); }
Fault Byte(std::size_t frame, std::size_t index, std::uint8_t value) {
  return From(frame, [=](auto&, auto& reply) { reply.at(index) = value; });
}
Fault Vanish(std::size_t frame) { return From(frame, [](auto& radio, auto&) { radio.operationsLeft = 0; }); }
Fault Close(std::size_t frame) { return From(frame, [](auto& radio, auto& reply) { reply.clear(); radio.open = false; }); }
const Fault NoPort = [](Desk& desk) { desk.radio.openFailure = "Access is denied."; };
const Fault NotShown = [](Desk& desk) { desk.canShow = false; };
const Fault OtherBand = [](Desk& desk) { desk.radio.identity[4] = 0x02; };
const Fault LateStatus = [](Desk& desk) { desk.radio.latency = 48ms; }; // second byte 50.5 ms after the end packet

constexpr char CannotOpen[]  = "X|Error|COM3: Access is denied.";
constexpr char Dead[]        = "!|Communication port error|COM3 port don't respond, please check your connection!";
constexpr char Model[]       = "!|Error|The radio model is wrong. The connected radio doesn't belong to LR7200 Series. Can't continue!";
constexpr char Band[]        = "!|Frequency Band|The frequency band is different from the destination radio model.Are you still continue?";
constexpr char ReadBroken[]  = "!|Read Interrupt|Reading is interrupted, please retry Read.";
constexpr char ReadBad[]     = "!|Data Error|Read data error, please retry Read.";
constexpr char ReadUnseen[]  = "!|Data Error|Data read can't display correctly. Please confirm.";
constexpr char WriteBroken[] = "!|Write Interrupt|Writing is interrupted, please retry Write.";
constexpr char WriteBad[]    = "!|Data Error|Writing data error, please retry Write.";
constexpr char InfoReadBad[] = "!|Read Information Error|Read information error, please try again.";
constexpr char InfoUnseen[]  = "!|Information Error|Data that has been read can't correctly display!";
constexpr char InfoBroken[]  = "!|Information Error|Writing information is interrupted, please try again.";
constexpr char InfoBad[]     = "!|Write Information Error|Writing information error, please try again.";

constexpr char ReadDone[]     = "Read Complete|Read data is complete. Press OK button to continue ...";
constexpr char WriteDone[]    = "Write Complete|Write data is complete. Press OK button to continue ...";
constexpr char InfoReadDone[] = "Read Information Completely|Read information is complete. Press OK button to continue ...";
constexpr char InfoDone[]     = "Write Information Completely|Write information completely. Press OK to continue.";

constexpr int Untouched = -1;

const struct {
  Exchanging run;
  Fault fault;
  Outcome outcome;
  const char* message;
  std::size_t frames; // on the line, the end packet included
  bool endPacket;     // the last of them is the 12-byte end of session
  int records;        // stored in the image (reads), begun (writes); Untouched: not even cleared or stamped
  Clock::Moment end{}; // where an answer was waited for in vain: the time until the last byte was sent or awaited
} Cases[] = {
    {Read,      NoPort,                    PortNotOpened, CannotOpen,    0, false, Untouched},
    {Read,      Silent(0),                 NoResponse,    Dead,          4, false, Untouched, 1310ms},
    {Read,      Answer(0, {0x15, 0x06}),   NoResponse,    Dead,          1, false, Untouched},
    {Read,      Cut(11),                   Interrupted,   ReadBroken,   13, true,  10, 1325ms},
    {Read,      Close(103),                Interrupted,   ReadBroken,  105, true,  102},
    {Read,      Vanish(104),               DataError,     ReadBad,     105, false, 103},
    {Read,      Byte(35, 3, 9),            DataError,     ReadBad,      36, false, 34}, // a count over the bytes received
    {Read,      Byte(2, 2, 0x0C),          DataError,     ReadBad,       3, false, 1},  // no multiple of 8
    {Read,      Answer(2, {0x57, 0, 0, 9, 1, 2, 3, 4, 5, 6, 7, 8, 9}),
                                           DataError,     ReadBad,       3, false, 1},
    {Read,      NotShown,                  DisplayError,  ReadUnseen,  106, true,  103},

    {Write,     Silent(0),                 NoResponse,    Dead,          5, false, Untouched, 1621250us},
    {Write,     Cut(0),                    NoResponse,    Dead,          5, false, Untouched},
    {Write,     Byte(0, 5, 0x01),          WrongModel,    Model,         1, false, Untouched},
    {Write,     Byte(0, 6, 0x31),          WrongModel,    Model,         1, false, Untouched},
    {Write,     OtherBand,                 BandDeclined,  Band,          2, true,  Untouched}, // the answer is No
    {Write,     Silent(11),                Interrupted,   WriteBroken,  13, true,  11, 1036250us},
    {Write,     Close(66),                 Interrupted,   WriteBroken,  68, true,  66},
    {Write,     Answer(67, {'N', 'G'}),    DataError,     WriteBad,     68, true,  66},
    {Write,     Silent(67),                DataError,     WriteBad,     68, true,  66, 4131250us},

    {ReadInfo,  Silent(0),                 NoResponse,    Dead,          4, false, Untouched, 2100ms},
    {ReadInfo,  Byte(3, 3, 9),             DataError,     InfoReadBad,   4, false, 2},
    {ReadInfo,  Byte(2, 2, 0x09),          DataError,     InfoReadBad,   3, false, 1}, // over the end of the stamp
    {ReadInfo,  NotShown,                  DisplayError,  InfoUnseen,   35, true,  32},

    {WriteInfo, Cut(0),                    NoResponse,    Dead,          4, false, Untouched, 2115ms},
    {WriteInfo, Silent(1),                 Interrupted,   InfoBroken,    3, true,  1, 686250us},
    {WriteInfo, Answer(31, {'N', 'G'}),    DataError,     InfoBad,      32, true,  30},
    {WriteInfo, LateStatus,                DataError,     InfoBad,      32, true,  30},
};
// clang-format on

// Brings `image` to what it must hold after `records` of the exchange.
void Follow(RadioImage& image, Exchanging run, int records, const ScriptedRadio& radio) {
  if (run == Write) Stamp(image, {2004, 11, 4, 9, 5, 7});
  if (run == Read) ClearForReading(image);
  if (run == ReadInfo) image.EmbeddedInfoBlock = {};
  if (run == Write || run == WriteInfo) return;
  for (auto frame = radio.frames.begin() + 1; records > 0; ++frame, --records) {
    const auto address = static_cast<std::uint16_t>(frame->at(1) * 256 + frame->at(2));
    EXPECT_NE(PlaceRecord(image, address, std::span(radio.memory).subspan(address, 8)), PlaceResult::Unfit);
  }
}

TEST(ExchangeFault, EndsWithItsMessageAndLeavesTheRadioAndTheImageAsAgreed) {
  for (const auto& c : Cases) {
    SCOPED_TRACE("case " + std::to_string(&c - Cases));
    Desk desk;
    ResetToDefaults(desk.image, {2001, 2, 3, 4, 5, 6});
    desk.image.FirmwareVersionBlock.fill(0x66);
    RadioImage expected = desk.image;
    c.fault(desk);
    EXPECT_EQ((desk.*c.run)(), c.outcome);
    EXPECT_EQ(desk.shown.back(), c.message);
    EXPECT_TRUE(c.end == 0ms || desk.radio.now == c.end) << desk.radio.now.count();
    // The progress window, the completion, the failure.
    EXPECT_EQ(desk.shown.size(), 1u + (c.records != Untouched) + (c.outcome == DisplayError));
    ASSERT_EQ(desk.radio.frames.size(), c.frames);
    EXPECT_EQ(c.frames > 0 && desk.radio.frames.back() == EndPacket, c.endPacket);
    if (c.records != Untouched) Follow(expected, c.run, c.records, desk.radio);
    EXPECT_EQ(desk.image, expected);
    EXPECT_FALSE(desk.showsProgress || desk.radio.open);
  }
}

// What the line can do to one answer: lose it, its last byte, add a byte, spoil the first, put noise before it, pause
// in it for less and for more than the exchange waits, go away.
using Spoil = void (*)(ScriptedRadio& radio, LineBytes& reply);
const Spoil Spoils[] = {
    [](ScriptedRadio&, LineBytes& reply) { reply.clear(); },
    [](ScriptedRadio&, LineBytes& reply) { reply.pop_back(); },
    [](ScriptedRadio&, LineBytes& reply) { reply.push_back(0x00); },
    [](ScriptedRadio&, LineBytes& reply) { reply[0] ^= 0x80; },
    [](ScriptedRadio&, LineBytes& reply) { reply.insert(reply.begin(), 0xFF); },
    [](ScriptedRadio& radio, LineBytes& reply) {
      radio.gap = {reply.size() / 2, 100ms};
    },
    [](ScriptedRadio& radio, LineBytes& reply) {
      radio.gap = {reply.size() / 2, 600ms};
    },
    [](ScriptedRadio& radio, LineBytes&) { radio.operationsLeft = 0; },
};
// How an exchange ends whose one answer was spoilt. NotTried: a late answer to a wake-up would meet the next wake-up.
enum class End { Works, Broken, Bad, Unheard, OtherModel, NotTried };
using Ends = std::array<End, std::size(Spoils)>;
using enum End;
// clang-format off
//                            lost    cut     longer  first       noise       pause   too long  gone
constexpr Ends OfWakeUp    = {Works,  Works,  Works,  Unheard,    Unheard,    Works,  NotTried, Unheard};
constexpr Ends OfIdentity  = {Works,  Works,  Works,  OtherModel, OtherModel, Works,  NotTried, Unheard};
constexpr Ends OfRecord    = {Broken, Broken, Works,  Broken,     Broken,     Works,  Broken,   Bad};
constexpr Ends OfStatus    = {Bad,    Bad,    Bad,    Works,      Bad,        Bad,    Bad,      Bad};

struct Ending { Outcome outcome; const char* message; };
const struct SpoiltExchange {
  Exchanging run;
  Ends first;
  std::size_t records;
  bool hasStatus;
  Ending broken, bad, works;
} Exchanges[] = {
    {Read,      OfWakeUp,   103, false, {Interrupted, ReadBroken},  {DataError, ReadBad},     {Complete, ReadDone}},
    {Write,     OfIdentity,  66, true,  {Interrupted, WriteBroken}, {DataError, WriteBad},    {Complete, WriteDone}},
    {ReadInfo,  OfWakeUp,    32, false, {DataError, InfoReadBad},   {DataError, InfoReadBad}, {Complete, InfoReadDone}},
    {WriteInfo, OfIdentity,  30, true,  {Interrupted, InfoBroken},  {DataError, InfoBad},     {Complete, InfoDone}},
};
// clang-format on

Ending EndingOf(End end, const SpoiltExchange& exchange) {
  switch (end) {
  case Broken:
    return exchange.broken;
  case Bad:
    return exchange.bad;
  case Unheard:
    return {NoResponse, Dead};
  case OtherModel:
    return {WrongModel, Model};
  default:
    return exchange.works;
  }
}

// Runs an exchange with one spoilt answer, and once more a second later. `whole` has been through it undisturbed.
void RunSpoilt(const SpoiltExchange& exchange, std::size_t frame, Spoil spoil, const Ending& ending, const Desk& whole,
               const RadioImage& before) {
  Desk desk;
  desk.image = before;
  desk.radio.spoil = [&](std::size_t at, LineBytes& reply) {
    if (at == frame) spoil(desk.radio, reply);
  };
  ASSERT_EQ((desk.*exchange.run)(), ending.outcome);
  ASSERT_EQ(desk.shown.back(), ending.message);
  ASSERT_EQ(desk.shown.size(), frame == 0 && ending.outcome != Complete ? 1u : 2u); // the progress window is one
  ASSERT_TRUE(ending.outcome != Interrupted || desk.radio.frames.back() == EndPacket);
  ASSERT_FALSE(desk.showsProgress || desk.radio.open);
  RadioImage expected = ending.outcome == Complete ? whole.image : before;
  if (ending.outcome != Complete && frame > 0) Follow(expected, exchange.run, static_cast<int>(frame) - 1, desk.radio);
  ASSERT_EQ(desk.image, expected);

  desk.radio.spoil = nullptr;
  desk.radio.operationsLeft = 1'000'000;
  desk.radio.now += 1s;
  ASSERT_EQ((desk.*exchange.run)(), Complete);
  ASSERT_EQ(desk.image, whole.image);
  ASSERT_EQ(desk.radio.memory, whole.radio.memory);
}

// Each ends with its one message or with success, the image is as agreed, and the next try works.
TEST(ExchangeFault, IsSurvivedInEveryWayAtEveryAnswerOfEveryExchange) {
  int cases = 0;
  for (const SpoiltExchange& exchange : Exchanges) {
    Desk whole;
    ResetToDefaults(whole.image, {2001, 2, 3, 4, 5, 6});
    const RadioImage before = whole.image;
    ASSERT_EQ((whole.*exchange.run)(), Complete);
    const std::size_t answers = 1 + exchange.records + (exchange.hasStatus ? 1 : 0);
    for (std::size_t frame = 0; frame < answers; ++frame) {
      const Ends& ends = frame == 0 ? exchange.first : frame <= exchange.records ? OfRecord : OfStatus;
      for (std::size_t way = 0; way < ends.size(); ++way) {
        if (ends[way] == NotTried) continue;
        SCOPED_TRACE(exchange.works.message + (" frame " + std::to_string(frame)) + " way " + std::to_string(way));
        RunSpoilt(exchange, frame, Spoils[way], EndingOf(ends[way], exchange), whole, before);
        ++cases;
      }
    }
  }
  RecordProperty("cases", cases);
  EXPECT_EQ(cases, 1892);
}

// Whichever operation the port fails at, the failure is noticed, and the later it comes the later its phase.
TEST(ExchangeFault, IsNoticedAtEveryOperationOfThePort) {
  for (const Exchanging run : {Read, Write, ReadInfo, WriteInfo}) {
    const Outcome phases[] = {PortNotOpened, NoResponse, DataError, Complete};
    auto phase = std::begin(phases);
    for (int operations = 0; *phase != Complete; ++operations) {
      Desk desk;
      desk.radio.operationsLeft = operations;
      const Outcome outcome = (desk.*run)();
      if (outcome != *phase) ++phase;
      ASSERT_EQ(outcome, *phase) << operations;
      ASSERT_EQ(desk.shown.size(), outcome >= DataError || outcome == Complete ? 2u : 1u) << operations;
      ASSERT_FALSE(desk.showsProgress || desk.radio.open) << operations;
    }
  }
}

} // namespace
} // namespace mr4500x
