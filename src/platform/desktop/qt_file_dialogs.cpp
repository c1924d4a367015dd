#include "qt_file_dialogs.h"

#include "owner_window.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QTreeView>

namespace mr4500x {
namespace {

void Prepare(QFileDialog& dialog, const FileQuestion& question) {
  dialog.setObjectName(QStringLiteral("fileDialog"));
  dialog.setWindowTitle(QString::fromUtf8(question.title));
  dialog.setDirectory(QString::fromStdString(question.folder));
  dialog.setOption(QFileDialog::HideNameFilterDetails); // the names contain the patterns
  dialog.setNameFilters(NameFilters(question.filter));
  // Qt's own dialog truncates sizes and dates. A native one has no such view.
  if (const auto* const details = dialog.findChild<QTreeView*>(QStringLiteral("treeView")))
    details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

std::optional<QString> Chosen(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().constFirst();
}

bool MayBeWritten(const QString& path, bool hasBeenExtended, const QString& title) {
  const QFileInfo file(path);
  if (!file.dir().exists()) {
    QMessageBox::warning(
        OwnerWindow(), title,
        QFileDialog::tr("%1\nDirectory not found.\nPlease verify the correct directory name was given.")
            .arg(file.path()));
    return false;
  }
  // The dialog has already asked about the name as typed, but not about the extended one.
  if (!hasBeenExtended || !file.exists()) return true;
  return QMessageBox::warning(OwnerWindow(), title,
                              QFileDialog::tr("%1 already exists.\nDo you want to replace it?").arg(file.fileName()),
                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

} // namespace

QStringList NameFilters(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
    filters.append(QStringLiteral("%1 (%2 %3)")
                       .arg(QString::fromUtf8(parts[i].toStdString()), parts[i + 1], parts[i + 1].toLower()));
  return filters;
}

QString WithExtension(const QString& path, const std::string& extension) {
  if (!QFileInfo(path).suffix().isEmpty()) return path;
  const QString point = path.endsWith(QLatin1Char('.')) ? QString() : QStringLiteral(".");
  return path + point + QString::fromStdString(extension);
}

std::optional<std::string> QtFileDialogs::AskOpen(const FileQuestion& question) {
  QFileDialog dialog(OwnerWindow());
  Prepare(dialog, question);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(QString::fromStdString(question.extension));
  const std::optional<QString> path = Chosen(dialog);
  return path ? std::optional(path->toStdString()) : std::nullopt;
}

std::optional<std::string> QtFileDialogs::AskSave(const FileQuestion& question) {
  QFileDialog dialog(OwnerWindow());
  Prepare(dialog, question);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.selectFile(QString::fromStdString(question.proposedName));
  while (const std::optional<QString> path = Chosen(dialog)) {
    const QString whole = WithExtension(*path, question.extension);
    if (MayBeWritten(whole, whole != *path, dialog.windowTitle())) return whole.toStdString();
  }
  return std::nullopt;
}

} // namespace mr4500x
