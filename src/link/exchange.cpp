#include "exchange.h"

#include <algorithm>
#include <set>

namespace mr4500x {
namespace {

constexpr int ProgressPerRecord = 5;
constexpr Milliseconds AfterEnd{50};

// Records at consecutive addresses, both ends included.
struct RecordRun {
  std::uint16_t first, last;
};

// Doesn't compile unless the runs have `Count` records.
template<std::size_t Count>
consteval std::array<std::uint16_t, Count> AddressesOf(std::initializer_list<RecordRun> runs) {
  std::array<std::uint16_t, Count> addresses{};
  std::size_t count = 0;
  for (const auto& [first, last] : runs)
    for (std::size_t address = first; address <= last; address += RecordBytes)
      addresses.at(count++) = static_cast<std::uint16_t>(address);
  return count == Count ? addresses : throw count;
}

constexpr auto ReadAddresses = AddressesOf<103>({
    {0x000, 0x140}, // channels to emergency ANI, with the unused 0x118-0x12F
    {0x180, 0x198}, // TTS timing
    {0x1C0, 0x378}, // reset time to selective-call codes, with the unused 0x1E8
    {0x3F0, 0x3F8}, // band, firmware version
});
constexpr auto WriteAddresses = AddressesOf<66>({
    {0x000, 0x0F8}, // channels
    {0x100, 0x110}, // radio settings, key program
    {0x130, 0x140}, // PTT ID, Emergency ANI
    {0x180, 0x198}, // TTS timing
    {0x1C0, 0x1E0}, // reset time, tone frequencies
    {0x200, 0x208}, // write stamp
    {0x300, 0x378}, // selective-call codes
    {0x3F0, 0x3F0}, // band
});
constexpr auto BackAddresses = AddressesOf<69>({
    {0x000, 0x0F8}, // as WriteAddresses
    {0x100, 0x110},
    {0x130, 0x140},
    {0x180, 0x198},
    {0x1C0, 0x1E0},
    {0x1F0, 0x208}, // includes the identity number
    {0x300, 0x378},
    {0x3F0, 0x3F8}, // includes the firmware version
});
constexpr auto IdentityAddresses = AddressesOf<6>({
    {0x1F0, 0x1F8}, // identity number
    {0x200, 0x208}, // write stamp
    {0x3F0, 0x3F8}, // band, firmware version
});
constexpr auto ReadInfoAddresses = AddressesOf<32>({{0x200, 0x2F8}});  // write stamp, embedded information
constexpr auto WriteInfoAddresses = AddressesOf<30>({{0x210, 0x2F8}}); // embedded information

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

// Makes sure that a byte without a reply is not mistaken for the written one.
void InvertBytes(RadioImage& image) {
  for (const BlockLocation& place : RecordMap)
    for (std::uint8_t& byte : BlockBytes(image, place.block))
      byte = static_cast<std::uint8_t>(~byte);
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

// The whole read with fewer records.
constexpr ReadCourse ShorterRead(Addresses addresses, void (*clear)(RadioImage&)) {
  ReadCourse course = WholeRead;
  const int end = ProgressPerRecord * static_cast<int>(addresses.size());
  course.addresses = addresses;
  course.scale = {.maximum = end, .atFirst = ProgressPerRecord, .atEnd = end};
  course.clear = clear;
  return course;
}
constexpr ReadCourse IdentityRead = ShorterRead(IdentityAddresses, ClearForReading);
constexpr ReadCourse BackRead = ShorterRead(WriteAddresses, InvertBytes);
constexpr ReadCourse BackReadWithIdentity = ShorterRead(BackAddresses, InvertBytes);

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

// Ends the session for a radio that may still be in it.
ExchangeResult Close(SerialLine& line, Transfer transfer, Outcome outcome, const std::string& description = {}) {
  if (outcome == Outcome::Interrupted || outcome == Outcome::DisplayError || outcome == Outcome::BandDeclined) {
    line.ReopenPort();
    LeaveSession(line);
  }
  line.ClosePort();
  return {transfer, outcome, line.PortName(), description};
}

// Called after the last record: shows the end of the progress. Returns false if the exchange could not be ended.
bool ShowEnd(bool hasEnded, const ProgressScale& scale, SerialLine& line, ExchangeObserver& observer) {
  if (hasEnded) {
    observer.Progress(scale.atEnd);
    line.Wait(AfterEnd);
  }
  observer.Ended();
  return hasEnded;
}

ExchangeResult Read(const ReadCourse& course, SerialLine& line, RadioImage& image, ExchangeObserver& observer,
                    Speed speed = Speed::Prescribed) {
  const auto close = [&](auto... how) { return Close(line, course.transfer, how...); };
  if (const auto failure = line.OpenPort()) return close(Outcome::PortNotOpened, *failure);
  if (!WakeToRead(line, course.pace)) return close(Outcome::NoResponse);

  observer.Began(course.transfer, course.scale.maximum);
  course.clear(image);
  int value = course.scale.atFirst;
  std::set<int> missing(course.addresses.begin(), course.addresses.end());
  const auto take = [&](std::span<const std::uint8_t> reply) {
    if (!course.place(image, reply)) return false;
    if (reply[3] >= RecordBytes) missing.erase(reply[1] << 8 | reply[2]);
    observer.Progress(value);
    value += ProgressPerRecord;
    return true;
  };
  const Moved moved = ReadRecords(line, course.pace, speed, course.addresses, take);
  if (!ShowEnd(moved == Moved::All && EndReading(line), course.scale, line, observer))
    return close(moved == Moved::BadAnswer ? course.badAnswer : Outcome::DataError);
  ExchangeResult result = close(observer.Complete(course.transfer) ? Outcome::Complete : Outcome::DisplayError);
  result.missing = missing.size();
  return result;
}

// Calls `stamp` just before taking the first record from the image.
ExchangeResult Write(const WriteCourse& course, SerialLine& line, const RadioImage& image, ExchangeObserver& observer,
                     const std::function<void()>& stamp, Speed speed = Speed::Prescribed) {
  const auto close = [&](auto... how) { return Close(line, course.transfer, how...); };
  if (const auto failure = line.OpenPort()) return close(Outcome::PortNotOpened, *failure);
  const std::optional<Identity> identity = WakeToWrite(line, course.pace);
  if (!identity) return close(Outcome::NoResponse);
  if (!identity->IsOfThisSeries()) return close(Outcome::WrongModel);
  if (course.comparesBand && !IsSameBand(identity->Band(), image.BandBlock) && !observer.AcceptsOtherBand())
    return close(Outcome::BandDeclined);
  if (!PrepareToWrite(line)) return close(Outcome::NoResponse);

  observer.Began(course.transfer, course.scale.maximum);
  stamp();
  int value = course.scale.atFirst - ProgressPerRecord;
  const auto give = [&](std::uint16_t address) {
    value += ProgressPerRecord;
    return TakeRecord(image, address);
  };
  const auto written = [&] { observer.Progress(value); };
  const Moved moved = WriteRecords(line, course.pace, speed, course.addresses, give, written);
  if (!ShowEnd(moved == Moved::All && EndSession(line), course.scale, line, observer))
    return close(moved == Moved::BadAnswer ? Outcome::Interrupted : Outcome::DataError);
  if (!AwaitGoodStatus(line, course.pace)) return close(Outcome::DataError);
  static_cast<void>(observer.Complete(course.transfer)); // a write has nothing to show
  return close(Outcome::Complete);
}

ExchangeResult IfWhole(ExchangeResult result) {
  if (result.outcome == Outcome::Complete && result.missing > 0) result.outcome = Outcome::DataError;
  return result;
}

ExchangeResult ReadBackBy(const ReadCourse& course, SerialLine& line, RadioImage& image, ExchangeObserver& observer,
                          Speed speed) {
  const RadioImage written = image;
  ExchangeResult result = Read(course, line, image, observer, speed);
  image.WriteStampBlock = written.WriteStampBlock;
  image.EmbeddedInfoBlock = written.EmbeddedInfoBlock;
  return result;
}

} // namespace

bool IsSameBand(std::span<const std::uint8_t> a, std::span<const std::uint8_t> b) {
  constexpr std::size_t BandBytes = 4;
  return std::ranges::equal(a.first(BandBytes), b.first(BandBytes));
}

ExchangeResult ReadRadio(SerialLine& line, RadioImage& image, ExchangeObserver& observer, Speed speed) {
  return Read(WholeRead, line, image, observer, speed);
}

ExchangeResult ReadWholeRadio(SerialLine& line, RadioImage& image, ExchangeObserver& observer, Speed speed) {
  return IfWhole(ReadRadio(line, image, observer, speed));
}

ExchangeResult ReadIdentity(SerialLine& line, RadioImage& image, ExchangeObserver& observer, int tries) {
  ReadCourse course = IdentityRead;
  course.pace.tries = tries;
  return Read(course, line, image, observer);
}

ExchangeResult ReadBack(SerialLine& line, RadioImage& image, ExchangeObserver& observer, Speed speed) {
  const RadioImage written = image;
  ExchangeResult result = IfWhole(ReadBackBy(BackRead, line, image, observer, speed));
  image.RadioIdBlock = written.RadioIdBlock;
  image.FirmwareVersionBlock = written.FirmwareVersionBlock;
  return result;
}

ExchangeResult ReadBackWithIdentity(SerialLine& line, RadioImage& image, ExchangeObserver& observer, Speed speed) {
  return ReadBackBy(BackReadWithIdentity, line, image, observer, speed);
}

ExchangeResult WriteRadio(SerialLine& line, RadioImage& image, const std::function<LocalTime()>& now,
                          ExchangeObserver& observer, Speed speed) {
  return Write(
      WholeWrite, line, image, observer, [&] { Stamp(image, now()); }, speed);
}

ExchangeResult ReadEmbeddedInfo(SerialLine& line, RadioImage& image, ExchangeObserver& observer) {
  return Read(InfoRead, line, image, observer);
}

ExchangeResult WriteEmbeddedInfo(SerialLine& line, const RadioImage& image, ExchangeObserver& observer) {
  return Write(InfoWrite, line, image, observer, [] {});
}

} // namespace mr4500x
