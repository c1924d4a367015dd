#include "exchange.h"

#include "record_order.h"
#include "session.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr int ProgressPerRecord = 5;
constexpr Milliseconds AfterEnd{50};
constexpr auto ReadAddresses = RecordAddresses<ReadOrder>();
constexpr auto WriteAddresses = RecordAddresses<WriteOrder>();
constexpr auto ReadInfoAddresses = RecordAddresses<ReadInfoOrder>();
constexpr auto WriteInfoAddresses = RecordAddresses<WriteInfoOrder>();

struct ProgressScale {
  int maximum;
  int atFirst; // after the first record
  int atEnd;
};

struct ReadCourse {
  Transfer transfer;
  ReadPace pace;
  Addresses addresses;
  ProgressScale scale;
  void (*clear)(RadioImage&);
  bool (*place)(RadioImage&, std::span<const std::uint8_t>);
  Outcome badAnswer;
};

struct WriteCourse {
  Transfer transfer;
  WritePace pace;
  Addresses addresses;
  ProgressScale scale;
  bool comparesBand;
};

void ClearInfo(RadioImage& image) {
  image.EmbeddedInfoBlock = EmbeddedInfo{};
}

// clang-format off
constexpr ReadCourse WholeRead = {
    .transfer = Transfer::Read,
    .pace = {.tries = 4, .wakeUpRounds = 11, .afterWakeUp = Milliseconds{10}, .afterReply = Milliseconds{10}},
    .addresses = ReadAddresses,
    .scale = {.maximum = 505, .atFirst = 0, .atEnd = 505},
    .clear = ClearForReading,
    .place = PlaceReply,
    .badAnswer = Outcome::Interrupted,
};

constexpr ReadCourse InfoRead = {
    .transfer = Transfer::ReadInfo,
    .pace = {.tries = 4, .wakeUpRounds = 21, .afterWakeUp = Milliseconds{0}, .afterReply = Milliseconds{0}},
    .addresses = ReadInfoAddresses,
    .scale = {.maximum = 160, .atFirst = 5, .atEnd = 160},
    .clear = ClearInfo,
    .place = PlaceInfoReply,
    .badAnswer = Outcome::DataError,
};

constexpr WriteCourse WholeWrite = {
    .transfer = Transfer::Write,
    .pace = {.tries = 5, .wakeUpRounds = 11, .afterRecord = Milliseconds{20}, .acknowledgeRounds = 10, .statusRounds = 10},
    .addresses = WriteAddresses,
    .scale = {.maximum = 330, .atFirst = 0, .atEnd = 310}, // closes before it is full
    .comparesBand = true,
};

constexpr WriteCourse InfoWrite = {
    .transfer = Transfer::WriteInfo,
    .pace = {.tries = 4, .wakeUpRounds = 21, .afterRecord = Milliseconds{0}, .acknowledgeRounds = 21, .statusRounds = 0},
    .addresses = WriteInfoAddresses,
    .scale = {.maximum = 150, .atFirst = 5, .atEnd = 150},
    .comparesBand = false,
};
// clang-format on

ExchangeResult NotOpened(SerialLine& line, Transfer transfer, const std::string& description) {
  line.ClosePort();
  return {transfer, Outcome::PortNotOpened, line.PortName(), description};
}

// Tells a radio that may still be in the session that it is over. Whether that arrives makes no difference.
ExchangeResult Close(SerialLine& line, Transfer transfer, Outcome outcome) {
  if (outcome == Outcome::Interrupted || outcome == Outcome::DisplayError || outcome == Outcome::BandDeclined) {
    line.ReopenPort();
    static_cast<void>(EndSession(line));
  }
  line.ClosePort();
  return {transfer, outcome, line.PortName(), {}};
}

ExchangeResult Read(const ReadCourse& course, SerialLine& line, RadioImage& image, ExchangeObserver& observer) {
  const auto close = [&](Outcome outcome) { return Close(line, course.transfer, outcome); };
  if (const auto failure = line.OpenPort()) return NotOpened(line, course.transfer, *failure);
  if (!WakeToRead(line, course.pace)) return close(Outcome::NoResponse);

  observer.Began(course.transfer, course.scale.maximum);
  course.clear(image);
  int value = course.scale.atFirst;
  const Moved moved = ReadRecords(line, course.pace, course.addresses, [&](std::span<const std::uint8_t> reply) {
    if (!course.place(image, reply)) return false;
    observer.Progress(value);
    value += ProgressPerRecord;
    return true;
  });
  const bool hasEnded = moved == Moved::All && EndReading(line);
  if (hasEnded) {
    observer.Progress(course.scale.atEnd);
    line.Wait(AfterEnd);
  }
  observer.Ended();
  if (!hasEnded) return close(moved == Moved::BadAnswer ? course.badAnswer : Outcome::DataError);
  return close(observer.Complete(course.transfer) ? Outcome::Complete : Outcome::DisplayError);
}

bool HasBandOf(const RadioImage& image, const Identity& identity) {
  return std::ranges::equal(identity.Band(), std::span(image.BandBlock).first(identity.Band().size()));
}

// Calls `stamp` just before taking the first record from the image.
ExchangeResult Write(const WriteCourse& course, SerialLine& line, const RadioImage& image,
                     const std::function<void()>& stamp, ExchangeObserver& observer) {
  const auto close = [&](Outcome outcome) { return Close(line, course.transfer, outcome); };
  if (const auto failure = line.OpenPort()) return NotOpened(line, course.transfer, *failure);
  const std::optional<Identity> identity = WakeToWrite(line, course.pace);
  if (!identity) return close(Outcome::NoResponse);
  if (!identity->IsOfThisSeries()) return close(Outcome::WrongModel);
  const bool isOtherBand = course.comparesBand && !HasBandOf(image, *identity);
  if (isOtherBand && !observer.AcceptsOtherBand()) return close(Outcome::BandDeclined);
  if (!PrepareToWrite(line)) return close(Outcome::NoResponse);

  observer.Began(course.transfer, course.scale.maximum);
  stamp();
  int value = course.scale.atFirst;
  const auto give = [&](std::uint16_t address) { return TakeRecord(image, address); };
  const Moved moved = WriteRecords(line, course.pace, course.addresses, give, [&] {
    observer.Progress(value);
    value += ProgressPerRecord;
  });
  const bool hasEnded = moved == Moved::All && EndSession(line);
  if (hasEnded) {
    observer.Progress(course.scale.atEnd);
    line.Wait(AfterEnd);
  }
  observer.Ended();
  if (!hasEnded) return close(moved == Moved::BadAnswer ? Outcome::Interrupted : Outcome::DataError);
  if (!AwaitGoodStatus(line, course.pace)) return close(Outcome::DataError);
  static_cast<void>(observer.Complete(course.transfer)); // a write has nothing to show
  return close(Outcome::Complete);
}

} // namespace

ExchangeResult ReadRadio(SerialLine& line, RadioImage& image, ExchangeObserver& observer) {
  return Read(WholeRead, line, image, observer);
}

ExchangeResult WriteRadio(SerialLine& line, RadioImage& image, const std::function<LocalTime()>& now,
                          ExchangeObserver& observer) {
  return Write(
      WholeWrite, line, image, [&] { Stamp(image, now()); }, observer);
}

ExchangeResult ReadEmbeddedInfo(SerialLine& line, RadioImage& image, ExchangeObserver& observer) {
  return Read(InfoRead, line, image, observer);
}

ExchangeResult WriteEmbeddedInfo(SerialLine& line, const RadioImage& image, ExchangeObserver& observer) {
  return Write(
      InfoWrite, line, image, [] {}, observer);
}

} // namespace mr4500x
