// An owned file handle, and the result of an operation on a file.
#pragma once

#include "file_system.h"

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

namespace mr4500x {

// An open file, closed by the destructor. Converts to true if there is a file.
class OpenFile {
public:
  OpenFile() = default;
  OpenFile(FileSystem& files, std::optional<FileSystem::Handle> handle) : m_files(&files), m_handle(handle) {}
  OpenFile(OpenFile&& other) noexcept : m_files(other.m_files), m_handle(std::exchange(other.m_handle, {})) {}
  OpenFile& operator=(OpenFile&& other) noexcept {
    std::swap(m_files, other.m_files);
    std::swap(m_handle, other.m_handle);
    return *this;
  }
  ~OpenFile() { Close(); }

  explicit operator bool() const { return m_handle.has_value(); }
  [[nodiscard]] FileSystem::Handle operator*() const { return *m_handle; }
  void Close() {
    if (m_handle) m_files->Close(*m_handle);
    m_handle.reset();
  }

private:
  FileSystem* m_files = nullptr;
  std::optional<FileSystem::Handle> m_handle;
};

// The result of an operation on files, with the system's reason if it failed. Converts to true if it succeeded.
struct [[nodiscard]] FileResult {
  std::error_code error{};

  operator bool() const { return !error; } // NOLINT(google-explicit-constructor): callers combine it with others
  [[nodiscard]] std::string Reason() const {
    if (error == std::errc::operation_not_supported) return "not a regular file"; // see RefusedKind
    return error == std::errc::text_file_busy ? "another program has it open" : error.message();
  }
};

// The failure of the file system operation just before.
inline FileResult SystemFailed() {
  return {{errno != 0 ? errno : EIO, std::generic_category()}};
}

} // namespace mr4500x
