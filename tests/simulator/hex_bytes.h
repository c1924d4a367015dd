// Bytes as tables of cases write them: "57 00 08"; words in capitals stand for whole messages.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <string>
#include <vector>

namespace mr4500x {

inline std::vector<std::uint8_t> FromHex(const std::string& text) {
  QByteArray hex = QByteArray::fromStdString(text);
  hex.replace("READ", "72 45 41 44").replace("WRITE", "77 52 49 54 45");
  const QByteArray bytes = QByteArray::fromHex(hex.replace("END", "57 AA AA AA 55 55 55 55 55 55 55 55"));
  return {bytes.begin(), bytes.end()};
}

inline std::string ToHex(const std::vector<std::uint8_t>& bytes) {
  const std::string characters(bytes.begin(), bytes.end());
  return QByteArray::fromStdString(characters).toHex(' ').toUpper().toStdString();
}

} // namespace mr4500x
