// Keeps a copy of the work in the editor, at most two seconds old, while it differs from what was last opened, saved,
// read or written. It compares what the editor shows and ignores ModifiedFlag. A separate thread writes the copies, so
// a slow disk does not block the window. No copy is started during a transfer.
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
  // Checks the editor a second after any input to the program.
  WorkKeeper(const MainServices& services, const RadioImage& image, const EditorPanel& panel, const FieldTexts& texts,
             QObject* parent);

  void KeepNow();                     // brings the copy up to date
  void AwaitKept();                   // waits until it is on the disk
  void End() { m_isEnding = true; }   // an open question is not answered any more
  void PutAside();                    // the user discards the work; no start asks about it
  void Replaced();                    // puts the work aside because other data is about to be shown
  void Settled(const Origin& source); // the editor now shows the content of `source`
  [[nodiscard]] bool IsOpenElsewhere(const std::string& path); // open in another window of this user
  // Asks about each copy that an earlier window left, the newest first, until one is taken and stored in the image.
  // Returns nullopt if none was taken.
  [[nodiscard]] std::optional<KeptCopy> TakeLeft(RadioImage& image);
  void WorkTaken(const KeptCopy& copy); // the editor now shows kept work that is not in a file
  [[nodiscard]] bool HasTakenWork() const { return m_takenDifferences.has_value(); }
  [[nodiscard]] bool IsCopyMissing() const { return m_isMissing; } // the last copy could not be written
  // The user has entered the embedded information of the image. No file holds it, so it is kept until it is written to
  // a radio or replaced.
  void InfoEntered(const EmbeddedInfo& before);
  void InfoWritten();
  [[nodiscard]] bool HasEnteredInfo() const { return m_info.has_value(); }

signals:
  void CopyMissing(bool isMissing); // emitted when unsaved work loses or gets its copy

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void Check();
  void Written(int number, bool isWritten);
  void SetMissing(bool isMissing);
  void Forget();
  void Do(std::function<void(KeptCopies&)> work); // in the thread for the copies, in order

  const MainServices& m_services;
  const RadioImage& m_image;
  const EditorPanel& m_panel;
  const FieldTexts& m_texts;
  KeptCopies m_copies;
  Configuration m_settled;
  RadioImage m_settledImage; // includes the bytes that the editor doesn't show
  std::string m_source;
  std::optional<std::string> m_takenDifferences; // of kept work that is not saved yet
  std::optional<EmbeddedInfo> m_info;            // entered, but not yet written to a radio
  EmbeddedInfo m_infoBefore;
  std::optional<Configuration> m_kept;
  bool m_isMissing = false; // the copy
  bool m_isWriting = false;
  int m_number = 0; // number of the last requested copy
  bool m_isEnding = false;
  QTimer m_checkTimer;
  QThreadPool m_thread; // the last member, as its work uses the others
};

} // namespace mr4500x
