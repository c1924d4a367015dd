#include "child_process.h"

#include <QProcess>

#include <csignal>

#include <sys/prctl.h>

namespace mr4500x {

void EndWithProgram(QProcess& process) {
  process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
}

} // namespace mr4500x
