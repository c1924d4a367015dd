// A bench: ports at which radios are programmed side by side, one thread each.
#pragma once

#include "pending_attempts.h"
#include "port_way.h"

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace mr4500x {

// Each is called in the thread of its port.
struct BenchPort {
  std::string name; // in messages and the journal
  std::function<std::unique_ptr<SerialPort>()> makePort;
  std::function<std::unique_ptr<Clock>()> makeClock;
  int number = 0; // of COMn, for SerialPort::SetPortNumber
};

class Bench {
public:
  using MakeJournal = std::function<std::unique_ptr<Journal>()>; // called in each port's thread

  // Starts the ports. The desk and the pending attempts live longer.
  Bench(FleetDesk& desk, const std::vector<BenchPort>& ports, const MakeJournal& makeJournal, PendingAttempts& pending);
  ~Bench(); // StopAfterTheseRadios and Wait

  void StopAfterTheseRadios();
  void Wait(); // until all ports have ended

private:
  FleetDesk& m_desk;
  std::vector<std::jthread> m_threads;
};

} // namespace mr4500x
