#include "recent_menu.h"

#include <utility>

namespace mr4500x {

RecentMenu::RecentMenu(const Entries& entries, FileSystem& files, std::string settingsFile,
                       const std::function<void(const std::string&)>& chosen)
    : m_entries(entries), m_files(files), m_settingsFile(std::move(settingsFile)) {
  for (QAction* const entry : m_entries)
    QObject::connect(entry, &QAction::triggered, entry,
                     [entry, chosen] { chosen(entry->data().toString().toStdString()); });
}

void RecentMenu::Rebuild() {
  const RecentFileList list = RecentFiles(m_files, m_settingsFile);
  for (std::size_t i = 0; i < m_entries.size(); ++i) {
    QAction& entry = *m_entries[i];
    const std::string path = list[i].value_or("");
    QString caption = list[i] ? QString::fromStdString(RecentCaption(i + 1, path)) : QString();
    entry.setText(caption.replace(QLatin1Char('&'), QLatin1String("&&"))); // no access key in a path
    entry.setData(QString::fromStdString(path));
    entry.setVisible(list[i].has_value());
  }
}

} // namespace mr4500x
