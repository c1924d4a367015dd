#include "radio_identity.h"

#include "embedded_info.h"
#include "function_settings.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>

namespace mr4500x {
namespace {

std::string WithoutEndBlanks(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::string IdentityNumber(const RadioImage& image) {
  return WithoutEndBlanks(CharactersText(image.RadioIdBlock));
}
std::string FirmwareVersion(const RadioImage& image) {
  return WithoutEndBlanks(CharactersText(image.FirmwareVersionBlock));
}

std::string TwoDigits(int number) {
  return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

void Replace(std::string& text, std::string_view what, const std::string& by) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
    text.replace(at, what.size(), by);
}

} // namespace

std::string IdentityTable(const RadioImage& image) {
  return "ID Number              " + IdentityNumber(image) + "\nVersion of Firmware    " + FirmwareVersion(image) +
         "\nFrequency Band         " + std::to_string(LowerBandLimit(image.BandBlock)) + " to " +
         std::to_string(UpperBandLimit(image.BandBlock)) + " MHz\nLast Programming Time  " +
         LastProgrammingTime(image) + '\n';
}

std::string IdentityJson(const RadioImage& image) {
  const nlohmann::ordered_json document = {
      {"id_number", IdentityNumber(image)},
      {"firmware_version", FirmwareVersion(image)},
      {"band", {{"lower", LowerBandLimit(image.BandBlock)}, {"upper", UpperBandLimit(image.BandBlock)}}},
      {"last_programming_time", LastProgrammingTime(image)},
  };
  return document.dump(2) + '\n';
}

std::string FilledIn(std::string path, const RadioImage& image, const LocalTime& now) {
  std::string id = IdentityNumber(image);
  std::ranges::replace_if(
      id, [](unsigned char c) { return c >= 0x80 || (std::isalnum(c) == 0 && c != '-'); }, '_');
  Replace(path, "{id}", id.empty() ? "unknown" : id);
  Replace(path, "{date}", std::to_string(now.year) + TwoDigits(now.month) + TwoDigits(now.day));
  Replace(path, "{time}", TwoDigits(now.hour) + TwoDigits(now.minute) + TwoDigits(now.second));
  return path;
}

} // namespace mr4500x
