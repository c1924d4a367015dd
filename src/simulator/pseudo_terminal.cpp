#include "pseudo_terminal.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace mr4500x {

PseudoTerminal::~PseudoTerminal() {
  if (m_slave >= 0) close(m_slave);
  if (m_master >= 0) close(m_master);
}

std::optional<std::string> PseudoTerminal::Open() {
  std::array<char, 128> name{};
  termios line{};
  m_master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  bool isReady = m_master >= 0 && grantpt(m_master) == 0 && unlockpt(m_master) == 0 &&
                 ptsname_r(m_master, name.data(), name.size()) == 0;
  if (isReady) m_slave = open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  isReady = isReady && m_slave >= 0 && tcgetattr(m_slave, &line) == 0;
  if (isReady) {
    cfmakeraw(&line); // no echo, no translation of bytes
    isReady = tcsetattr(m_slave, TCSANOW, &line) == 0;
  }
  if (!isReady) return "cannot open a pseudo-terminal: " + std::generic_category().message(errno);
  m_device = name.data();
  return std::nullopt;
}

void PseudoTerminal::Wait(std::chrono::nanoseconds atMost, const sigset_t& blocked) const {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(atMost);
  timespec timeout{};
  timeout.tv_sec = static_cast<time_t>(seconds.count());
  timeout.tv_nsec = static_cast<long>((atMost - seconds).count());
  pollfd state{m_master, POLLIN, 0};
  ppoll(&state, 1, &timeout, &blocked);
}

std::vector<std::uint8_t> PseudoTerminal::Read() const {
  std::array<std::uint8_t, 4096> buffer{};
  const ssize_t count = read(m_master, buffer.data(), buffer.size());
  if (count <= 0) return {};
  return {buffer.begin(), buffer.begin() + count};
}

void PseudoTerminal::Write(std::span<const std::uint8_t> bytes) const {
  // Like a cable with nobody at the other end: when the buffer is full the rest is lost.
  while (!bytes.empty()) {
    const ssize_t count = write(m_master, bytes.data(), bytes.size());
    if (count <= 0) return;
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
}

void PseudoTerminal::EndExclusiveUse() const {
  ioctl(m_slave, TIOCNXCL);
}

} // namespace mr4500x
