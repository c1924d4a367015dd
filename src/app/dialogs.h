// The dialogs of the main window's commands.
#pragma once

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

// frmPort: the choice among COM1 to COM16; nullopt when cancelled. `hintOf` returns what to say about a port.
[[nodiscard]] std::optional<int> AskPort(const PortChoice& choice, const std::function<std::string(int)>& hintOf,
                                         QWidget* parent);

// frmPrint: the chosen reports, at least one; nullopt when cancelled. `ticked` at first.
[[nodiscard]] std::optional<ReportChoice> AskReports(const ReportChoice& ticked, Printers& printers,
                                                     MessageView& messages, QWidget* parent);

// What the editor is compared with: a data file by its path, or a radio as it was read, "COM3".
struct ComparedSource {
  std::string name;
  bool isFile = true;
};
// frmCompare: what differs between the editor and a data file, as both are at any moment, or a radio. Stays open until
// it is closed. `other` is what the source holds; if the editor could not show that, there is only a message.
void ShowComparison(EditorPanel& panel, FileSystem& files, const ComparedSource& source, const RadioImage& other,
                    MessageView& messages, QWidget* parent);

// frmAbout.
void ShowAbout(const std::function<void(const std::string&)>& openLink, QWidget* parent);

} // namespace mr4500x
