#include "qt_help_viewer.h"

#include <utility>

namespace mr4500x {

QtHelpViewer::QtHelpViewer(MessageView& messages, std::string helpFile)
    : m_messages(messages), m_helpFile(std::move(helpFile)) {}

void QtHelpViewer::ReportUnreadable() {
  m_messages.Show(MessageIcon::Exclamation, "Help", "The help file " + m_helpFile + " can't be opened.",
                  MessageButtons::Ok);
}

} // namespace mr4500x
