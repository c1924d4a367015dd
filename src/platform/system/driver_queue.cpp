#include "driver_queue.h"

#include <cerrno>

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace mr4500x {

std::optional<std::size_t> HandToDriver(int device, std::span<const std::uint8_t> bytes) {
  std::size_t taken = 0;
  while (taken < bytes.size()) {
    const ssize_t count = write(device, bytes.data() + taken, bytes.size() - taken);
    if (count > 0)
      taken += static_cast<std::size_t>(count);
    else if (count == 0 || errno == EAGAIN)
      break;
    else if (errno != EINTR)
      return std::nullopt;
  }
  return taken;
}

std::optional<std::size_t> DriverQueueLength(int device) {
  int count = 0;
  if (ioctl(device, TIOCOUTQ, &count) != 0) return std::nullopt;
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool HasHungUp(int device) {
  pollfd state{device, POLLIN, 0};
  if (poll(&state, 1, 0) < 0) return errno != EINTR;
  return (state.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

} // namespace mr4500x
