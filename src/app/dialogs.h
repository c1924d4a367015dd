// The dialogs of the main window's commands.
#pragma once

#include "kept_copies.h"
#include "message_view.h"
#include "port_choice.h"
#include "print_reports.h"

#include <functional>
#include <optional>
#include <string>

class QWidget;

namespace mr4500x {

class EditorPanel;
class FileSystem;

// frmPort: the choice among COM1 to COM16; nullopt when cancelled. `hintOf` returns the hint for a port.
[[nodiscard]] std::optional<int> AskPort(const PortChoice& choice, const std::function<std::string(int)>& hintOf,
                                         QWidget* parent);

// frmPrint: the chosen reports, at least one; nullopt when cancelled. Initially `ticked` are ticked.
[[nodiscard]] std::optional<ReportChoice> AskReports(const ReportChoice& ticked, Printers& printers,
                                                     MessageView& messages, QWidget* parent);

// The source that the editor is compared with: the path of a data file, or "COM3" for a radio that was read.
struct ComparedSource {
  std::string name;
  bool isFile = true;
};
// frmCompare: the differences between the editor and a data file or a radio. Follows changes of the editor and the file
// until it is closed. `other` is the content of the source. If the editor can't show it, only a message appears.
void ShowComparison(EditorPanel& panel, FileSystem& files, const ComparedSource& source, const RadioImage& other,
                    MessageView& messages, QWidget* parent);

// frmRecover: the path of one of the kept copies; nullopt when cancelled.
[[nodiscard]] std::optional<std::string> AskCopy(const std::vector<KeptFile>& copies, QWidget* parent);

// frmAbout.
void ShowAbout(const std::function<void(const std::string&)>& openLink, QWidget* parent);

} // namespace mr4500x
