// Any settings file, changed: what is set comes back, every other line and value stays as it is.
#include "fuzz_input.h"
#include "profile.h"

namespace mr4500x {
namespace {

// Only within one line, or by whole new lines, may a text change.
void RequireOtherLinesKept(const std::string& before, const std::string& after) {
  const std::size_t most = std::min(before.size(), after.size());
  std::size_t head = 0, tail = 0;
  while (head < most && before[head] == after[head])
    ++head;
  while (tail < most - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
    ++tail;
  Require(before.substr(head, before.size() - tail - head).find('\n') == std::string::npos, "no line is lost");
}

std::string CommonPort(const std::string& text) {
  return std::string(FindIniValue(text, "Comm Port", "Common Port").value_or("none"));
}

void SetAndFind(std::string& text, FuzzInput& input) {
  const std::string section = input.Text(), key = input.Text(), value = input.Text(), before = text;
  if (!SetIniValue(text, section, key, value)) return Require(text == before, "a refused value changes nothing");
  std::string inOneLine = value;
  for (char& c : inOneLine)
    if (c == '\r' || c == '\n' || c == '\0') c = ' ';
  Require(FindIniValue(text, section, key) == inOneLine, "a value comes back as it was set");
  RequireOtherLinesKept(before, text);
  const std::string once = text, port = CommonPort(text);
  Require(SetIniValue(text, section, key, value) && text == once, "setting a value again changes nothing");
  const bool isPort = SetIniValue(text, section, key, "another") && CommonPort(text) != port;
  Require(isPort || port == CommonPort(before), "another key keeps its value");
  text = once;
}

void UseSettings(FuzzInput input) {
  const int changes = input.Below(8);
  const std::string steps = input.Text();
  std::string text = input.Rest();
  FuzzInput step({reinterpret_cast<const std::uint8_t*>(steps.data()), steps.size()});
  for (int i = 0; i <= changes; ++i)
    SetAndFind(text, step);
}

} // namespace
} // namespace mr4500x

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mr4500x::UseSettings(mr4500x::FuzzInput({data, size}));
  return 0;
}
