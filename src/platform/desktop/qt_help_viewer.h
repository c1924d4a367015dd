// The viewer of the help file: a program of its own, started when help is first asked for.
#pragma once

#include "help_viewer.h"
#include "message_view.h"

#include <memory>
#include <string>

class QProcess;

namespace mr4500x {

// A viewer that runs is told what to show on its standard input; it ends with that input, and so with the program,
// however the program ends. It reports itself when it can't read the help file.
class QtHelpViewer final : public HelpViewer {
public:
  QtHelpViewer(MessageView& messages, std::string viewerProgram, std::string helpFile);
  ~QtHelpViewer() override;

  void OpenContents() override { Request("contents\n"); }
  void OpenIndex() override { Request("index\n"); }

  [[nodiscard]] bool IsRunning() const;

private:
  void Request(const char* line);
  [[nodiscard]] bool Start();

  MessageView& m_messages;
  std::string m_viewerProgram;
  std::string m_helpFile;
  std::unique_ptr<QProcess> m_viewer;
};

} // namespace mr4500x
