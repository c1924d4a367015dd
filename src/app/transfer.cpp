#include "transfer.h"

#include "command_phase.h"
#include "transfer_messages.h"

namespace mr4500x {
namespace {

class WindowObserver final : public ExchangeObserver {
public:
  WindowObserver(const MainServices& services, const std::function<void()>& completed)
      : m_services(services), m_completed(completed) {}

  void Began(Transfer transfer, int maximum) override {
    const ProgressWords words = ProgressOf(transfer);
    m_services.progress.Open(words.title, words.text, maximum);
  }
  void Progress(int value) override { m_services.progress.SetValue(value); }
  void Ended() override { m_services.progress.Close(); }
  bool AcceptsOtherBand() override { return Show(BandQuestion(), MessageButtons::YesNo) == Answer::Yes; }
  bool Complete(Transfer transfer) override {
    Show(CompletionOf(transfer), MessageButtons::Ok);
    return Succeeds([this] { return m_completed(), true; });
  }

  Answer Show(const Message& message, MessageButtons buttons) {
    return m_services.messages.Show(message.icon, message.title, message.text, buttons);
  }

private:
  const MainServices& m_services;
  const std::function<void()>& m_completed;
};

} // namespace

void RunTransfer(const CommandContext& context, HeldPointer pointer, const RunExchange& exchange,
                 const std::function<void()>& completed) {
  const MainServices& services = context.services;
  const TransferGuard guard(services.input, pointer);
  context.window.repaint(); // the exchange may block painting for a while
  SerialLine line(services.port, services.clock, context.state.CommPortNumber);
  WindowObserver observer(services, completed);
  const std::optional<Message> failure = FailureOf(exchange(line, observer));
  if (failure) observer.Show(*failure, MessageButtons::Ok);
}

} // namespace mr4500x
