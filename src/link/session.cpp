#include "session.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr Milliseconds BeforeWakeUp{80};
constexpr Milliseconds AfterIdentity{10};
constexpr Milliseconds BeforeRequest{10};
constexpr Milliseconds BeforeRecords{20};
constexpr Milliseconds QuietTime{20};
constexpr int QuietRounds = 10;
constexpr Milliseconds AfterQuickRecords{30}; // the end of a session can't be repeated
constexpr Milliseconds AfterLeaving{20};      // for bytes that an adapter still holds when the driver's buffer is empty
constexpr int RecordReplyRounds = 21;

constexpr std::size_t RecordHeaderBytes = 4; // 57, address high, address low, count
constexpr std::size_t RecordFrameBytes = RecordHeaderBytes + RecordBytes;
constexpr std::uint8_t RecordMark = 0x57;
constexpr std::uint8_t Acknowledge = 0x06;

// 72 45 41 44: "rEAD", answered by 06
constexpr std::array<std::uint8_t, 4> ReadWord = {0x72, 0x45, 0x41, 0x44};
// 77 52 49 54 45: "wRITE", answered by the identity
constexpr std::array<std::uint8_t, 5> WriteWord = {0x77, 0x52, 0x49, 0x54, 0x45};
// 57 AA AA AA: ends a read, not answered
constexpr std::array<std::uint8_t, 4> EndOfRead = {0x57, 0xAA, 0xAA, 0xAA};
// 57 AA AA AA 55 55 55 55 55 55 55 55: ends a write, answered by a status; also ends any session that failed
constexpr std::array<std::uint8_t, 12> EndOfSession = {0x57, 0xAA, 0xAA, 0xAA, 0x55, 0x55,
                                                       0x55, 0x55, 0x55, 0x55, 0x55, 0x55};

// The memory page 0x200 to 0x2FF: the write stamp in its first 16 bytes, then the embedded information.
constexpr std::uint8_t InfoPage = 0x02;
constexpr std::size_t StampBytes = 0x10;

// Here, nullopt means that the port failed.
std::optional<LineBytes> ReceiveReply(SerialLine& line, Milliseconds pause) {
  std::optional<LineBytes> reply = line.Receive();
  line.Wait(pause);
  return line.DiscardInput() ? reply : std::nullopt;
}

std::optional<LineBytes> AwaitReply(SerialLine& line, std::size_t count, int rounds, Milliseconds pause) {
  if (line.Poll(count, rounds) == Polled::PortFailed) return std::nullopt;
  return ReceiveReply(line, pause);
}

// The radio's answer, possibly empty. The tries end when `answerBytes` have arrived.
std::optional<LineBytes> WakeUp(SerialLine& line, std::span<const std::uint8_t> word, int tries,
                                std::size_t answerBytes, int rounds, Milliseconds afterAnswer) {
  for (int attempt = 0; attempt < tries; ++attempt) {
    if (!line.DiscardOutput() || !line.DiscardInput()) return std::nullopt;
    line.Wait(BeforeWakeUp);
    if (!line.Send(word) || line.Poll(answerBytes, rounds) == Polled::PortFailed) return std::nullopt;
    // Check again: an answer that arrives in the 20 ms of the last round counts.
    const std::optional<std::size_t> waiting = line.BytesWaiting();
    if (!waiting) return std::nullopt;
    if (*waiting >= answerBytes) break;
  }
  return ReceiveReply(line, afterAnswer);
}

// 57 hi lo 08
std::array<std::uint8_t, RecordHeaderBytes> RecordHeader(std::uint16_t address) {
  return {RecordMark, static_cast<std::uint8_t>(address >> 8), static_cast<std::uint8_t>(address & 0xFF), RecordBytes};
}

// 57 hi lo 08 d0 d1 d2 d3 d4 d5 d6 d7
std::array<std::uint8_t, RecordFrameBytes> RecordWrite(std::uint16_t address, const RecordData& data) {
  std::array<std::uint8_t, RecordFrameBytes> frame{};
  const auto header = RecordHeader(address);
  std::copy(data.begin(), data.end(), std::copy(header.begin(), header.end(), frame.begin()));
  return frame;
}

bool IsAcknowledge(std::span<const std::uint8_t> reply) {
  return !reply.empty() && reply[0] == Acknowledge;
}

// The data of a reply, according to its count; nullopt if it has fewer bytes.
std::optional<std::span<const std::uint8_t>> DataOf(std::span<const std::uint8_t> reply) {
  const auto data = reply.subspan(RecordHeaderBytes);
  if (reply[3] > data.size()) return std::nullopt;
  return data.first(reply[3]);
}

// Discards the rest of a wrong answer, until nothing more arrives.
bool AwaitQuiet(SerialLine& line) {
  std::optional<std::size_t> waiting = 1;
  for (int round = 0; round < QuietRounds && waiting.value_or(0) > 0; ++round) {
    if (!line.DiscardInput()) return false;
    line.Wait(QuietTime);
    waiting = line.BytesWaiting();
  }
  return waiting.has_value();
}

// Sends a frame and takes its answer as soon as it is complete: `count` bytes that begin with `start`. Returns nothing
// for any other or a missing answer, after the line has become quiet.
std::optional<LineBytes> AskQuickly(SerialLine& line, std::span<const std::uint8_t> frame, std::size_t count,
                                    std::span<const std::uint8_t> start, int rounds,
                                    const std::function<void()>& whileSending) {
  if (!line.Write(frame)) return std::nullopt;
  whileSending();
  if (!line.Drain() || line.Await(count, rounds) == Polled::PortFailed) return std::nullopt;
  std::optional<LineBytes> answer = line.Receive();
  const bool isRight =
      answer && answer->size() == count && std::ranges::equal(std::span(*answer).first(start.size()), start);
  if (isRight || !answer) return answer;
  return AwaitQuiet(line) ? std::optional(LineBytes{}) : std::nullopt;
}

// Asks quickly until that fails, and from then on with the prescribed waits.
template<class Quickly, class Prescribed>
std::optional<LineBytes> Ask(Speed& speed, Quickly quickly, Prescribed prescribed) {
  if (speed == Speed::Quick) {
    std::optional<LineBytes> answer = quickly();
    if (!answer || !answer->empty()) return answer;
    speed = Speed::Prescribed;
  }
  return prescribed();
}

Moved EndRecords(SerialLine& line, Speed speed) {
  if (speed == Speed::Quick) line.Wait(AfterQuickRecords);
  return Moved::All;
}

bool SendEnd(SerialLine& line, std::span<const std::uint8_t> packet) {
  const bool isSent = line.DiscardInput() && line.DiscardOutput() && line.Send(packet);
  line.AwaitSent();
  return isSent;
}

} // namespace

bool WakeToRead(SerialLine& line, const ReadPace& pace) {
  const auto answer = WakeUp(line, ReadWord, pace.tries, 1, pace.wakeUpRounds, pace.afterWakeUp);
  return answer && IsAcknowledge(*answer);
}

std::optional<Identity> WakeToWrite(SerialLine& line, const WritePace& pace) {
  Identity identity;
  const auto answer = WakeUp(line, WriteWord, pace.tries, identity.bytes.size(), pace.wakeUpRounds, AfterIdentity);
  if (!answer || answer->size() < identity.bytes.size()) return std::nullopt;
  std::copy_n(answer->begin(), identity.bytes.size(), identity.bytes.begin());
  return identity;
}

Moved ReadRecords(SerialLine& line, const ReadPace& pace, Speed speed, Addresses addresses,
                  const std::function<bool(std::span<const std::uint8_t>)>& take) {
  for (const std::uint16_t address : addresses) {
    const auto request = RecordHeader(address);
    const auto quickly = [&] { return AskQuickly(line, request, RecordFrameBytes, request, RecordReplyRounds, [] {}); };
    const auto prescribed = [&]() -> std::optional<LineBytes> {
      if (!line.DiscardOutput()) return std::nullopt;
      line.Wait(BeforeRequest);
      if (!line.Send(request)) return std::nullopt;
      return AwaitReply(line, RecordFrameBytes, RecordReplyRounds, pace.afterReply);
    };
    const auto reply = Ask(speed, quickly, prescribed);
    if (!reply) return Moved::PortFailed;
    if (reply->size() < RecordFrameBytes || reply->front() != RecordMark) return Moved::BadAnswer;
    if (!take(*reply)) return Moved::Refused;
  }
  return EndRecords(line, speed);
}

bool PlaceReply(RadioImage& image, std::span<const std::uint8_t> reply) {
  const auto data = DataOf(reply);
  const auto address = static_cast<std::uint16_t>((reply[1] << 8) | reply[2]);
  return data && PlaceRecord(image, address, *data) != PlaceResult::Unfit;
}

bool PlaceInfoReply(RadioImage& image, std::span<const std::uint8_t> reply) {
  if (reply[1] != InfoPage) return true;
  const bool isStamp = reply[2] < StampBytes;
  const auto block = BlockBytes(image, isStamp ? ImageBlock::WriteStampBlock : ImageBlock::EmbeddedInfoBlock);
  const std::size_t offset = isStamp ? reply[2] : reply[2] - StampBytes;
  const auto data = DataOf(reply);
  if (!data || offset + data->size() > block.size()) return false;
  std::ranges::copy(*data, block.begin() + static_cast<std::ptrdiff_t>(offset));
  return true;
}

bool PrepareToWrite(SerialLine& line) {
  if (!line.DiscardOutput()) return false;
  line.Wait(BeforeRecords);
  return true;
}

Moved WriteRecords(SerialLine& line, const WritePace& pace, Speed speed, Addresses addresses,
                   const std::function<std::optional<RecordData>(std::uint16_t)>& give,
                   const std::function<void()>& written) {
  for (const std::uint16_t address : addresses) {
    const auto data = give(address);
    if (!data) return Moved::Refused;
    const auto frame = RecordWrite(address, *data);
    const auto quickly = [&] {
      return AskQuickly(line, frame, 1, std::span(&Acknowledge, 1), pace.acknowledgeRounds, written);
    };
    const auto prescribed = [&]() -> std::optional<LineBytes> {
      if (!line.Write(frame)) return std::nullopt;
      written();
      if (!line.Drain()) return std::nullopt;
      line.Wait(pace.afterRecord);
      if (!line.DiscardOutput()) return std::nullopt;
      return AwaitReply(line, 1, pace.acknowledgeRounds, Milliseconds{0});
    };
    const auto reply = Ask(speed, quickly, prescribed);
    if (!reply) return Moved::PortFailed;
    if (!IsAcknowledge(*reply)) return Moved::BadAnswer;
  }
  return EndRecords(line, speed);
}

bool EndReading(SerialLine& line) {
  return SendEnd(line, EndOfRead);
}

bool EndSession(SerialLine& line) {
  return SendEnd(line, EndOfSession);
}

void LeaveSession(SerialLine& line) {
  if (EndSession(line)) line.Wait(AfterLeaving);
}

// 4F 4B "OK", 4E 47 "NG". Any two bytes other than "NG" count as "OK".
bool AwaitGoodStatus(SerialLine& line, const WritePace& pace) {
  const auto status = AwaitReply(line, 1, pace.statusRounds, Milliseconds{0});
  return status && status->size() == 2 && *status != LineBytes{0x4E, 0x47};
}

} // namespace mr4500x
