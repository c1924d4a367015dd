// How a command runs one exchange with the radio: over the line to the chosen port, with the progress window and the
// messages, and with the user's input held.
#pragma once

#include "command_context.h"
#include "exchange.h"
#include "transfer_guard.h"

#include <functional>

namespace mr4500x {

using RunExchange = std::function<ExchangeResult(SerialLine& line, ExchangeObserver& observer)>;

// `completed` changes the window when all is done, while the port is still open.
void RunTransfer(const CommandContext& context, HeldPointer pointer, const RunExchange& exchange,
                 const std::function<void()>& completed);

} // namespace mr4500x
