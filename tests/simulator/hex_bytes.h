// Bytes as tables of cases write them: "57 00 08"; words in capitals stand for whole messages.
#pragma once

#include <cstdint>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

namespace mr4500x {

inline std::vector<std::uint8_t> FromHex(const std::string& text) {
  std::vector<std::uint8_t> bytes;
  std::istringstream words(text);
  std::string word;
  const auto append = [&](std::string_view message) { bytes.insert(bytes.end(), message.begin(), message.end()); };
  while (words >> word) {
    if (word == "READ") {
      append("rEAD");
    } else if (word == "WRITE") {
      append("wRITE");
    } else if (word == "END") {
      append("\x57\xAA\xAA\xAA\x55\x55\x55\x55\x55\x55\x55\x55");
    } else {
      bytes.push_back(static_cast<std::uint8_t>(std::stoul(word, nullptr, 16)));
    }
  }
  return bytes;
}

inline std::string ToHex(const std::vector<std::uint8_t>& bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    char word[4];
    std::snprintf(word, sizeof word, "%02X", static_cast<unsigned>(byte));
    text += (text.empty() ? "" : " ") + std::string(word);
  }
  return text;
}

} // namespace mr4500x
