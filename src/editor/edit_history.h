// Undo and redo of the user's changes in the editor. A step is everything that one action changed. All typing in a text
// box is one step. Steps are found by comparing what the editor shows, so controls do not have to report their changes.
#pragma once

#include "configuration.h"

#include <QEvent>
#include <QPointer>
#include <QUndoStack>
#include <QWidget>

#include <functional>

namespace mr4500x {

// Whether an event is user input that may change what the editor shows.
[[nodiscard]] bool MayEdit(QEvent::Type type);

class EditHistory final : public QObject {
  Q_OBJECT
public:
  // `shown` returns what the editor shows. `show` restores such a state, without messages and rules.
  EditHistory(RadioImage& image, std::function<Configuration()> shown, std::function<void(const Configuration&)> show,
              QObject* parent);

  void Restart(); // the editor shows other data now
  // Makes a step of the changes since the last one, named after the first difference unless `name` is given. Without
  // this call it happens automatically before the next input. With a name it is a step even if only bytes of the image
  // have changed.
  void TakeStep(const QString& name = {});
  void Undo();
  void Redo();
  [[nodiscard]] const QUndoStack& Stack() const { return m_stack; }

signals:
  void StatusMessage(const QString& message); // what was undone or redone

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  // The image has the bytes that the controls don't show: a new lower limit and each collect change them.
  struct State {
    Configuration configuration;
    RadioImage image;
  };
  class Step;

  void ExchangeWith(State& other);
  [[nodiscard]] QWidget* TypedBox() const;

  RadioImage& m_image;
  std::function<Configuration()> m_shown;
  std::function<void(const Configuration&)> m_show;
  State m_current;           // after the last step
  QPointer<QWidget> m_typed; // the text box that had the focus at the last input
  QUndoStack m_stack;
};

} // namespace mr4500x
