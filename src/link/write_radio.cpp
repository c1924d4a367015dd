// Writing the image into the radio's memory.
#include <algorithm>

#include "exchange_steps.h"
#include "record_order.h"

namespace mr4500x {

namespace {

constexpr WakeUpCall Call = {WriteWord, /*tries*/ 5, IdentityBytes, /*rounds*/ 11, Milliseconds{10}};
constexpr Milliseconds BeforeRecords{20};
constexpr Milliseconds AfterRecord{20};
constexpr int AcknowledgeRounds = 10;
constexpr int StatusRounds = 10;
constexpr int ProgressMaximum = 330;
constexpr int ProgressAtEnd = 310; // the bar closes before it is full
constexpr auto Addresses = RecordAddresses<WriteOrder>();

constexpr Failure Interrupted = {Outcome::Interrupted, "Write Interrupt", "Writing is interrupted, please retry Write.",
                                 /*endsSession*/ true};
constexpr Failure DataError = {Outcome::DataError, "Data Error", "Writing data error, please retry Write."};

bool AcceptsBand(const Exchange& exchange, const RadioImage& image, const LineBytes& identity) {
  const auto radioBand = identity.begin() + 1;
  if (std::equal(radioBand, radioBand + 4, image.BandBlock.begin())) return true;
  return exchange.messages.Show(
             MessageIcon::Exclamation, "Frequency Band",
             "The frequency band is different from the destination radio model.Are you still continue?",
             MessageButtons::YesNo) == Answer::Yes;
}

} // namespace

Outcome WriteRadio(const Exchange& exchange, RadioImage& image, const std::function<LocalTime()>& now,
                   const std::function<void()>& showWritten) {
  const auto& [line, progress, messages] = exchange;
  if (!line.OpenPort(messages)) return FailToOpen(exchange);

  const auto identity = WakeUp(line, Call);
  if (!identity || identity->size() < IdentityBytes) return FailWithoutResponse(exchange);
  if (!IsOfThisSeries(*identity)) return FailWithWrongModel(exchange);
  if (!AcceptsBand(exchange, image, *identity)) {
    static_cast<void>(SendEndOfSession(line)); // nothing was written: a failure here leaves nothing undone
    line.ClosePort();
    return Outcome::BandDeclined;
  }

  if (!line.DiscardOutput()) return FailWithoutResponse(exchange);
  line.Wait(BeforeRecords);
  progress.Open("Write", "Write data to the radio ...", ProgressMaximum);
  Stamp(image, now());
  int value = 0;
  for (const std::uint16_t address : Addresses) {
    const auto data = TakeRecord(image, address);
    if (!data || !line.Write(RecordWrite(address, *data))) return Fail(exchange, DataError);
    progress.SetValue(value);
    value += ProgressPerRecord;
    if (!line.Drain()) return Fail(exchange, DataError);
    line.Wait(AfterRecord);
    if (!line.DiscardOutput()) return Fail(exchange, DataError);
    const auto reply = AwaitReply(line, 1, AcknowledgeRounds);
    if (!reply) return Fail(exchange, DataError);
    if (!IsAcknowledge(*reply)) return Fail(exchange, Interrupted);
  }

  if (!SendEndOfSession(line)) return Fail(exchange, DataError);
  progress.SetValue(ProgressAtEnd);
  line.Wait(BeforeClosingProgress);
  progress.Close();
  const auto status = AwaitReply(line, 1, StatusRounds);
  if (!status || !IsGoodStatus(*status)) return Fail(exchange, DataError);

  ShowCompletion(exchange, "Write Complete", "Write data is complete. Press OK button to continue ...");
  showWritten();
  line.ClosePort();
  return Outcome::Complete;
}

} // namespace mr4500x
