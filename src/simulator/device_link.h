// A symbolic link that gives the pseudo-terminal a name of the user's choice, as long as the simulator runs.
#pragma once

#include <optional>
#include <string>

namespace mr4500x {

class DeviceLink {
public:
  DeviceLink() = default;
  ~DeviceLink(); // removes the link unless somebody else has taken over its name
  DeviceLink(const DeviceLink&) = delete;
  DeviceLink& operator=(const DeviceLink&) = delete;

  // Replaces a link that an earlier run left behind, but nothing else. On failure the reason.
  [[nodiscard]] std::optional<std::string> Make(const std::string& path, const std::string& device);

private:
  std::string m_path;
  std::string m_device;
};

} // namespace mr4500x
