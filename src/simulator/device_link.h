// A symbolic link to the pseudo-terminal, with a name of the user's choice, while the simulator runs.
#pragma once

#include <optional>
#include <string>

namespace mr4500x {

class DeviceLink {
public:
  DeviceLink() = default;
  ~DeviceLink(); // removes the link unless it no longer leads to our device
  DeviceLink(const DeviceLink&) = delete;
  DeviceLink& operator=(const DeviceLink&) = delete;

  // Replaces a link that an earlier run left behind, but nothing else. Returns the reason of a failure.
  [[nodiscard]] std::optional<std::string> Make(const std::string& path, const std::string& device);

private:
  std::string m_path;
  std::string m_device;
};

} // namespace mr4500x
