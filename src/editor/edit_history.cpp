#include "edit_history.h"

#include "differences.h"
#include "entry_controls.h"

#include <QApplication>
#include <QMenuBar>

#include <algorithm>
#include <utility>

namespace mr4500x {
namespace {

constexpr int MostSteps = 1000; // about 12 KB each

// The first difference in the table of settings is the cause of the others, except for a frequency that a new step has
// rounded.
const Difference& CauseOf(const std::vector<Difference>& differences) {
  const auto isStep = [](const Difference& difference) {
    const FieldPlace& place = difference.at.field->place;
    return place == FieldPlace(GridColumn::RxStep) || place == FieldPlace(GridColumn::TxStep);
  };
  const auto step = std::ranges::find_if(differences, isStep);
  const bool isRounded = differences.front().at.field->kind == FieldKind::Frequency && step != differences.end();
  return isRounded ? *step : differences.front();
}

// "CH3 Rx Freq" for a cell, whose value is visible, and "Select Call: 5 Tone" for other settings.
QString NameOfStep(const std::vector<Difference>& differences) {
  const Difference& cause = CauseOf(differences);
  QString setting = QString::fromStdString(NameOf(cause.at)).section('(', 0, 0).trimmed();
  if (IsArray(cause.at.field->group)) return setting;
  return setting + QStringLiteral(": ") + QString::fromStdString(cause.after);
}

} // namespace

// The override arrives before the key, and an open list may already act on it.
bool MayEdit(QEvent::Type type) {
  return type == QEvent::ShortcutOverride || type == QEvent::KeyPress || type == QEvent::KeyRelease ||
         type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
         type == QEvent::MouseButtonDblClick || type == QEvent::Wheel || type == QEvent::Drop;
}

// Holds the state on the other side of the step.
class EditHistory::Step final : public QUndoCommand {
public:
  Step(EditHistory& history, State before, const QString& name)
      : QUndoCommand(name), m_history(history), m_other(std::move(before)) {}

  void undo() override { m_history.ExchangeWith(m_other); }
  void redo() override {
    if (std::exchange(m_isNew, false)) return; // when it was pushed, it had already been done
    m_history.ExchangeWith(m_other);
  }

private:
  EditHistory& m_history;
  State m_other;
  bool m_isNew = true;
};

EditHistory::EditHistory(RadioImage& image, std::function<Configuration()> shown,
                         std::function<void(const Configuration&)> show, QObject* parent)
    : QObject(parent), m_image(image), m_shown(std::move(shown)), m_show(std::move(show)) {
  m_stack.setUndoLimit(MostSteps);
  QCoreApplication::instance()->installEventFilter(this);
}

void EditHistory::Restart() {
  m_stack.clear();
  m_current = {m_shown(), m_image};
}

// A difference without a name, such as a key of the emergency pair that a save completes, is not a separate step.
void EditHistory::TakeStep(const QString& name) {
  Configuration shown = m_shown();
  const bool isOtherStandard = m_image.FiveToneStandard != m_current.image.FiveToneStandard; // after a collect
  if (shown == m_current.configuration && !isOtherStandard && name.isEmpty()) return;
  const std::vector<Difference> differences = DifferencesBetween(m_current.configuration, shown);
  State before = std::exchange(m_current, {std::move(shown), m_image});
  if (differences.empty() && name.isEmpty()) return;
  m_stack.push(new Step(*this, std::move(before), name.isEmpty() ? NameOfStep(differences) : name));
}

void EditHistory::Undo() {
  TakeStep();
  if (!m_stack.canUndo()) return emit StatusMessage(tr("Nothing to undo"));
  const QString name = m_stack.undoText();
  m_stack.undo();
  emit StatusMessage(tr("Undone: %1").arg(name));
}

void EditHistory::Redo() {
  TakeStep();
  if (!m_stack.canRedo()) return emit StatusMessage(tr("Nothing to redo"));
  const QString name = m_stack.redoText();
  m_stack.redo();
  emit StatusMessage(tr("Redone: %1").arg(name));
}

void EditHistory::ExchangeWith(State& other) {
  std::swap(m_current, other);
  other.image = m_image;
  // These have their own commands, which are not undone.
  m_current.image.EmbeddedInfoBlock = m_image.EmbeddedInfoBlock;
  m_current.image.WriteStampBlock = m_image.WriteStampBlock;
  m_image = m_current.image;
  m_show(m_current.configuration);
}

// Typing in a box ends when the focus leaves it, but not for the menu bar or another window.
QWidget* EditHistory::TypedBox() const {
  QWidget* const holder = m_typed != nullptr ? m_typed->window()->focusWidget() : QApplication::focusWidget();
  return qobject_cast<QMenuBar*>(holder) != nullptr ? m_typed.data() : qobject_cast<EntryBox*>(holder);
}

// Before an input, the effect of the last one is complete, unless a dialog is still waiting for an answer.
bool EditHistory::eventFilter(QObject* watched, QEvent* event) {
  if (MayEdit(event->type()) && QApplication::activeModalWidget() == nullptr) {
    QWidget* const box = TypedBox();
    if (box == nullptr || box != m_typed) TakeStep();
    m_typed = box;
  }
  return QObject::eventFilter(watched, event);
}

} // namespace mr4500x
