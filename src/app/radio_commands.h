// The commands that use the serial port: reading and writing the radio, and the choice of the port.
#pragma once

#include "command_context.h"

namespace mr4500x {

class RadioCommands {
public:
  explicit RadioCommands(const CommandContext& context) : m_context(context) {}

  void Read();
  void Write();
  void Port();

private:
  CommandContext m_context;
};

} // namespace mr4500x
