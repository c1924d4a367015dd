#pragma once

#include "desktop.h"
#include "message_view.h"

#include <QByteArray>

#include <memory>
#include <string>

class QProcess;
class QString;

namespace mr4500x {

// Shows the help in Qt Assistant, a separate process, so that the manual can be read during a transfer. Assistant is
// started on first use, takes commands on standard input and ends with the program, even if the program crashes.
class QtHelpViewer final : public HelpViewer {
public:
  // The .qhc collection must lie beside the help file. `assistant` is a path, or a name to look up.
  QtHelpViewer(MessageView& messages, std::string helpFile, std::string assistant = "assistant");
  ~QtHelpViewer() override;

  void OpenContents() override;
  void OpenIndex() override;
  void OpenPage(const std::string& page) override;

  [[nodiscard]] bool IsRunning() const;

private:
  void Request(const QByteArray& commands);
  [[nodiscard]] bool Start();
  void Report(const QString& text);

  MessageView& m_messages;
  std::string m_helpFile;
  std::string m_assistant;
  std::unique_ptr<QProcess> m_process;
};

} // namespace mr4500x
