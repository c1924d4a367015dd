#include "bench.h"

#include "port_worker.h"

#include <exception>

namespace mr4500x {

Bench::Bench(const BenchContext& context, const std::vector<BenchPort>& ports, const MakeJournal& makeJournal)
    : m_context(context) {
  m_context.state.Rows().SetPorts(ports.size());
  for (std::size_t index = 0; index < ports.size(); ++index)
    m_threads.emplace_back([this, index, port = ports[index], makeJournal] {
      try {
        const auto serial = port.makePort();
        const auto clock = port.makeClock();
        const auto journal = makeJournal();
        SerialLine line(*serial, *clock, port.number, port.name);
        RunPort(index, line, *clock, *journal, m_context);
      } catch (const std::exception& failure) { // must not end the other ports
        PortStatus status;
        status.port = index;
        status.state = PortState::Stopped;
        status.text = failure.what();
        m_context.events.onStatus(status);
      }
    });
}

Bench::~Bench() {
  m_context.state.StopAfterTheseRadios();
  Wait();
}

void Bench::Wait() {
  for (std::jthread& thread : m_threads)
    if (thread.joinable()) thread.join();
}

} // namespace mr4500x
