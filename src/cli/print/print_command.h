// The print command: the reports of a data file as a PDF file.
#pragma once

#include "file_system.h"
#include "print_reports.h"
#include "terminal.h"

#include <QLocale>

#include <string>
#include <string_view>

namespace mr4500x {

// "channels,tts,info" or some of them in any order. "" means all.
[[nodiscard]] ReportChoice ReportsNamed(std::string_view names);

// Prints the same pages as the desktop program, with numbers and date in the user's locale.
[[nodiscard]] ExitStatus RunPrint(FileSystem& files, const std::string& dataFile, const std::string& pdfFile,
                                  const ReportChoice& choice, const QLocale& locale, const LocalTime& now,
                                  Terminal& terminal);

} // namespace mr4500x
