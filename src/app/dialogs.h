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

// frmPort: the choice among COM1 to COM16; nullopt when cancelled. `deviceOfPort` is empty for a port without a device.
[[nodiscard]] std::optional<int> AskPort(const PortChoice& choice, const std::function<std::string(int)>& deviceOfPort,
                                         QWidget* parent);

// frmPrint: the chosen reports, at least one; nullopt when cancelled.
[[nodiscard]] std::optional<ReportChoice> AskReports(Printers& printers, MessageView& messages, QWidget* parent);

// frmCompare: what differs between the editor and a data file, as both are at any moment. Stays open until it is
// closed. `other` is what the file holds; if the editor could not show that, there is only a message.
void ShowComparison(EditorPanel& panel, FileSystem& files, const std::string& path, const RadioImage& other,
                    MessageView& messages, QWidget* parent);

// frmAbout.
void ShowAbout(const std::function<void(const std::string&)>& openLink, QWidget* parent);

} // namespace mr4500x
