// What all reports share: fonts, frame, model line, and the scaling of a page that is too long.
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

// Adds the frame to the page that `addReport` makes, scaled down if it would reach the footer.
[[nodiscard]] ReportPage FramedPage(const ReportTexts& texts, const PageSetting& setting,
                                    const std::function<void(ReportPage&, const PageSetting&)>& addReport);

} // namespace mr4500x
