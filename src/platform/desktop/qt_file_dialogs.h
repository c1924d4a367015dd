// The desktop's dialogs for choosing a file.
#pragma once

#include "file_dialogs.h"

#include <QStringList>

namespace mr4500x {

class QtFileDialogs final : public FileDialogs {
public:
  [[nodiscard]] std::optional<std::string> AskOpen(const FileQuestion& question) override;
  [[nodiscard]] std::optional<std::string> AskSave(const FileQuestion& question) override;
};

// "Data Files(*.K4X)|*.K4X|..." as Qt wants filters; files with the extension in small letters are shown as well.
[[nodiscard]] QStringList NameFilters(const std::string& filter);

// The name with the extension where it has none.
[[nodiscard]] QString WithExtension(const QString& path, const std::string& extension);

} // namespace mr4500x
