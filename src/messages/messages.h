// The messages about data files and transfers.
#pragma once

#include "data_file.h"
#include "exchange.h"
#include "message_view.h"

namespace mr4500x {

struct Message {
  MessageIcon icon;
  std::string title;
  std::string text;
  bool operator==(const Message&) const = default;
};

enum class SaveCommand : std::uint8_t { Save, SaveAs };

inline const Message NewVersionNotice = {MessageIcon::Exclamation, "New Version File",
                                         "This software version isn't applied to the radio, please use new software."};
[[nodiscard]] std::optional<Message> MessageFor(LoadOutcome outcome); // nullopt for Loaded
[[nodiscard]] Message MessageForFailed(SaveCommand command);

struct ProgressWords {
  std::string_view title;
  std::string_view text;
};

[[nodiscard]] ProgressWords ProgressOf(Transfer transfer);
[[nodiscard]] Message BandQuestion();
// Shown while the port is still open.
[[nodiscard]] Message CompletionOf(Transfer transfer);
// Shown at the end; nullopt for a transfer that completed or that the user declined.
[[nodiscard]] std::optional<Message> FailureOf(const ExchangeResult& result);

} // namespace mr4500x
