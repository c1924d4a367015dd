// The demo: drives the real window through its menus and dialogs and takes a screenshot of each step. It reads the
// radio, shows both views and the embedded information, saves the configuration and writes the radio.
#pragma once

#include "channel_record.h"
#include "frm_main.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <string>
#include <vector>

namespace mr4500x {

class Demo : public QObject {
  Q_OBJECT
public:
  // Pictures and the data file "radio.K4X" go to `folder`.
  Demo(FrmMain& window, QString folder);

  void Start();
  [[nodiscard]] bool HasSucceeded() const { return m_succeeded; }

signals:
  void Ended();

private:
  struct Step {
    std::string tells;          // printed on standard output unless empty
    std::string picture;        // taken after the step
    std::function<void()> work; // the dialogs and message boxes it opens are answered by Look
  };

  void Look(); // answers an open dialog, else runs the next step
  void LookAtProgress();
  bool AnswerDialog();
  void RunNextStep();
  void Trigger(const char* action);
  void OpenCell(GridColumn column);
  void PictureFrames();
  void Picture(QWidget& window, const std::string& name);
  void Finish();

  FrmMain& m_window;
  QString m_folder;
  std::vector<Step> m_steps;
  std::size_t m_next = 0;
  QTimer m_look;
  bool m_isWorking = false;
  bool m_progressPictured = false;
  int m_patience;
  bool m_succeeded = false;
};

} // namespace mr4500x
