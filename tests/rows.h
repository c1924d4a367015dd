// Tables of test cases in text files beside the tests, one case per line. "#" begins a comment.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace mr4500x {

using Row = std::vector<std::string>; // the whole line, and the parts of its form

inline std::vector<Row> RowsOf(const std::string& path, const std::string& form) {
  std::ifstream file(path);
  std::vector<Row> rows;
  std::smatch match;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    EXPECT_TRUE(std::regex_match(line, match, std::regex(form))) << path << ": " << line;
    if (!match.empty()) rows.emplace_back(match.begin(), match.end());
  }
  EXPECT_GT(rows.size(), 5U) << path;
  return rows;
}

inline std::vector<std::uint8_t> BytesOf(const std::string& hex) {
  std::vector<std::uint8_t> bytes;
  std::istringstream in(hex);
  in >> std::hex;
  for (unsigned byte = 0; in >> byte;)
    bytes.push_back(static_cast<std::uint8_t>(byte));
  return bytes;
}

// A part with the characters that it writes as \r, \n, \t and \xHH.
inline std::string Unescaped(const std::string& part) {
  std::string text;
  for (std::size_t i = 0; i < part.size(); ++i) {
    const char letter = part[i] == '\\' ? part.at(++i) : '\0';
    if (letter == 'x') {
      text += static_cast<char>(std::stoi(part.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      text += letter == 'r' ? '\r' : letter == 'n' ? '\n' : letter == 't' ? '\t' : part[i];
    }
  }
  return text;
}

} // namespace mr4500x
