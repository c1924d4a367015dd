#include "radio_identity.h"

#include "embedded_info.h"
#include "function_settings.h"
#include "utf8.h"

#include <nlohmann/json.hpp>

namespace mr4500x {
std::string IdentityTable(const RadioImage& image) {
  return "ID Number              " + Printable(IdentityNumber(image)) + "\nVersion of Firmware    " +
         Printable(FirmwareVersion(image)) + "\nFrequency Band         " + BandText(image.BandBlock) +
         "\nLast Programming Time  " + LastProgrammingTime(image) + '\n';
}

std::string IdentityJson(const RadioImage& image) {
  const nlohmann::ordered_json document = {
      {"format", 1},
      {"id_number", IdentityNumber(image)},
      {"firmware_version", FirmwareVersion(image)},
      {"band", {{"lower", LowerBandLimit(image.BandBlock)}, {"upper", UpperBandLimit(image.BandBlock)}}},
      {"last_programming_time", LastProgrammingTime(image)},
  };
  return document.dump(2) + '\n';
}

} // namespace mr4500x
