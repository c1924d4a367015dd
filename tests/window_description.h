// A window as text, so that a test can compare all of it: a line for each visible widget, indented by depth. It has no
// positions and no sizes, so it does not depend on fonts.
#pragma once

#include <QStringList>

class QWidget;

namespace mr4500x {

// All windows that are shown, `main` first.
[[nodiscard]] QStringList DescribeWindows(const QWidget* main);

// The lines that differ, with "- " and "+ " in front.
[[nodiscard]] QStringList ChangedLines(const QStringList& before, const QStringList& after);

} // namespace mr4500x
