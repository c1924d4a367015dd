// print: the reports of a data file as a PDF file.
#pragma once

#include "exit_status.h"
#include "file_system.h"
#include "print_reports.h"
#include "terminal.h"

#include <QLocale>

#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

// "channels,tts,info", or some of them in any order; nothing for another name or for none.
[[nodiscard]] std::optional<ReportChoice> ParseReports(std::string_view names);

// The pages that the desktop program prints of the same file. Numbers and date are written as the locale has them,
// which is the window's way too.
[[nodiscard]] ExitStatus RunPrint(FileSystem& files, const std::string& dataFile, const std::string& pdfFile,
                                  const ReportChoice& choice, const QLocale& locale, const LocalTime& now,
                                  Terminal& terminal);

} // namespace mr4500x
