// What a command has for one exchange with the radio: the line to the chosen port, the desk's windows, and the user's
// input held as long as this lives.
#pragma once

#include "command_context.h"
#include "exchange.h"
#include "transfer_guard.h"

namespace mr4500x {

class Transfer {
public:
  explicit Transfer(const CommandContext& context, HeldPointer pointer = HeldPointer::Busy)
      : m_guard(context.services.input, pointer),
        m_line(context.services.port, context.services.clock, context.state.CommPortNumber),
        m_exchange{m_line, context.services.progress, context.services.messages} {
    context.window.repaint(); // it may not be for a while
  }
  Q_DISABLE_COPY_MOVE(Transfer)

  [[nodiscard]] const Exchange& Parts() const { return m_exchange; }

private:
  TransferGuard m_guard;
  SerialLine m_line;
  Exchange m_exchange;
};

} // namespace mr4500x
