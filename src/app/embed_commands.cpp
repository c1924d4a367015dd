#include "embed_commands.h"

#include "editor_panel.h"
#include "embedded_info.h"
#include "frm_embed.h"
#include "transfer.h"

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
  const auto exchange = [this](SerialLine& line, ExchangeObserver& observer) {
    return ReadEmbeddedInfo(line, m_context.image, observer);
  };
  RunTransfer(m_context, HeldPointer::Busy, exchange, [this] {
    m_context.SetOrigin(RadioOrigin{Transfer::ReadInfo});
    m_context.closeItem.setEnabled(true);
  });
}

void EmbedCommands::Write() {
  m_context.panel.CommitOpenEditors();
  const auto exchange = [this](SerialLine& line, ExchangeObserver& observer) {
    return WriteEmbeddedInfo(line, m_context.image, observer);
  };
  RunTransfer(m_context, HeldPointer::Unchanged, exchange,
              [this] { m_context.SetOrigin(RadioOrigin{Transfer::WriteInfo}); });
}

} // namespace mr4500x
