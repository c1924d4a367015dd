#include "processes.h"

#include "wide_text.h"

#include <algorithm>

#include <windows.h>

namespace mr4500x {
namespace {

// As the start of a program takes it apart again: a backslash counts as such unless a quotation mark follows.
std::wstring Quoted(std::wstring_view argument) {
  if (!argument.empty() && argument.find_first_of(L" \t\"") == std::wstring_view::npos) return std::wstring(argument);
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : argument) {
    if (c == L'"') quoted.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, L'\\') + L'"';
}

} // namespace

// There is no exec: this process stays until the other ends. Console events reach both, and the other decides.
void BecomeProgram(const std::string& program, std::vector<std::string> arguments) {
  std::wstring line;
  for (const std::string& argument : arguments)
    line += (line.empty() ? L"" : L" ") + Quoted(Wide(argument));
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  SetConsoleCtrlHandler([](DWORD) -> BOOL { return TRUE; }, TRUE);
  if (CreateProcessW((WidePath(program) + L".exe").c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                     &start, &process) == FALSE)
    return;
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 1;
  GetExitCodeProcess(process.hProcess, &status);
  ExitProcess(status);
}

void IgnoreBrokenPipes() {} // no signal here

std::string UserOfDevice(const std::string& /*device*/) {
  return {};
}

} // namespace mr4500x
