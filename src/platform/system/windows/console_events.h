// What ends a program here: the events of its console. They arrive in a thread of their own.
#pragma once

#include <functional>

namespace mr4500x {

// From here on each event that is not held is reported, by that thread, in place of ending the program; the next one
// ends it all the same where `isLast` says so. An empty function: the events end the program again.
void ReportConsoleEvents(std::function<void(int signal)> report, bool isLast);

} // namespace mr4500x
