// Reading and writing the embedded information alone.
#include "exchange_steps.h"
#include "record_order.h"

#include <algorithm>

namespace mr4500x {

namespace {

constexpr WakeUpCall ReadCall = {ReadWord, /*tries*/ 4, /*answerBytes*/ 1, /*rounds*/ 21, Milliseconds{0}};
constexpr WakeUpCall WriteCall = {WriteWord, /*tries*/ 4, IdentityBytes, /*rounds*/ 21, Milliseconds{10}};
constexpr Milliseconds AfterReply{0};
constexpr Milliseconds BeforeRecords{20};
constexpr Milliseconds StatusTime{50}; // the status is not polled for
constexpr int AcknowledgeRounds = 21;
constexpr int ReadProgressMaximum = 160;
constexpr int WriteProgressMaximum = 150;
constexpr auto ReadAddresses = RecordAddresses<ReadInfoOrder>();
constexpr auto WriteAddresses = RecordAddresses<WriteInfoOrder>();

constexpr Failure ReadError = {Outcome::DataError, "Read Information Error",
                               "Read information error, please try again."};
constexpr Failure DisplayError = {Outcome::DisplayError, "Information Error",
                                  "Data that has been read can't correctly display!", /*endsSession*/ true};
constexpr Failure WriteInterrupted = {Outcome::Interrupted, "Information Error",
                                      "Writing information is interrupted, please try again.",
                                      /*endsSession*/ true};
constexpr Failure WriteError = {Outcome::DataError, "Write Information Error",
                                "Writing information error, please try again."};

// The memory page of the write stamp, 0x00 to 0x0F in it, and of the embedded information after that.
constexpr std::uint8_t InfoPage = 0x02;
constexpr std::size_t StampBytes = 0x10;

// Stores a reply from any byte of the page on, not in whole records only. Replies from other pages are not for us.
// False when it does not fit.
bool PlaceInfoReply(RadioImage& image, std::span<const std::uint8_t> reply) {
  if (reply[1] != InfoPage) return true;
  const bool isStamp = reply[2] < StampBytes;
  const auto block = BlockBytes(image, isStamp ? ImageBlock::WriteStampBlock : ImageBlock::EmbeddedInfoBlock);
  const std::size_t offset = isStamp ? reply[2] : reply[2] - StampBytes;
  const std::size_t count = reply[3];
  const auto data = reply.subspan(RecordHeaderBytes);
  if (count > data.size() || offset + count > block.size()) return false;
  std::copy_n(data.begin(), count, block.begin() + static_cast<std::ptrdiff_t>(offset));
  return true;
}

} // namespace

Outcome ReadEmbeddedInfo(const Exchange& exchange, RadioImage& image, const std::function<bool()>& showInfo) {
  const auto& [line, progress, messages] = exchange;
  if (!line.OpenPort(messages)) return FailToOpen(exchange);

  const auto answer = WakeUp(line, ReadCall);
  if (!answer || !IsAcknowledge(*answer)) return FailWithoutResponse(exchange);

  image.EmbeddedInfoBlock = EmbeddedInfo{};
  progress.Open("Read Emedded Information", "Reading embedded information from the radio ...", ReadProgressMaximum);
  int value = 0;
  for (const std::uint16_t address : ReadAddresses) {
    const auto reply = RequestRecord(line, address, AfterReply);
    if (!reply || !IsRecordReply(*reply) || !PlaceInfoReply(image, *reply)) return Fail(exchange, ReadError);
    value += ProgressPerRecord;
    progress.SetValue(value);
  }

  if (!line.DiscardInput() || !line.DiscardOutput() || !line.Send(EndOfRead)) return Fail(exchange, ReadError);
  progress.SetValue(ReadProgressMaximum);
  line.Wait(BeforeClosingProgress);
  progress.Close();

  ShowCompletion(exchange, "Read Information Completely",
                 "Read information is complete. Press OK button to continue ...");
  if (!showInfo()) return Fail(exchange, DisplayError);
  line.ClosePort();
  return Outcome::Complete;
}

Outcome WriteEmbeddedInfo(const Exchange& exchange, const RadioImage& image, const std::function<void()>& showWritten) {
  const auto& [line, progress, messages] = exchange;
  if (!line.OpenPort(messages)) return FailToOpen(exchange);

  const auto identity = WakeUp(line, WriteCall);
  if (!identity || identity->size() < IdentityBytes) return FailWithoutResponse(exchange);
  if (!IsOfThisSeries(*identity)) return FailWithWrongModel(exchange);

  if (!line.DiscardOutput()) return FailWithoutResponse(exchange);
  line.Wait(BeforeRecords);
  progress.Open("Write Embedded Information", "Write embedded information to radio ...", WriteProgressMaximum);
  int value = 0;
  for (const std::uint16_t address : WriteAddresses) {
    const auto data = TakeRecord(image, address);
    if (!data || !line.Write(RecordWrite(address, *data))) return Fail(exchange, WriteError);
    value += ProgressPerRecord;
    progress.SetValue(value);
    if (!line.Drain() || !line.DiscardOutput()) return Fail(exchange, WriteError);
    const auto reply = AwaitReply(line, 1, AcknowledgeRounds);
    if (!reply) return Fail(exchange, WriteError);
    if (!IsAcknowledge(*reply)) return Fail(exchange, WriteInterrupted);
  }

  if (!SendEndOfSession(line)) return Fail(exchange, WriteError);
  progress.SetValue(WriteProgressMaximum);
  line.Wait(StatusTime);
  progress.Close();
  const auto status = line.Receive();
  if (!status || !line.DiscardInput() || !IsGoodStatus(*status)) return Fail(exchange, WriteError);

  ShowCompletion(exchange, "Write Information Completely", "Write information completely. Press OK to continue.");
  showWritten();
  line.ClosePort();
  return Outcome::Complete;
}

} // namespace mr4500x
