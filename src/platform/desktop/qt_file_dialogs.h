#pragma once

#include "file_dialogs.h"

#include <QStringList>

namespace mr4500x {

class QtFileDialogs final : public FileDialogs {
public:
  [[nodiscard]] std::optional<std::string> AskOpen(const FileQuestion& question) override;
  [[nodiscard]] std::optional<std::string> AskSave(const FileQuestion& question) override;
};

// Converts "Data Files(*.K4X)|*.K4X|..." to Qt's filters, which also match the extension in lower case.
[[nodiscard]] QStringList NameFilters(const std::string& filter);

// Appends the extension to a name without one.
[[nodiscard]] QString WithExtension(const QString& path, const std::string& extension);

} // namespace mr4500x
