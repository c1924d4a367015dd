// What the pages of all reports share: the frame, the model line, and the fitting of a page above its footer.
#pragma once

#include "report_pages.h"

#include <functional>

namespace mr4500x {

inline constexpr PrintFont Small = {8, false};
inline constexpr PrintFont SmallBold = {8, true};
inline constexpr PrintFont FrameFont = {9, true};
inline constexpr PrintFont TitleFont = {12, false};

// The first line of reports 1 and 2.
void AddModelLine(ReportPage& page, const ReportTexts& texts);

// The page that `addReport` makes on a setting, framed and scaled as far as it has to be.
[[nodiscard]] ReportPage FramedPage(const ReportTexts& texts, const PageSetting& setting,
                                    const std::function<void(ReportPage&, const PageSetting&)>& addReport);

} // namespace mr4500x
