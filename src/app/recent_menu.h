#pragma once

#include "file_system.h"
#include "recent_files.h"

#include <QAction>
#include <QObject>

#include <array>
#include <functional>
#include <string>

namespace mr4500x {

// The recent files in the File menu.
class RecentMenu {
public:
  using Entries = std::array<QAction*, RecentFileCount>;

  // `chosen` is called with the path that the user picks.
  RecentMenu(const Entries& entries, FileSystem& files, std::string settingsFile,
             const std::function<void(const std::string&)>& chosen);

  void Rebuild();

private:
  Entries m_entries;
  FileSystem& m_files;
  std::string m_settingsFile;
};

} // namespace mr4500x
