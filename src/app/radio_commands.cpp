// The commands that use the serial port: the four transfers, and the choice of the port.
#include "commands.h"

#include "dialogs.h"
#include "editor_panel.h"
#include "messages.h"
#include "transfer_guard.h"
#include "window_parts.h"
#include "work_keeper.h"

#include <QAction>
#include <QGuiApplication>

namespace mr4500x {
namespace {

class WindowObserver final : public ExchangeObserver {
public:
  explicit WindowObserver(const CommandContext& context) : m_context(context) {}

  void Began(Transfer transfer, int maximum) override {
    const ProgressWords words = ProgressOf(transfer);
    m_context.services.progress.Open(words.title, words.text, maximum);
  }
  void Progress(int value) override { m_context.services.progress.SetValue(value); }
  void Ended() override { m_context.services.progress.Close(); }
  bool AcceptsOtherBand() override { return m_context.Show(BandQuestion(), MessageButtons::YesNo) == Answer::Yes; }
  // Leaves ModifiedFlag alone: what a radio holds is in no file.
  bool Complete(Transfer transfer) override {
    m_context.Show(CompletionOf(transfer));
    return Succeeds([&] {
      m_context.SetOrigin(RadioOrigin{transfer});
      if (transfer == Transfer::Read) {
        m_context.keeper.Replaced();
        m_context.panel.Fill();
        m_context.state.ImageIsPartial = false;
      }
      if (transfer == Transfer::ReadInfo && m_context.keeper.HasEnteredInfo()) m_context.keeper.Replaced();
      if (transfer == Transfer::WriteInfo) m_context.keeper.InfoWritten();
      if (transfer == Transfer::Read || transfer == Transfer::Write) m_context.keeper.Settled(m_context.state.origin);
      if (transfer != Transfer::WriteInfo) m_context.closeItem.setEnabled(true);
      return true;
    });
  }

private:
  const CommandContext& m_context;
};

// Runs an exchange over the chosen port with the progress window and messages, and with the user's input held.
void RunTransfer(const CommandContext& context, HeldPointer pointer,
                 const std::function<ExchangeResult(SerialLine& line, ExchangeObserver& observer)>& exchange) {
  const MainServices& services = context.services;
  context.keeper.KeepNow(); // not during the transfer
  const TransferGuard guard(services.input, pointer);
  context.window.repaint(); // the exchange may block painting for a while
  SerialLine line(services.port, services.clock, context.state.CommPortNumber);
  WindowObserver observer(context);
  if (const std::optional<Message> failure = FailureOf(exchange(line, observer))) context.Show(*failure);
}

} // namespace

namespace commands {

void Read(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  RunTransfer(context, HeldPointer::Busy, [&](SerialLine& line, ExchangeObserver& observer) {
    const RadioImage before = context.image;
    ExchangeResult result = ReadRadio(line, context.image, observer);
    if (result.outcome == Outcome::Complete)
      context.state.InfoIsPartial = false;
    else if (context.image != before)
      context.state.ImageIsPartial = context.state.InfoIsPartial = true;
    return result;
  });
}

void Write(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  if (!MayStore(context)) return;
  context.panel.Collect();
  RunTransfer(context, HeldPointer::Busy, [&](SerialLine& line, ExchangeObserver& observer) {
    return WriteRadio(line, context.image, context.services.now, observer);
  });
}

void ReadInfo(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  RunTransfer(context, HeldPointer::Busy, [&](SerialLine& line, ExchangeObserver& observer) {
    const RadioImage before = context.image;
    ExchangeResult result = ReadEmbeddedInfo(line, context.image, observer);
    if (result.outcome == Outcome::Complete || context.image != before)
      context.state.InfoIsPartial = result.outcome != Outcome::Complete;
    return result;
  });
}

void WriteInfo(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  if (context.state.InfoIsPartial && context.Show(LostInfoQuestion, MessageButtons::YesNo) != Answer::Yes) return;
  RunTransfer(context, HeldPointer::Unchanged, [&](SerialLine& line, ExchangeObserver& observer) {
    return WriteEmbeddedInfo(line, context.image, observer);
  });
}

void Port(const CommandContext& context) {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const PortChoice choice =
      ChoosePort(context.state.CommPortNumber, [&](int number) { return TestPort(context.services.port, number); });
  QGuiApplication::restoreOverrideCursor();
  // Only a confirmed choice counts: the port that the status bar shows stays the one that is used.
  const std::optional<int> chosen = AskPort(choice, context.services.deviceOfPort, &context.window);
  if (!chosen) return;
  context.state.CommPortNumber = *chosen;
  context.status.ShowPort(*chosen);
}

} // namespace commands
} // namespace mr4500x
