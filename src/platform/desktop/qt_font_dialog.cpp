#include "qt_font_dialog.h"

#include "owner_window.h"

#include <QCheckBox>
#include <QFontDialog>
#include <QFontInfo>

namespace mr4500x {
namespace {

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
  dialog.setObjectName(QStringLiteral("fontDialog"));
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
