// Reading the radio's whole memory into the image.
#include "exchange_steps.h"
#include "record_order.h"

namespace mr4500x {

namespace {

constexpr WakeUpCall Call = {ReadWord, /*tries*/ 4, /*answerBytes*/ 1, /*rounds*/ 11, Milliseconds{10}};
constexpr Milliseconds AfterReply{10};
constexpr int ProgressMaximum = 505;
constexpr auto Addresses = RecordAddresses<ReadOrder>();

constexpr Failure Interrupted = {Outcome::Interrupted, "Read Interrupt", "Reading is interrupted, please retry Read.",
                                 /*endsSession*/ true};
constexpr Failure DataError = {Outcome::DataError, "Data Error", "Read data error, please retry Read."};
constexpr Failure DisplayError = {Outcome::DisplayError, "Data Error",
                                  "Data read can't display correctly. Please confirm.", /*endsSession*/ true};

} // namespace

Outcome ReadRadio(const Exchange& exchange, RadioImage& image, const std::function<bool()>& showImage) {
  const auto& [line, progress, messages] = exchange;
  if (!line.OpenPort(messages)) return FailToOpen(exchange);

  const auto answer = WakeUp(line, Call);
  if (!answer || !IsAcknowledge(*answer)) return FailWithoutResponse(exchange);

  progress.Open("Read", "Reading data from the radio ...", ProgressMaximum);
  ClearForReading(image);
  int value = 0;
  for (const std::uint16_t address : Addresses) {
    const auto reply = RequestRecord(line, address, AfterReply);
    if (!reply) return Fail(exchange, DataError);
    if (!IsRecordReply(*reply)) return Fail(exchange, Interrupted);
    if (!PlaceReply(image, *reply)) return Fail(exchange, DataError);
    progress.SetValue(value);
    value += ProgressPerRecord;
  }

  if (!line.DiscardInput() || !line.DiscardOutput() || !line.Send(EndOfRead)) return Fail(exchange, DataError);
  progress.SetValue(ProgressMaximum);
  line.Wait(BeforeClosingProgress);
  progress.Close();

  ShowCompletion(exchange, "Read Complete", "Read data is complete. Press OK button to continue ...");
  if (!showImage()) return Fail(exchange, DisplayError);
  line.ClosePort();
  return Outcome::Complete;
}

} // namespace mr4500x
