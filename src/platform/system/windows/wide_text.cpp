#include "wide_text.h"

#include <algorithm>

#include <windows.h>

namespace mr4500x {
namespace {

constexpr std::size_t ClassicLimit = 240; // MAX_PATH, with room for a short name to be appended
constexpr std::wstring_view LongPrefix = LR"(\\?\)";
constexpr std::wstring_view LongSharePrefix = LR"(\\?\UNC\)";
constexpr std::wstring_view SharePrefix = LR"(\\)";

} // namespace

std::wstring Wide(std::string_view text) {
  const auto length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0'); // never more units than bytes
  wide.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()))));
  return wide;
}

std::string Narrow(std::wstring_view text) {
  const auto length = static_cast<int>(text.size());
  std::string narrow(3 * text.size(), '\0'); // at most three bytes for a unit
  narrow.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(),
                                                             static_cast<int>(narrow.size()), nullptr, nullptr)));
  return narrow;
}

std::wstring WidePath(std::string_view path) {
  std::wstring wide = Wide(path);
  std::ranges::replace(wide, L'/', L'\\');
  if (wide.size() < ClassicLimit || wide.starts_with(LongPrefix)) return wide;
  std::wstring whole(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
  whole.resize(GetFullPathNameW(wide.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr));
  if (!whole.starts_with(SharePrefix)) return std::wstring(LongPrefix) + whole;
  return std::wstring(LongSharePrefix) + whole.substr(SharePrefix.size());
}

std::string PlainPath(std::wstring_view path) {
  if (path.starts_with(LongSharePrefix)) return R"(\\)" + Narrow(path.substr(LongSharePrefix.size()));
  return Narrow(path.starts_with(LongPrefix) ? path.substr(LongPrefix.size()) : path);
}

} // namespace mr4500x
