// The viewer of the help file.
#pragma once

#include "help_viewer.h"
#include "message_view.h"

#include <string>

namespace mr4500x {

// There is no reader for the help file yet, so that every attempt to open it ends in the viewer's own report.
class QtHelpViewer final : public HelpViewer {
public:
  QtHelpViewer(MessageView& messages, std::string helpFile);
  void OpenContents() override { ReportUnreadable(); }
  void OpenIndex() override { ReportUnreadable(); }

private:
  void ReportUnreadable();

  MessageView& m_messages;
  std::string m_helpFile;
};

} // namespace mr4500x
