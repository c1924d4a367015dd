#pragma once

#include "desktop.h"
#include "message_view.h"

#include <string>

namespace mr4500x {

// Shows the help in the browser, because there is no Qt Assistant on Windows. The pages are in the folder "manual"
// beside the program, with contents, an index and a search.
class QtHelpViewer final : public HelpViewer {
public:
  QtHelpViewer(MessageView& messages, const std::string& helpFile);

  void OpenContents() override;
  void OpenIndex() override;
  void OpenPage(const std::string& page) override;

private:
  MessageView& m_messages;
  std::string m_folder;
};

} // namespace mr4500x
