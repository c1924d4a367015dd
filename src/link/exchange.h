// The four exchanges with the radio. Each runs from opening the port to closing it, shows its own progress and
// messages, and tells the caller how it ended. Pointer, editor, titles and menus are left to the caller, who has a
// callback at the moment at which the window changes while the port is still open.
#pragma once

#include <functional>

#include "message_view.h"
#include "progress_view.h"
#include "radio_image.h"
#include "serial_line.h"

namespace mr4500x {

// What an exchange works with.
struct Exchange {
  SerialLine& line;
  ProgressView& progress;
  MessageView& messages;
};

enum class Outcome {
  Complete,
  PortNotOpened,
  NoResponse,
  WrongModel,   // the two writes only
  BandDeclined, // WriteRadio only: the user chose not to write
  Interrupted,  // the radio stopped answering as it should; the session has been ended on the line
  DataError,
  DisplayError, // the two reads only: all data has been received, but it could not be shown
};

// `showImage` runs after the completion message: it sets the title and fills the editor; false is a display error.
[[nodiscard]] Outcome ReadRadio(const Exchange& exchange, RadioImage& image, const std::function<bool()>& showImage);

// `now` gives the moment of the write stamp just before the first record; `showWritten` runs after the completion
// message. The image keeps the stamp whatever happens after it.
[[nodiscard]] Outcome WriteRadio(const Exchange& exchange, RadioImage& image, const std::function<LocalTime()>& now,
                                 const std::function<void()>& showWritten);

// Replaces EmbeddedInfoBlock and WriteStampBlock.
[[nodiscard]] Outcome ReadEmbeddedInfo(const Exchange& exchange, RadioImage& image,
                                       const std::function<bool()>& showInfo);

[[nodiscard]] Outcome WriteEmbeddedInfo(const Exchange& exchange, const RadioImage& image,
                                        const std::function<void()>& showWritten);

} // namespace mr4500x
