// A bench: ports at which radios are programmed in parallel, with one thread per port.
#pragma once

#include "bench_context.h"
#include "serial_port.h"

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace mr4500x {

// The functions are called in the port's thread.
struct BenchPort {
  std::string name; // in messages and the journal
  std::function<std::unique_ptr<SerialPort>()> makePort;
  std::function<std::unique_ptr<Clock>()> makeClock;
  int number = 0; // COM number, for SerialPort::SetPortNumber
};

class Bench {
public:
  using MakeJournal = std::function<std::unique_ptr<Journal>()>; // called in each port's thread

  // Starts the ports. The journal has the plan. What the context refers to lives longer.
  Bench(const BenchContext& context, const std::vector<BenchPort>& ports, const MakeJournal& makeJournal);
  ~Bench(); // stops after the radios in progress, and waits for them
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;

  void Wait(); // waits until all ports have ended

private:
  const BenchContext m_context;
  std::vector<std::jthread> m_threads;
};

} // namespace mr4500x
