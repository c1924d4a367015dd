#include "console_events.h"
#include "end_signals.h"

#include <QMetaObject>
#include <QObject>

#include <utility>

namespace mr4500x {

// Lives in the thread of the event loop, which receives the reports.
class EndSignalsHeard::Reporter : public QObject {};

EndSignalsHeard::EndSignalsHeard(std::function<void(int)> report, NextSignal next)
    : m_reporter(std::make_unique<Reporter>()) {
  const auto handOver = [report = std::move(report), receiver = m_reporter.get()](int signal) {
    QMetaObject::invokeMethod(
        receiver, [report, signal] { report(signal); }, Qt::QueuedConnection);
  };
  ReportConsoleEvents(handOver, next == NextSignal::Ends);
}

EndSignalsHeard::~EndSignalsHeard() {
  ReportConsoleEvents({}, false);
}

} // namespace mr4500x
