#include "embed_commands.h"

#include "command_phase.h"
#include "editor_panel.h"
#include "embedded_info.h"
#include "frm_embed.h"
#include "transfer.h"
#include "window_titles.h"

namespace mr4500x {

void EmbedCommands::Info() {
  m_context.panel.CommitOpenEditors();
  EmbeddedInfo& block = m_context.image.EmbeddedInfoBlock;
  FontDescription& font = m_context.state.EmbeddedTextFont;
  FrmEmbed dialog({EmbeddedText(block), LastProgrammingTime(m_context.image), font}, m_context.services.messages,
                  m_context.services.fonts, &m_context.window);
  dialog.exec();
  font = dialog.EmbeddedTextFont();
  if (dialog.CancelPressed()) return;
  // A text over the limit can only be the one that fills the whole block, unedited: the block holds it already.
  static_cast<void>(StoreEmbeddedText(block, dialog.EmbedData()));
}

void EmbedCommands::Read() {
  m_context.panel.CommitOpenEditors();
  const Transfer transfer(m_context);
  // The exchange tells the user how it ended.
  static_cast<void>(ReadEmbeddedInfo(transfer.Parts(), m_context.image, [this] {
    return Succeeds([this] {
      m_context.SetTitle(ReadInfoTitle);
      m_context.closeItem.setEnabled(true);
      return true;
    });
  }));
}

void EmbedCommands::Write() {
  m_context.panel.CommitOpenEditors();
  const Transfer transfer(m_context, HeldPointer::Unchanged);
  static_cast<void>(
      WriteEmbeddedInfo(transfer.Parts(), m_context.image, [this] { m_context.SetTitle(WriteInfoTitle); }));
}

} // namespace mr4500x
