// On Windows a program is ended by events of its console. They arrive in a separate thread.
#pragma once

#include <functional>

namespace mr4500x {

// From now on, that thread reports each event that is not held, instead of ending the program. With `isLast` the next
// one ends it anyway. With an empty function the events end the program again.
void ReportConsoleEvents(std::function<void(int signal)> report, bool isLast);

} // namespace mr4500x
