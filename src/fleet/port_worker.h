// The work at one port of a bench, in a separate thread: performs the actions of the port's state machine.
#pragma once

#include "bench_context.h"
#include "serial_line.h"

namespace mr4500x {

// Runs until the bench is over or two radios in a row have failed. Every change of state is reported. Errors of the
// port, the files and the database do not affect other ports.
void RunPort(std::size_t port, SerialLine& line, Clock& clock, Journal& journal, const BenchContext& context);

} // namespace mr4500x
