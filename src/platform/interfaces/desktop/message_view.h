// Message boxes: all failures and questions of the commands go through them.
#pragma once

#include <string_view>

namespace mr4500x {

enum class MessageIcon { None, Information, Exclamation, Critical };
enum class MessageButtons {
  Ok,
  YesNo,         // No is the default: such a question is about something that can't be taken back
  YesNoCancel,   // Yes is the default
  YesNoOrCancel, // Cancel is the default
};
enum class Answer { Ok, Yes, No, Cancel };

class MessageView {
public:
  virtual ~MessageView() = default;
  virtual Answer Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) = 0;
};

} // namespace mr4500x
