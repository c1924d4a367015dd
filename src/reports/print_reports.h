// Prints the chosen reports as one job.
#pragma once

#include "printer.h"
#include "report_texts.h"

#include <optional>
#include <string>

namespace mr4500x {

struct ReportChoice {
  bool channels = false; // the channel table with the global settings
  bool tts = false;
  bool info = false; // the embedded information
  [[nodiscard]] bool Any() const { return channels || tts || info; }
  bool operator==(const ReportChoice&) const = default;
};

// Prints one page per report, in the order above. On failure it abandons the job and returns the system's description.
[[nodiscard]] std::optional<std::string> PrintReports(Printer& printer, const ReportTexts& texts,
                                                      const ReportChoice& choice);

} // namespace mr4500x
