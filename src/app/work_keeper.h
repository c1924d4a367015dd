// Keeps a copy of the work in the editor, at most two seconds old, while it differs from what was last opened, saved,
// read or written. What counts is what the editor shows, not ModifiedFlag. The copies are written by a thread of their
// own, so that no slow disk stops the window, and never begun during a transfer.
#pragma once

#include "configuration.h"
#include "editor_state.h"
#include "kept_copies.h"
#include "main_services.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <functional>
#include <optional>
#include <string>

namespace mr4500x {

class EditorPanel;

class WorkKeeper final : public QObject {
  Q_OBJECT
public:
  // Looks at the editor a second after any input to the program.
  WorkKeeper(const MainServices& services, const RadioImage& image, const EditorPanel& panel, const FieldTexts& texts,
             QObject* parent);

  void KeepNow();                     // brings the copy up to date
  void AwaitKept();                   // waits until it is on the disk
  void End() { m_isEnding = true; }   // a question that is open is not answered any more
  void PutAside();                    // the user gives up what the editor shows: no start asks about it
  void Replaced();                    // the same, as other data is about to be shown
  void Settled(const Origin& source); // the editor shows now what is in this place
  [[nodiscard]] bool IsOpenElsewhere(const std::string& path); // in another window of this user
  // Asks about each copy that an earlier window left, the newest first, until one is taken; its data is stored in the
  // image. None if none was taken.
  [[nodiscard]] std::optional<KeptCopy> TakeLeft(RadioImage& image);
  void Took(const KeptCopy& copy); // the editor shows now work that was kept and is still in no file
  // The user has entered the embedded information of the image. No file holds it, so it is kept until it is in a radio,
  // or replaced.
  void InfoEntered(const EmbeddedInfo& before);
  void InfoWritten();
  [[nodiscard]] bool HasEnteredInfo() const { return m_info.has_value(); }

signals:
  void CopyMissing(bool isMissing); // whether unsaved work is without its copy; emitted when this changes

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void LookAgain();
  void Written(int number, bool isWritten);
  void SetMissing(bool isMissing);
  void Forget();
  void Do(std::function<void(KeptCopies&)> work); // by the thread of the copies, in this order

  const MainServices& m_services;
  const RadioImage& m_image;
  const EditorPanel& m_panel;
  const FieldTexts& m_texts;
  KeptCopies m_copies;
  Configuration m_settled;
  RadioImage m_settledImage; // with the bytes that the editor doesn't show
  std::string m_source;
  std::optional<std::string> m_tookDifferences; // of work that was taken and is not settled yet
  std::optional<EmbeddedInfo> m_info;           // that was entered and is in no radio yet
  EmbeddedInfo m_infoBefore;
  std::optional<Configuration> m_kept;
  bool m_isMissing = false; // the copy
  bool m_isWriting = false;
  int m_number = 0; // of the copy that was asked for last
  bool m_isEnding = false;
  QTimer m_look;
  QThreadPool m_thread; // the last member, as its work uses the others
};

} // namespace mr4500x
