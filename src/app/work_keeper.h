// Keeps a copy of the work in the editor, at most two seconds old, while it differs from what was last opened, saved,
// read or written. What counts is what the editor shows, not ModifiedFlag.
#pragma once

#include "configuration.h"
#include "editor_state.h"
#include "kept_copies.h"
#include "main_services.h"

#include <QObject>
#include <QTimer>

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
  void KeepForEnd();                  // the same; a question that is open is not answered then
  void Replaced();                    // other data is about to be shown: puts aside what the editor shows now
  void Settled(const Origin& source); // the editor shows now what is in this place
  // Asks about each copy that an earlier window left, the newest first, until one is taken; its data is stored in the
  // image. None if none was taken.
  [[nodiscard]] std::optional<KeptCopy> TakeLeft(RadioImage& image);
  // The editor shows now work that was kept and is still in no file; from there, and with these differences.
  void Took(const std::string& source, const std::string& differences);

signals:
  void CopyFailed(); // told once for all in a row, and again when the work is replaced

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  const MainServices& m_services;
  const RadioImage& m_image;
  const EditorPanel& m_panel;
  const FieldTexts& m_texts;
  KeptCopies m_copies;
  Configuration m_settled;
  RadioImage m_settledImage; // with the bytes that the editor doesn't show
  std::string m_source;
  std::optional<std::string> m_tookDifferences; // of work that was taken and is not settled yet
  std::optional<Configuration> m_kept;
  bool m_failed = false; // and that was told
  bool m_isEnding = false;
  QTimer m_look;
};

} // namespace mr4500x
