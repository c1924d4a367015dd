#include "qt_dialogs.h"

#include "open_windows.h"
#include "transfer_guard.h"

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QFontInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <span>

namespace mr4500x {
namespace {

struct BoxButton {
  QMessageBox::StandardButton button;
  const char* name;
  Answer answer;
};

constexpr std::array OkButton = {BoxButton{QMessageBox::Ok, "cmdOk", Answer::Ok}};
constexpr std::array QuestionButtons = {
    BoxButton{QMessageBox::Yes, "cmdYes", Answer::Yes},
    BoxButton{QMessageBox::No, "cmdNo", Answer::No},
    BoxButton{QMessageBox::Cancel, "cmdCancel", Answer::Cancel},
};

std::span<const BoxButton> ButtonsOf(MessageButtons buttons) {
  if (buttons == MessageButtons::Ok) return OkButton;
  return std::span(QuestionButtons).first(buttons == MessageButtons::YesNo ? 2 : 3);
}

QMessageBox::Icon IconOf(MessageIcon icon) {
  if (icon == MessageIcon::Information) return QMessageBox::Information;
  if (icon == MessageIcon::Exclamation) return QMessageBox::Warning;
  return icon == MessageIcon::Critical ? QMessageBox::Critical : QMessageBox::NoIcon;
}

void Prepare(QFileDialog& dialog, const FileQuestion& question) {
  dialog.setWindowTitle(QString::fromUtf8(question.title));
  dialog.setDirectory(QString::fromStdString(question.folder));
  dialog.setOption(QFileDialog::HideNameFilterDetails); // the names contain the patterns
  dialog.setNameFilters(NameFilters(question.filter));
  // Qt's own dialog truncates sizes and dates. A native one has no such view.
  if (const auto* const details = dialog.findChild<QTreeView*>(QStringLiteral("treeView")))
    details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

std::optional<QString> Chosen(QFileDialog& dialog) {
  const bool isAccepted = dialog.exec() == QDialog::Accepted;
  // After a native dialog, the keyboard may be in no window.
  if (QWidget* const owner = dialog.parentWidget()) owner->activateWindow();
  if (!isAccepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
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

// Qt's own dialog gives the chosen filter's name without the patterns that it hides.
qsizetype ChosenFilter(const QFileDialog& dialog) {
  const QStringList filters = dialog.nameFilters();
  const QString chosen = dialog.selectedNameFilter();
  return std::ranges::find_if(filters, [&](const QString& filter) { return filter.startsWith(chosen); }) -
         filters.begin();
}

// Adds the chosen filter's extension to a name without one of the filters' extensions. In "Taxi 446.1" the end is a
// frequency.
QString WithExtension(const QString& path, const FileQuestion& question, qsizetype chosenFilter) {
  const QStringList parts = QString::fromStdString(question.filter).split(QLatin1Char('|'));
  QString extension = QString::fromStdString(question.extension);
  for (qsizetype i = 1; i < parts.size(); i += 2) {
    const QString known = parts[i].mid(2); // after "*."
    if (path.endsWith(QLatin1Char('.') + known, Qt::CaseInsensitive)) return path;
    if (i == 2 * chosenFilter + 1) extension = known;
  }
  return path + (path.endsWith(QLatin1Char('.')) ? QString() : QStringLiteral(".")) + extension;
}

// Strikeout and underline are not used. Their space stays reserved, since it gives the sample its height.
void HideEffects(QFontDialog& dialog) {
  for (const QCheckBox* const effect : dialog.findChildren<QCheckBox*>()) {
    QWidget* const group = effect->parentWidget();
    QSizePolicy policy = group->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    group->setSizePolicy(policy);
    group->hide();
  }
}

} // namespace

Answer QtMessageView::Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) {
  const TransferPause pause(m_input);
  QMessageBox box(OwnerWindow());
  box.setObjectName(QStringLiteral("messageBox"));
  box.setIcon(IconOf(icon));
  box.setWindowTitle(QString::fromUtf8(title));
  box.setTextFormat(Qt::PlainText); // paths are not markup
  box.setText(QString::fromUtf8(text));
  const std::span<const BoxButton> offered = ButtonsOf(buttons);
  for (const BoxButton& button : offered)
    box.addButton(button.button)->setObjectName(QLatin1String(button.name));
  box.setDefaultButton((buttons == MessageButtons::YesNoCancel ? offered.front() : offered.back()).button);
  const int pressed = box.exec();
  for (const BoxButton& button : offered)
    if (button.button == pressed) return button.answer;
  return offered.back().answer; // closed without a button
}

QStringList NameFilters(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
    filters.append(QStringLiteral("%1 (%2 %3)")
                       .arg(QString::fromUtf8(parts[i].toStdString()), parts[i + 1], parts[i + 1].toLower()));
  return filters;
}

std::optional<std::string> QtFileDialogs::AskOpen(const FileQuestion& question) {
  QFileDialog dialog(OwnerWindow());
  Prepare(dialog, question);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(QString::fromStdString(question.extension));
  const std::optional<QString> path = Chosen(dialog);
  return path ? std::optional(QDir::toNativeSeparators(*path).toStdString()) : std::nullopt;
}

std::optional<std::string> QtFileDialogs::AskSave(const FileQuestion& question) {
  QFileDialog dialog(OwnerWindow());
  Prepare(dialog, question);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.selectFile(QString::fromStdString(question.proposedName));
  while (const std::optional<QString> path = Chosen(dialog)) {
    const QString whole = WithExtension(*path, question, ChosenFilter(dialog));
    if (!MayBeWritten(whole, whole != *path, dialog.windowTitle())) continue;
    if (question.chosenFilter != nullptr) *question.chosenFilter = static_cast<std::size_t>(ChosenFilter(dialog));
    return QDir::toNativeSeparators(whole).toStdString();
  }
  return std::nullopt;
}

std::optional<FontDescription> QtFontDialog::AskFont(const FontDescription& preset) {
  QFont font(QString::fromStdString(preset.name), preset.size);
  font.setBold(preset.bold);
  font.setItalic(preset.italic);
  // The dialog lists installed fonts only, so it is preset to the substitute for a missing one. The original name is
  // kept unless the user picks another family.
  const QFontInfo drawn(font);
  font.setFamilies({drawn.family()});
  font.setStyleName(drawn.styleName());

  QFontDialog dialog(font, OwnerWindow());
  HideEffects(dialog);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const QFont chosen = dialog.selectedFont();
  FontDescription answer = preset;
  if (chosen.family() != drawn.family()) answer.name = chosen.family().toStdString();
  if (chosen.pointSize() > 0) answer.size = chosen.pointSize(); // -1 for a size in pixels
  answer.bold = chosen.bold();
  answer.italic = chosen.italic();
  return answer;
}

} // namespace mr4500x
