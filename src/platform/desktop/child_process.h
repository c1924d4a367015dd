#pragma once

class QProcess;

namespace mr4500x {

// The process, not started yet, is to end with the program, even if that crashes.
void EndWithProgram(QProcess& process);

} // namespace mr4500x
