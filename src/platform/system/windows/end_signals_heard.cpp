#include "console_events.h"
#include "end_signals.h"

#include <QMetaObject>
#include <QObject>

#include <utility>

namespace mr4500x {

// Lives in the thread of the event loop, which receives the reports.
class EndSignalsHeard::Reporter {
public:
  Reporter(std::function<void(int)> report, NextSignal next) : m_report(std::move(report)) {
    const auto handOver = [this](int signal) {
      QMetaObject::invokeMethod(
          &m_receiver, [this, signal] { m_report(signal); }, Qt::QueuedConnection);
    };
    ReportConsoleEvents(handOver, next == NextSignal::Ends);
  }
  ~Reporter() { ReportConsoleEvents({}, false); }
  Reporter(const Reporter&) = delete;
  Reporter& operator=(const Reporter&) = delete;

private:
  std::function<void(int)> m_report;
  QObject m_receiver;
};

EndSignalsHeard::EndSignalsHeard(std::function<void(int)> report, NextSignal next)
    : m_reporter(std::make_unique<Reporter>(std::move(report), next)) {}

EndSignalsHeard::~EndSignalsHeard() = default;

} // namespace mr4500x
