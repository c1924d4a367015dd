// Every way in which an exchange can fail: its result, the bytes on the line, and the content of the image.
#include "require.h"
#include "scripted_radio.h"

namespace mr4500x {
namespace {

using enum Outcome;
using enum Transfer;
using Fault = std::function<void(Computer&)>;

// From frame `first` on (0 is the wake-up) the answers are spoilt by `how`.
template<class How>
Fault From(std::size_t first, How how) {
  return [=](Computer& computer) {
    computer.radio.spoil = [=, &computer](std::size_t frame, LineBytes& reply) {
      if (frame >= first) how(computer.radio, reply);
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
Fault Close(std::size_t frame) { return From(frame, [](auto& radio, auto& reply) { reply.clear(); radio.open = false; }); }
const Fault NoPort = [](Computer& computer) { computer.radio.openFailure = "Access is denied."; };
const Fault NotShown = [](Computer& computer) { computer.canShow = false; };
const Fault OtherBand = [](Computer& computer) { computer.radio.identity[4] = 0x02; };
const Fault LateStatus = [](Computer& computer) { computer.radio.latency = 48ms; }; // second byte 50.5 ms after the end packet

constexpr int Untouched = -1;

const struct {
  const char* name;
  Transfer transfer;
  Fault fault;
  Outcome outcome;
  std::size_t frames; // frames on the line, including the end packet
  bool endPacket;     // the last of them is the 12-byte end of session
  int records;        // stored in the image (reads), begun (writes); Untouched: not even cleared or stamped
  Clock::Moment end{}; // where an answer was waited for in vain: the time until the last byte was sent or awaited
} Cases[] = {
    {"no port",                Read,      NoPort,                  PortNotOpened,   0, false, Untouched},
    {"no answer",              Read,      Silent(0),               NoResponse,      4, false, Untouched, 1310ms},
    {"short record",           Read,      Cut(11),                 Interrupted,    13, true,  10, 1345ms},
    {"port closed at the end", Read,      Close(103),              Interrupted,   105, true,  102},
    {"count over the reply",   Read,      Byte(35, 3, 9),          DataError,      36, false, 34},
    {"address not of 8",       Read,      Byte(2, 2, 0x0C),        DataError,       3, false, 1},
    {"count over a record",    Read,      Answer(2, {0x57, 0, 0, 9, 1, 2, 3, 4, 5, 6, 7, 8, 9}),
                                                                   DataError,       3, false, 1},
    {"not shown",              Read,      NotShown,                DisplayError,  106, true,  103},

    {"no identity",            Write,     Silent(0),               NoResponse,      5, false, Untouched, 1621250us},
    {"model by byte 5",        Write,     Byte(0, 5, 0x01),        WrongModel,      1, false, Untouched},
    {"model by byte 6",        Write,     Byte(0, 6, 0x31),        WrongModel,      1, false, Untouched},
    {"band declined",          Write,     OtherBand,               BandDeclined,    2, true,  Untouched},
    {"not acknowledged",       Write,     Silent(11),              Interrupted,    13, true,  11, 1056250us},
    {"NG",                     Write,     Answer(67, {'N', 'G'}),  DataError,      68, true,  66},
    {"no status",              Write,     Silent(67),              DataError,      68, true,  66, 4131250us},

    {"no answer",              ReadInfo,  Silent(0),               NoResponse,      4, false, Untouched, 2100ms},
    {"over the stamp's end",   ReadInfo,  Byte(2, 2, 0x09),        DataError,       3, false, 1},
    {"not shown",              ReadInfo,  NotShown,                DisplayError,   35, true,  32},

    {"short identity",         WriteInfo, Cut(0),                  NoResponse,      4, false, Untouched, 2115ms},
    {"not acknowledged",       WriteInfo, Silent(1),               Interrupted,     3, true,  1, 706250us},
    {"late status",            WriteInfo, LateStatus,              DataError,      32, true,  30},
};
// clang-format on

std::string NameOf(Transfer transfer) {
  const char* names[] = {"read ", "write ", "read info ", "write info "};
  return names[static_cast<int>(transfer)];
}

// Brings `image` to what it must hold after `records` of the exchange.
void Follow(RadioImage& image, Transfer transfer, int records, const ScriptedRadio& radio) {
  if (transfer == Write) Stamp(image, {2004, 11, 4, 9, 5, 7});
  if (transfer == Read) ClearForReading(image);
  if (transfer == ReadInfo) image.EmbeddedInfoBlock = {};
  if (transfer == Write || transfer == WriteInfo) return;
  for (auto frame = radio.frames.begin() + 1; records > 0; ++frame, --records) {
    const auto address = static_cast<std::uint16_t>(frame->at(1) * 256 + frame->at(2));
    EXPECT_NE(PlaceRecord(image, address, std::span(radio.memory).subspan(address, 8)), PlaceResult::Unfit);
  }
}

TEST(ExchangeFault, EndsWithItsOutcomeAndLeavesRadioAndImageInADefinedState) {
  for (const auto& c : Cases) {
    SCOPED_TRACE(NameOf(c.transfer) + c.name);
    Computer computer;
    ResetToDefaults(computer.image, {2001, 2, 3, 4, 5, 6});
    computer.image.FirmwareVersionBlock.fill(0x66);
    RadioImage expected = computer.image;
    c.fault(computer);
    const ExchangeResult result = computer.Run(c.transfer);
    EXPECT_EQ(result.outcome, c.outcome);
    EXPECT_EQ(result.systemDescription, computer.radio.openFailure.value_or(""));
    EXPECT_EQ(computer.maximum > 0, c.records != Untouched);
    EXPECT_EQ(computer.completions, c.outcome == DisplayError ? 1 : 0);
    EXPECT_EQ(computer.questions, c.outcome == BandDeclined ? 1 : 0);
    EXPECT_TRUE(c.end == 0ms || computer.radio.now == c.end) << computer.radio.now.count();
    ASSERT_EQ(computer.radio.frames.size(), c.frames);
    EXPECT_EQ(c.frames > 0 && computer.radio.frames.back() == EndPacket, c.endPacket);
    if (c.records != Untouched) Follow(expected, c.transfer, c.records, computer.radio);
    EXPECT_EQ(computer.image, expected);
  }
}

// The faults of the line in one answer.
using Spoil = void (*)(ScriptedRadio& radio, LineBytes& reply);
// clang-format off
const std::pair<const char*, Spoil> Spoils[] = {
    {"lost",       [](auto&, auto& reply) { reply.clear(); }},
    {"cut",        [](auto&, auto& reply) { reply.pop_back(); }},
    {"longer",     [](auto&, auto& reply) { reply.push_back(0x00); }},
    {"first byte", [](auto&, auto& reply) { reply[0] ^= 0x80; }},
    {"noise",      [](auto&, auto& reply) { reply.insert(reply.begin(), 0xFF); }},
    {"pause",      [](auto& radio, auto& reply) { radio.gap = {reply.size() / 2, 100ms}; }},
    {"too long",   [](auto& radio, auto& reply) { radio.gap = {reply.size() / 2, 600ms}; }}, // longer than the wait
    {"gone",       [](auto& radio, auto&) { radio.operationsLeft = 0; }},
};
// The end of an exchange with one corrupted answer. NotTried: a late answer to a wake-up would coincide with the next
// one.
enum class End { Works, Broken, Bad, Unheard, OtherModel, NotTried };
using Ends = std::array<End, std::size(Spoils)>;
using enum End;
//                            lost    cut     longer  first byte  noise       pause   too long  gone
constexpr Ends OfWakeUp    = {Works,  Works,  Works,  Unheard,    Unheard,    Works,  NotTried, Unheard};
constexpr Ends OfIdentity  = {Works,  Works,  Works,  OtherModel, OtherModel, Works,  NotTried, Unheard};
constexpr Ends OfRecord    = {Broken, Broken, Works,  Broken,     Broken,     Works,  Broken,   Bad};
constexpr Ends OfQuick    = {Works,  Works,  Works,  Works,      Works,      Works,  Broken,   Bad};
constexpr Ends OfStatus    = {Bad,    Bad,    Bad,    Works,      Bad,        Bad,    Bad,      Bad};

const struct SpoiltExchange {
  Transfer transfer;
  Speed speed;
  Ends first, ofRecord;
  std::size_t records;
  bool hasStatus;
  Outcome broken;
} Exchanges[] = {
    {Read,      Speed::Prescribed, OfWakeUp,   OfRecord, 103, false, Interrupted},
    {Write,     Speed::Prescribed, OfIdentity, OfRecord,  66, true,  Interrupted},
    {Read,      Speed::Quick,      OfWakeUp,   OfQuick,  103, false, Interrupted},
    {Write,     Speed::Quick,      OfIdentity, OfQuick,   66, true,  Interrupted},
    {ReadInfo,  Speed::Prescribed, OfWakeUp,   OfRecord,  32, false, DataError},
    {WriteInfo, Speed::Prescribed, OfIdentity, OfRecord,  30, true,  Interrupted},
};
// clang-format on

Outcome OutcomeOf(End end, const SpoiltExchange& exchange) {
  if (end == Broken) return exchange.broken;
  return end == Works ? Complete : end == Bad ? DataError : end == Unheard ? NoResponse : WrongModel;
}

// Runs an exchange with one spoilt answer, and once more a second later. `whole` has been through it undisturbed.
void RunSpoilt(const SpoiltExchange& exchange, std::size_t frame, Spoil spoil, Outcome outcome, const Computer& whole,
               const RadioImage& before) {
  Computer computer;
  computer.image = before;
  computer.speed = exchange.speed;
  computer.radio.spoil = [&](std::size_t at, LineBytes& reply) {
    if (at == frame) spoil(computer.radio, reply);
  };
  ASSERT_EQ(computer.Run(exchange.transfer).outcome, outcome);
  ASSERT_EQ(computer.maximum > 0, frame > 0 || outcome == Complete);
  ASSERT_TRUE(outcome != Interrupted || computer.radio.frames.back() == EndPacket);
  RadioImage expected = outcome == Complete ? whole.image : before;
  if (outcome != Complete && frame > 0)
    Follow(expected, exchange.transfer, static_cast<int>(frame) - 1, computer.radio);
  ASSERT_EQ(computer.image, expected);

  computer.radio.spoil = nullptr;
  computer.radio.operationsLeft = ScriptedRadio::MostOperations;
  computer.radio.now += 1s;
  ASSERT_EQ(computer.Run(exchange.transfer).outcome, Complete);
  ASSERT_EQ(computer.image, whole.image);
  ASSERT_EQ(computer.radio.memory, whole.radio.memory);
}

// The image is correct afterwards, and the next try works. In the middle of the records the faults alternate.
TEST(ExchangeFault, IsSurvivedAtEveryAnswerOfEveryExchange) {
  for (const SpoiltExchange& exchange : Exchanges) {
    Computer whole;
    ResetToDefaults(whole.image, {2001, 2, 3, 4, 5, 6});
    const RadioImage before = whole.image;
    ASSERT_EQ(whole.Run(exchange.transfer).outcome, Complete);
    const std::size_t answers = 1 + exchange.records + (exchange.hasStatus ? 1 : 0);
    for (std::size_t frame = 0; frame < answers; ++frame) {
      const Ends& ends = frame == 0 ? exchange.first : frame <= exchange.records ? exchange.ofRecord : OfStatus;
      for (std::size_t way = 0; way < ends.size(); ++way) {
        const bool isInTheMiddle = frame > 2 && frame < exchange.records;
        if (ends[way] == NotTried || (isInTheMiddle && frame % ends.size() != way)) continue;
        const auto& [name, spoil] = Spoils[way];
        SCOPED_TRACE(NameOf(exchange.transfer) + (exchange.speed == Speed::Quick ? "quickly " : "") + "frame " +
                     std::to_string(frame) + ' ' + name);
        RunSpoilt(exchange, frame, spoil, OutcomeOf(ends[way], exchange), whole, before);
      }
    }
  }
}

TEST(ExchangeFault, GivesUpSendingAfterTwoSeconds) {
  Computer computer;
  computer.radio.open = computer.radio.stuck = true;
  EXPECT_FALSE(computer.line.Send(EndPacket));
  EXPECT_EQ(computer.radio.now, 2s);
  EXPECT_GT(computer.radio.operationsLeft, 0);
}

// Whichever operation the port fails at, the failure is noticed, and the later it comes the later its phase.
TEST(ExchangeFault, IsNoticedAtEveryOperationOfThePort) {
  for (const Transfer transfer : {Read, Write, ReadInfo, WriteInfo}) {
    const Outcome phases[] = {PortNotOpened, NoResponse, DataError, Complete};
    auto phase = std::begin(phases);
    for (int operations = 0; *phase != Complete; ++operations) {
      Computer computer;
      computer.radio.operationsLeft = operations;
      const Outcome outcome = computer.Run(transfer).outcome;
      if (outcome != *phase) ++phase;
      ASSERT_EQ(outcome, *phase) << NameOf(transfer) << operations;
      ASSERT_EQ(computer.maximum > 0, outcome == DataError || outcome == Complete) << NameOf(transfer) << operations;
    }
  }
}

} // namespace
} // namespace mr4500x
