// The recent files in the File menu.
#pragma once

#include "file_system.h"
#include "recent_files.h"

#include <QAction>
#include <QObject>

#include <array>
#include <functional>
#include <string>

namespace mr4500x {

class RecentMenu {
public:
  using Entries = std::array<QAction*, RecentFileCount>;

  // `chosen` gets the path of the entry that the user picks.
  RecentMenu(const Entries& entries, FileSystem& files, std::string settingsFile,
             const std::function<void(const std::string&)>& chosen);

  void Rebuild();

private:
  Entries m_entries;
  FileSystem& m_files;
  std::string m_settingsFile;
};

} // namespace mr4500x
