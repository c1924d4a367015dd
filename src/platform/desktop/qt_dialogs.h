// Message boxes, file dialogs and the font dialog, implemented with Qt Widgets.
#pragma once

#include "desktop.h"
#include "message_view.h"

#include <QStringList>

namespace mr4500x {

class UserInput;

// Boxes are named "messageBox", their buttons "cmdOk", "cmdYes", "cmdNo" and "cmdCancel". The first button is the
// default, but No for YesNo. An open box releases the input that a transfer holds.
class QtMessageView final : public MessageView {
public:
  explicit QtMessageView(UserInput& input) : m_input(input) {}
  Answer Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) override;

private:
  UserInput& m_input;
};

class QtFileDialogs final : public FileDialogs {
public:
  [[nodiscard]] std::optional<std::string> AskOpen(const FileQuestion& question) override;
  [[nodiscard]] std::optional<std::string> AskSave(const FileQuestion& question) override;
};

// Converts "Data Files(*.K4X)|*.K4X|..." to Qt's filters, which also match the extension in lower case.
[[nodiscard]] QStringList NameFilters(const std::string& filter);

class QtFontDialog final : public FontDialog {
public:
  [[nodiscard]] std::optional<FontDescription> AskFont(const FontDescription& preset) override;
};

} // namespace mr4500x
