#include "exchange_steps.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace mr4500x {

namespace {

// The name of the port stands in the place of %1.
constexpr char NoResponseText[] = "%1 port don't respond, please check your connection!";

constexpr Milliseconds BeforeWakeUp{80};
constexpr Milliseconds BeforeRequest{10};
constexpr int RecordReplyRounds = 21;

constexpr std::uint8_t RecordMark = 0x57;
constexpr std::uint8_t Acknowledge = 0x06;

void ShowFailure(const Exchange& exchange, std::string_view title, std::string_view text) {
  exchange.messages.Show(MessageIcon::Exclamation, title, text, MessageButtons::Ok);
}

// 57 hi lo 08
std::array<std::uint8_t, RecordHeaderBytes> RecordHeader(std::uint16_t address) {
  return {RecordMark, static_cast<std::uint8_t>(address >> 8), static_cast<std::uint8_t>(address & 0xFF), RecordBytes};
}

} // namespace

std::optional<LineBytes> WakeUp(SerialLine& line, const WakeUpCall& call) {
  for (int attempt = 0; attempt < call.tries; ++attempt) {
    if (!line.DiscardOutput() || !line.DiscardInput()) return std::nullopt;
    line.Wait(BeforeWakeUp);
    if (!line.Send(call.word)) return std::nullopt;
    if (line.Poll(call.answerBytes, call.rounds) == Polled::PortFailed) return std::nullopt;
    // Looked at once more: an answer that arrives in the last round's 20 ms counts.
    const std::optional<std::size_t> waiting = line.BytesWaiting();
    if (!waiting) return std::nullopt;
    if (*waiting >= call.answerBytes) break;
  }
  std::optional<LineBytes> answer = line.Receive();
  line.Wait(call.afterAnswer);
  if (!line.DiscardInput()) return std::nullopt;
  return answer;
}

std::optional<LineBytes> AwaitReply(SerialLine& line, std::size_t count, int rounds, Milliseconds pause) {
  if (line.Poll(count, rounds) == Polled::PortFailed) return std::nullopt;
  std::optional<LineBytes> reply = line.Receive();
  line.Wait(pause);
  if (!line.DiscardInput()) return std::nullopt;
  return reply;
}

std::optional<LineBytes> RequestRecord(SerialLine& line, std::uint16_t address, Milliseconds afterReply) {
  if (!line.DiscardOutput()) return std::nullopt;
  line.Wait(BeforeRequest);
  if (!line.Send(RecordHeader(address))) return std::nullopt;
  return AwaitReply(line, RecordFrameBytes, RecordReplyRounds, afterReply);
}

std::array<std::uint8_t, RecordFrameBytes> RecordWrite(std::uint16_t address, const RecordData& data) {
  std::array<std::uint8_t, RecordFrameBytes> frame{};
  const auto header = RecordHeader(address);
  std::copy(data.begin(), data.end(), std::copy(header.begin(), header.end(), frame.begin()));
  return frame;
}

bool IsAcknowledge(std::span<const std::uint8_t> reply) {
  return !reply.empty() && reply[0] == Acknowledge;
}

bool IsRecordReply(std::span<const std::uint8_t> reply) {
  return reply.size() >= RecordFrameBytes && reply[0] == RecordMark;
}

// 52 bb bb bb bb 00 30 xx xx: bb the band, xx not examined
bool IsOfThisSeries(std::span<const std::uint8_t> identity) {
  return identity.size() >= IdentityBytes && identity[0] == 0x52 && identity[5] == 0x00 && identity[6] == 0x30;
}

// 4F 4B "OK" or 4E 47 "NG"
bool IsGoodStatus(std::span<const std::uint8_t> status) {
  return status.size() == 2 && !(status[0] == 0x4E && status[1] == 0x47);
}

std::uint16_t ReplyAddress(std::span<const std::uint8_t> reply) {
  return static_cast<std::uint16_t>((reply[1] << 8) | reply[2]);
}

bool PlaceReply(RadioImage& image, std::span<const std::uint8_t> reply) {
  const std::size_t count = reply[3];
  const auto data = reply.subspan(RecordHeaderBytes);
  return count <= data.size() && PlaceRecord(image, ReplyAddress(reply), data.first(count)) != PlaceResult::Unfit;
}

bool SendEndOfSession(SerialLine& line) {
  return line.DiscardInput() && line.DiscardOutput() && line.Send(EndOfSession);
}

Outcome Fail(const Exchange& exchange, const Failure& failure) {
  exchange.progress.Close();
  if (failure.endsSession) {
    exchange.line.ReopenPort();
    static_cast<void>(SendEndOfSession(exchange.line)); // the message below tells of the failure that came first
  }
  exchange.line.ClosePort();
  ShowFailure(exchange, failure.title, failure.text);
  return failure.outcome;
}

Outcome FailToOpen(const Exchange& exchange) {
  exchange.line.ClosePort();
  return Outcome::PortNotOpened;
}

Outcome FailWithoutResponse(const Exchange& exchange) {
  const std::string text = exchange.line.PortName() + (NoResponseText + std::strlen("%1"));
  return Fail(exchange, {Outcome::NoResponse, "Communication port error", text});
}

Outcome FailWithWrongModel(const Exchange& exchange) {
  ShowFailure(exchange, "Error",
              "The radio model is wrong. The connected radio doesn't belong to LR7200 Series. Can't continue!");
  exchange.line.ClosePort();
  return Outcome::WrongModel;
}

void ShowCompletion(const Exchange& exchange, std::string_view title, std::string_view text) {
  exchange.messages.Show(MessageIcon::None, title, text, MessageButtons::Ok);
}

} // namespace mr4500x
