#include "dialogs.h"
#include "frame_parts.h"

#include <QDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace mr4500x {
namespace {

constexpr int WidthInCharacters = 120;

QTreeWidgetItem* NewRow(const KeptFile& file) {
  const KeptCopy copy = file.copy.value_or(KeptCopy{{}, "", "", "can't be opened: damaged, or from a newer version"});
  const QString source = QString::fromStdString(copy.source);
  const QString differences = QString::fromStdString(copy.differences).trimmed();
  auto* const row = new QTreeWidgetItem({QString::fromStdString(file.at), QFileInfo(source).fileName(),
                                         QString(differences).replace(QLatin1Char('\n'), QLatin1String("; "))});
  row->setToolTip(1, source);
  row->setToolTip(2, differences);
  row->setData(0, Qt::UserRole, QString::fromStdString(file.path));
  return row;
}

} // namespace

std::optional<std::string> AskCopy(const std::vector<KeptFile>& copies, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("frmRecover"));
  dialog.setWindowTitle(QDialog::tr("Recover"));
  auto* const list = new QTreeWidget;
  list->setObjectName(QStringLiteral("lstCopies"));
  list->setAccessibleName(QDialog::tr("Copies of unsaved work, the newest first"));
  list->setRootIsDecorated(false);
  list->setHeaderLabels({QDialog::tr("Kept on"), QDialog::tr("From"), QDialog::tr("Differences")});
  for (const KeptFile& file : copies)
    list->addTopLevelItem(NewRow(file));
  list->setCurrentItem(list->topLevelItem(0));
  list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  list->header()->setSectionResizeMode(2, QHeaderView::Stretch);
  QObject::connect(list, &QTreeWidget::itemActivated, &dialog, &QDialog::accept);
  const OkCancel buttons = NewOkCancel(dialog);
  QObject::connect(buttons.ok, &QPushButton::clicked, &dialog, &QDialog::accept);
  auto* const layout = new QVBoxLayout(&dialog);
  layout->addWidget(list);
  layout->addLayout(buttons.row);
  list->setFocus();
  dialog.resize(dialog.fontMetrics().averageCharWidth() * WidthInCharacters, dialog.sizeHint().height());
  if (dialog.exec() != QDialog::Accepted || list->currentItem() == nullptr) return std::nullopt;
  return list->currentItem()->data(0, Qt::UserRole).toString().toStdString();
}

} // namespace mr4500x
