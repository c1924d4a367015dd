#pragma once

class QProcess;

namespace mr4500x {

// Makes a process that is not started yet end with the program, even if the program crashes.
void EndWithProgram(QProcess& process);

} // namespace mr4500x
