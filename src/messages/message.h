#pragma once

#include <string>

#include "message_view.h"

namespace mr4500x {

struct Message {
  MessageIcon icon;
  std::string title;
  std::string text;
  bool operator==(const Message&) const = default;
};

} // namespace mr4500x
