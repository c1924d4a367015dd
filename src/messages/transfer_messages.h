// The messages of a transfer.
#pragma once

#include <optional>
#include <string_view>

#include "exchange.h"
#include "message.h"

namespace mr4500x {

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
