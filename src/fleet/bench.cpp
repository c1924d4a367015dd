#include "bench.h"

#include <exception>

namespace mr4500x {

Bench::Bench(FleetDesk& desk, const std::vector<BenchPort>& ports, const MakeJournal& makeJournal,
             PendingAttempts& pending)
    : m_desk(desk) {
  for (std::size_t index = 0; index < ports.size(); ++index)
    m_threads.emplace_back([&desk, &pending, index, port = ports[index], makeJournal] {
      try {
        const auto serial = port.makePort();
        const auto clock = port.makeClock();
        const auto journal = makeJournal();
        SerialLine line(*serial, *clock, port.number, port.name);
        RunPort(index, line, *clock, *journal, pending, desk);
      } catch (const std::exception& failure) { // must not end the other ports
        PortEvent event;
        event.port = index;
        event.state = PortState::Stopped;
        event.text = failure.what();
        desk.tell(event);
      }
    });
}

Bench::~Bench() {
  StopAfterTheseRadios();
  Wait();
}

void Bench::StopAfterTheseRadios() {
  m_desk.isStopping = true;
}

void Bench::Wait() {
  for (std::jthread& thread : m_threads)
    if (thread.joinable()) thread.join();
}

} // namespace mr4500x
