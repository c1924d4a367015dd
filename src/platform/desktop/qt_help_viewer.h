// The help, shown by Qt Assistant: a program of its own, so that the manual stays readable during a transfer.
#pragma once

#include "help_viewer.h"
#include "message_view.h"

#include <memory>
#include <string>

class QProcess;
class QString;

namespace mr4500x {

// Assistant is started when help is first asked for and told over its standard input what to show. It ends with the
// program, however the program ends.
class QtHelpViewer final : public HelpViewer {
public:
  // The collection that registers the help file lies beside it. The viewer is a path, or a name to look up.
  QtHelpViewer(MessageView& messages, std::string helpFile, std::string assistant = "assistant");
  ~QtHelpViewer() override;

  void OpenContents() override;
  void OpenIndex() override;

  [[nodiscard]] bool IsRunning() const;

private:
  void Request(const char* commands);
  [[nodiscard]] bool Start();
  void Report(const QString& text);

  MessageView& m_messages;
  std::string m_helpFile;
  std::string m_assistant;
  std::unique_ptr<QProcess> m_process;
};

} // namespace mr4500x
