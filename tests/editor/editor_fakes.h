// Message boxes that are answered by script, and a clipboard in memory, for the tests of the editor's windows.
#pragma once

#include "clipboard.h"
#include "message_view.h"

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace mr4500x {

struct ShownMessage {
  MessageIcon icon;
  std::string title, text;
  MessageButtons buttons;
  bool operator==(const ShownMessage&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const ShownMessage& message) {
    return out << message.title << ": " << message.text;
  }
};
using ShownMessages = std::vector<ShownMessage>;

inline ShownMessages NoMessage() {
  return {};
}
// "" for no message at all.
inline ShownMessages ErrorMessage(std::string_view text) {
  if (text.empty()) return {};
  return {{MessageIcon::Exclamation, "Error", std::string(text), MessageButtons::Ok}};
}

class ScriptedMessages : public MessageView {
public:
  Answer Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) override {
    shown.push_back({icon, std::string(title), std::string(text), buttons});
    if (whileShown) whileShown();
    return answer;
  }
  ShownMessages Taken() { return std::exchange(shown, {}); }

  ShownMessages shown;
  Answer answer = Answer::Ok;
  std::function<void()> whileShown;
};

class MemoryClipboard : public Clipboard {
public:
  std::string Text() override { return text; }
  void SetText(const std::string& copied) override { text = copied; }
  std::string text;
};

} // namespace mr4500x
