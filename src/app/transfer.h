#pragma once

#include "command_context.h"
#include "exchange.h"
#include "transfer_guard.h"

#include <functional>

namespace mr4500x {

using RunExchange = std::function<ExchangeResult(SerialLine& line, ExchangeObserver& observer)>;

// Runs an exchange over the chosen port with the progress window and messages, and with the user's input held.
// `completed` is called after success, while the port is still open.
void RunTransfer(const CommandContext& context, HeldPointer pointer, const RunExchange& exchange,
                 const std::function<void()>& completed);

} // namespace mr4500x
