#include "pseudo_terminal.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace mr4500x {

namespace fs = std::filesystem;

PseudoTerminal::PseudoTerminal(const std::string& link) {
  std::array<char, 128> name{};
  termios line{};
  m_master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  bool isReady = m_master >= 0 && grantpt(m_master) == 0 && unlockpt(m_master) == 0 &&
                 ptsname_r(m_master, name.data(), name.size()) == 0;
  if (isReady) m_slave = open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  isReady = isReady && m_slave >= 0 && tcgetattr(m_slave, &line) == 0;
  cfmakeraw(&line); // no echo, no translation of bytes
  if (!isReady || tcsetattr(m_slave, TCSANOW, &line) != 0)
    throw std::system_error(errno, std::generic_category(), "cannot open a pseudo-terminal");
  m_device = name.data();
  if (!link.empty()) MakeLink(link);
}

PseudoTerminal::~PseudoTerminal() {
  std::error_code error;
  if (!m_link.empty() && fs::read_symlink(m_link, error) == m_device) fs::remove(m_link, error);
  close(m_slave);
  close(m_master);
}

void PseudoTerminal::MakeLink(const std::string& path) {
  std::error_code error;
  // A leftover is a link to nothing, or to the device that is now ours.
  const bool isStale = fs::is_symlink(fs::symlink_status(path, error)) &&
                       (!fs::exists(path, error) || fs::read_symlink(path, error) == m_device);
  if (isStale) fs::remove(path, error);
  fs::create_symlink(m_device, path, error);
  if (error) throw std::runtime_error("cannot make the link " + path + ": " + error.message());
  m_link = path;
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
  // When the buffer is full the rest is lost, as on a cable without a receiver.
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
