#include "processes.h"

#include "wide_text.h"

#include <algorithm>

#include <windows.h>

namespace mr4500x {
namespace {

// Quotes an argument for the command line: backslashes are literal unless a quotation mark follows.
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

// There is no exec, so this process waits until the other one ends. Console events reach both, and the other one
// decides.
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

CommandEnd RunCommand(const std::string& command, std::string_view input, std::chrono::milliseconds limit) {
  constexpr int NotStarted = 127;
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE reader = nullptr, writer = nullptr;
  if (CreatePipe(&reader, &writer, &inherited, static_cast<DWORD>(input.size() + 1)) == FALSE)
    return {NotStarted, "no pipe"};
  SetHandleInformation(writer, HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = reader;
  PROCESS_INFORMATION process{};
  std::wstring line = L"cmd.exe /d /s /c \"" + Wide(command) + L'"';
  const BOOL isStarted = CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                                        nullptr, &start, &process);
  CloseHandle(reader);
  DWORD written = 0; // the pipe holds it all
  if (isStarted != FALSE) WriteFile(writer, input.data(), static_cast<DWORD>(input.size()), &written, nullptr);
  CloseHandle(writer);
  if (isStarted == FALSE) return {NotStarted, "cmd.exe can't be started"};
  CommandEnd end;
  DWORD status = 0;
  if (WaitForSingleObject(process.hProcess, static_cast<DWORD>(limit.count())) != WAIT_OBJECT_0)
    TerminateProcess(process.hProcess, 1);
  else if (GetExitCodeProcess(process.hProcess, &status) != FALSE)
    end.status = static_cast<int>(status);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return end;
}

void IgnoreBrokenPipes() {} // no signal here

std::string UserOfDevice(const std::string& /*device*/) {
  return {};
}

} // namespace mr4500x
