#include "request_input.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace mr4500x {

RequestInput::RequestInput(int descriptor) : m_descriptor(descriptor), m_notifier(descriptor, QSocketNotifier::Read) {
  fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
  connect(&m_notifier, &QSocketNotifier::activated, this, &RequestInput::ReadWaiting);
}

void RequestInput::ReadWaiting() {
  char bytes[256];
  for (;;) {
    const ssize_t count = read(m_descriptor, bytes, sizeof bytes);
    if (count > 0) {
      m_received.append(bytes, count);
      TakeLines();
    } else if (count < 0 && errno == EINTR) {
      continue;
    } else if (count < 0 && errno == EAGAIN) {
      return;
    } else {
      m_notifier.setEnabled(false);
      emit Ended();
      return;
    }
  }
}

void RequestInput::TakeLines() {
  for (qsizetype end = m_received.indexOf('\n'); end >= 0; end = m_received.indexOf('\n')) {
    const QByteArray request = m_received.left(end);
    m_received.remove(0, end + 1);
    if (request == "contents") emit ContentsWanted();
    if (request == "index") emit IndexWanted();
  }
}

} // namespace mr4500x
