#include "child_process.h"

namespace mr4500x {

void EndWithProgram(QProcess& /*process*/) {} // there is none here

} // namespace mr4500x
