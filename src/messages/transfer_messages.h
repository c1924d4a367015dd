// What the user is told of a transfer.
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
// While the port is still open.
[[nodiscard]] Message CompletionOf(Transfer transfer);
// At the end. Nothing for a transfer that is complete, or that the user has declined.
[[nodiscard]] std::optional<Message> FailureOf(const ExchangeResult& result);

} // namespace mr4500x
