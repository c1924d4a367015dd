// The commands of the Embedded Information menu: editing the text, and moving it from and to the radio. They leave
// the editor, its changes and all other blocks alone.
#pragma once

#include "command_context.h"

namespace mr4500x {

class EmbedCommands {
public:
  explicit EmbedCommands(const CommandContext& context) : m_context(context) {}

  void Info();
  void Read();
  void Write();

private:
  CommandContext m_context;
};

} // namespace mr4500x
