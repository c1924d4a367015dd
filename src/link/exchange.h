// The exchanges with the radio. Each opens the port, closes it and returns its outcome. An observer shows the progress.
// messages.h has the texts for the outcome.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "radio_image.h"
#include "serial_line.h"
#include "session.h"

namespace mr4500x {

enum class Transfer : std::uint8_t { Read, Write, ReadInfo, WriteInfo };

enum class Outcome : std::uint8_t {
  Complete,
  PortNotOpened,
  NoResponse,
  WrongModel,   // the two writes only
  BandDeclined, // Write only: the observer chose not to write
  Interrupted,  // a bad or missing answer; the end of session has been sent
  DataError,
  DisplayError, // the two reads only: all data was received but could not be shown
};

struct ExchangeResult {
  Transfer transfer;
  Outcome outcome;
  std::string port;              // its name in messages
  std::string systemDescription; // of PortNotOpened; empty if the port failed after it was opened
  std::size_t missing = 0;       // records of a read that were answered with another address or with fewer bytes
};

// Compares the band in two BandBlocks, or in one and the answer to a wake-up.
[[nodiscard]] bool IsSameBand(std::span<const std::uint8_t> a, std::span<const std::uint8_t> b);

class ExchangeObserver {
public:
  virtual ~ExchangeObserver() = default;
  // The radio has answered; the records follow.
  virtual void Began(Transfer transfer, int maximum) = 0;
  virtual void Progress(int /*value*/) {} // a read passes the maximum at its end
  // Follows every Began, after success and failure.
  virtual void Ended() {}
  // Whether to write to a radio whose band differs from the image's.
  [[nodiscard]] virtual bool AcceptsOtherBand() { return false; }
  // Called at the end, while the port is still open. Returns false if the data can't be shown.
  [[nodiscard]] virtual bool Complete(Transfer /*transfer*/) { return true; }
};

[[nodiscard]] ExchangeResult ReadRadio(SerialLine& line, RadioImage& image, ExchangeObserver& observer,
                                       Speed speed = Speed::Prescribed);

// Reads the radio for a backup or a comparison: a missing record is a DataError.
[[nodiscard]] ExchangeResult ReadWholeRadio(SerialLine& line, RadioImage& image, ExchangeObserver& observer,
                                            Speed speed = Speed::Prescribed);

// Reads only the identity number, firmware version, write stamp and band. Everything else becomes 0x00. `tries` of the
// wake-up.
[[nodiscard]] ExchangeResult ReadIdentity(SerialLine& line, RadioImage& image, ExchangeObserver& observer,
                                          int tries = 4);

// Reads from the radio everything that a write sends, except the write stamp. A missing record is a DataError.
[[nodiscard]] ExchangeResult ReadBack(SerialLine& line, RadioImage& image, ExchangeObserver& observer,
                                      Speed speed = Speed::Prescribed);
// Like ReadBack, and in the same session also reads the identity number and firmware version, to know which radio it
// is.
[[nodiscard]] ExchangeResult ReadBackWithIdentity(SerialLine& line, RadioImage& image, ExchangeObserver& observer,
                                                  Speed speed = Speed::Prescribed);

// Stamps the image with `now` just before the first record. The stamp stays even if the write fails.
[[nodiscard]] ExchangeResult WriteRadio(SerialLine& line, RadioImage& image, const std::function<LocalTime()>& now,
                                        ExchangeObserver& observer, Speed speed = Speed::Prescribed);

// Replaces EmbeddedInfoBlock and WriteStampBlock.
[[nodiscard]] ExchangeResult ReadEmbeddedInfo(SerialLine& line, RadioImage& image, ExchangeObserver& observer);

[[nodiscard]] ExchangeResult WriteEmbeddedInfo(SerialLine& line, const RadioImage& image, ExchangeObserver& observer);

} // namespace mr4500x
