// What the main program asks for, one line a request, on the standard input.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

namespace mr4500x {

class RequestInput final : public QObject {
  Q_OBJECT

public:
  explicit RequestInput(int descriptor);

  void ReadWaiting(); // takes what has come, without waiting for more

signals:
  void ContentsWanted();
  void IndexWanted();
  void Ended(); // nobody is there to ask any more

private:
  void TakeLines();

  int m_descriptor;
  QByteArray m_received;
  QSocketNotifier m_notifier;
};

} // namespace mr4500x
