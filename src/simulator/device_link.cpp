#include "device_link.h"

#include <filesystem>
#include <system_error>

namespace mr4500x {
namespace {

namespace fs = std::filesystem;

// A link left behind: to nothing, or to the device that is now ours.
bool IsStale(const std::string& path, const std::string& device) {
  std::error_code error;
  if (!fs::is_symlink(fs::symlink_status(path, error))) return false;
  return !fs::exists(path, error) || fs::read_symlink(path, error) == device;
}

} // namespace

DeviceLink::~DeviceLink() {
  std::error_code error;
  if (!m_path.empty() && fs::read_symlink(m_path, error) == m_device) fs::remove(m_path, error);
}

std::optional<std::string> DeviceLink::Make(const std::string& path, const std::string& device) {
  std::error_code error;
  if (IsStale(path, device)) fs::remove(path, error);
  fs::create_symlink(device, path, error);
  if (error) return "cannot make the link " + path + ": " + error.message();
  m_path = path;
  m_device = device;
  return std::nullopt;
}

} // namespace mr4500x
