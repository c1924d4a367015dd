// The four exchanges with the radio. Each runs from opening the port to closing it and returns how it ended. What the
// user sees meanwhile is left to an observer, words for the result to transfer_messages.h.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "radio_image.h"
#include "serial_line.h"

namespace mr4500x {

enum class Transfer : std::uint8_t { Read, Write, ReadInfo, WriteInfo };

enum class Outcome : std::uint8_t {
  Complete,
  PortNotOpened,
  NoResponse,
  WrongModel,   // the two writes only
  BandDeclined, // Write only: the observer chose not to write
  Interrupted,  // the radio stopped answering as it should; the session has been ended on the line
  DataError,
  DisplayError, // the two reads only: all data has been received, but it could not be shown
};

struct ExchangeResult {
  Transfer transfer;
  Outcome outcome;
  std::string port;              // as messages name it
  std::string systemDescription; // of PortNotOpened; empty where the port failed only after it had opened
};

class ExchangeObserver {
public:
  virtual ~ExchangeObserver() = default;
  // The radio has answered, and its records follow.
  virtual void Began(Transfer transfer, int maximum) = 0;
  virtual void Progress(int value) = 0; // the last ones of a read pass the maximum
  // The records are over, well or not. Comes once after Began.
  virtual void Ended() = 0;
  // Whether to write to a radio whose band is not the image's.
  [[nodiscard]] virtual bool AcceptsOtherBand() = 0;
  // All is done, and the port still open. False: what has been read can't be shown.
  [[nodiscard]] virtual bool Complete(Transfer transfer) = 0;
};

[[nodiscard]] ExchangeResult ReadRadio(SerialLine& line, RadioImage& image, ExchangeObserver& observer);

// `now` gives the moment of the write stamp just before the first record. The image keeps the stamp whatever happens
// after it.
[[nodiscard]] ExchangeResult WriteRadio(SerialLine& line, RadioImage& image, const std::function<LocalTime()>& now,
                                        ExchangeObserver& observer);

// Replaces EmbeddedInfoBlock and WriteStampBlock.
[[nodiscard]] ExchangeResult ReadEmbeddedInfo(SerialLine& line, RadioImage& image, ExchangeObserver& observer);

[[nodiscard]] ExchangeResult WriteEmbeddedInfo(SerialLine& line, const RadioImage& image, ExchangeObserver& observer);

} // namespace mr4500x
