// The commands that use the serial port: the four transfers, and the choice of the port.
#include "commands.h"

#include "backup.h"
#include "channel_text.h"
#include "conventions.h"
#include "dialogs.h"
#include "differences.h"
#include "editor_panel.h"
#include "end_signals.h"
#include "file_access.h"
#include "function_settings.h"
#include "messages.h"
#include "practice_radio.h"
#include "signaling.h"
#include "transfer_guard.h"
#include "window_parts.h"
#include "work_keeper.h"

#include <QAction>
#include <QGuiApplication>

namespace mr4500x {
namespace {

// Shows the progress, and nothing else of what it reads.
class ProgressObserver : public ExchangeObserver {
public:
  explicit ProgressObserver(const CommandContext& context) : m_context(context) {}

  void Began(Transfer transfer, int maximum) override {
    const ProgressWords words = ProgressOf(transfer);
    m_context.services.progress.Open(words.title, words.text, maximum);
  }
  void Progress(int value) override { m_context.services.progress.SetValue(value); }
  void Ended() override { m_context.services.progress.Close(); }
  bool AcceptsOtherBand() override { return m_context.Show(BandQuestion(), MessageButtons::YesNo) == Answer::Yes; }
  bool Complete(Transfer /*transfer*/) override { return true; }

protected:
  const CommandContext& m_context;
};

class WindowObserver final : public ProgressObserver {
public:
  using ProgressObserver::ProgressObserver;

  // ModifiedFlag is not changed, because data from a radio is not in a file.
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
};

// Runs an exchange over the chosen port with the progress window and messages, and with the user's input held. True if
// it was completed.
template<class Observer = WindowObserver>
bool RunTransfer(const CommandContext& context, HeldPointer pointer,
                 const std::function<ExchangeResult(SerialLine& line, ExchangeObserver& observer)>& exchange) {
  const MainServices& services = context.services;
  context.keeper.KeepNow(); // no copy is written during the transfer
  const TransferGuard guard(services.input, pointer);
  context.window.repaint(); // the exchange may block painting for a while
  SerialLine line(services.port, services.clock, context.state.CommPortNumber);
  Observer observer(context);
  const ExchangeResult result = exchange(line, observer);
  if (const std::optional<Message> failure = FailureOf(result)) context.Show(*failure);
  return result.outcome == Outcome::Complete;
}

// Reads the whole radio into another image than the editor's.
std::optional<RadioImage> ReadBeside(const CommandContext& context) {
  RadioImage image;
  const bool isRead =
      RunTransfer<ProgressObserver>(context, HeldPointer::Busy, [&](SerialLine& line, ExchangeObserver& observer) {
        return ReadWholeRadio(line, image, observer);
      });
  if (!isRead) return std::nullopt;
  image.FiveToneStandard = image.ResetTimeBlock[StandardByte];
  return image;
}

// The radio that was backed up. None, with a message: nothing must be written.
std::optional<RadioImage> BackUp(const CommandContext& context) {
  const MainServices& services = context.services;
  const std::string folder = services.folderForFiles + Separator + "backup";
  FileResult kept = MayStoreIn(services.files, folder);
  if (kept) {
    std::optional<RadioImage> image = ReadBeside(context);
    if (!image) return std::nullopt;
    kept = KeepBackup(services.files, folder, *image, services.now()).result;
    if (kept) return image;
  }
  context.Show({MessageIcon::Exclamation, "Back Up before Writing",
                "The backup could not be saved in " + folder + " (" + kept.Reason() + "). Nothing was written."});
  return std::nullopt;
}

std::string WhoIs(const RadioImage& radio) {
  return IdentityNumber(radio) + ", firmware " + FirmwareVersion(radio);
}

void Verify(const CommandContext& context, const std::optional<RadioImage>& backedUp) {
  RadioImage found = context.image;
  const bool isRead =
      RunTransfer<ProgressObserver>(context, HeldPointer::Busy, [&](SerialLine& line, ExchangeObserver& observer) {
        return ReadBackWithIdentity(line, found, observer);
      });
  if (!isRead) return;
  const std::string port = ComName(context.state.CommPortNumber);
  if (backedUp && WhoIs(found) != WhoIs(*backedUp))
    return static_cast<void>(
        context.Show({MessageIcon::Exclamation, "Verify after Writing",
                      "The radio on " + port + " was exchanged: " + WhoIs(*backedUp) + " was backed up, but " +
                          WhoIs(found) + " was read back. Check both radios."}));
  Refusals lines;
  for (const DifferenceWords& words : WordsFor(CompareImages(context.image, found, context.panel.Texts())))
    lines.push_back(words.name + ": " + words.before + " -> " + words.after);
  if (lines.empty())
    return context.status.ShowBriefly(QString::fromStdString("The radio on " + port + " matches what was written."));
  context.Show(
      {MessageIcon::Exclamation, "Verify after Writing",
       MessageOf(lines, "The radio on " + port + " does not match what was written. Write it again. Differences:")});
}

void Toggle(const CommandContext& context, bool WriteHabits::*habit) {
  WriteHabits& habits = context.state.writeHabits;
  habits.*habit = !(habits.*habit);
  StoreWriteHabits(context.services.files, context.services.settingsFile, habits);
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
  const EndSignalsHeld held; // after a signal, the exchange is finished and no other is started
  std::optional<RadioImage> backedUp;
  if (context.state.writeHabits.backsUp && (!(backedUp = BackUp(context)) || IsEnding())) return;
  const bool isWritten = RunTransfer(context, HeldPointer::Busy, [&](SerialLine& line, ExchangeObserver& observer) {
    return WriteRadio(line, context.image, context.services.now, observer);
  });
  if (isWritten && context.state.writeHabits.verifies && !IsEnding()) Verify(context, backedUp);
}

void CompareRadio(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  if (const std::optional<RadioImage> image = ReadBeside(context))
    ShowComparison(context.panel, context.services.files, {ComName(context.state.CommPortNumber), /*isFile*/ false},
                   *image, context.services.messages, &context.window);
}

void ToggleVerify(const CommandContext& context) {
  Toggle(context, &WriteHabits::verifies);
}
void ToggleBackUp(const CommandContext& context) {
  Toggle(context, &WriteHabits::backsUp);
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
  const auto hintOf = [&](int number) {
    const std::string device = context.services.deviceOfPort(number);
    const auto& failure = choice.failures[static_cast<std::size_t>(number - 1)];
    return PortHint(device, failure, failure ? context.services.userOfDevice(device) : "");
  };
  const std::optional<int> chosen = AskPort(choice, hintOf, &context.window);
  if (!chosen) return;
  context.state.CommPortNumber = *chosen;
  context.status.ShowPort(*chosen);
}

void Practise(const CommandContext& context) {
  PracticeRadio& radio = context.services.practice;
  if (radio.Port() != 0) return radio.Stop();
  int port = PortCount;
  while (port > LowestPort && !context.services.deviceOfPort(port).empty())
    --port;
  if (const auto failure = radio.Start(port))
    return static_cast<void>(context.Show({MessageIcon::Exclamation, "Practise with a Simulated Radio", *failure}));
  context.state.practicePort = port;
  context.state.portBeforePractice = std::exchange(context.state.CommPortNumber, port);
  context.status.ShowPort(port);
  context.status.SetPermanent(StatusPanels::Permanent::Practice,
                              "Practising with a simulated radio on " + QString::fromStdString(ComName(port)));
}

void EndPractice(const CommandContext& context) {
  EditorState& state = context.state;
  state.CommPortNumber = state.PortToKeep();
  state.practicePort = 0;
  context.status.ShowPort(state.CommPortNumber);
  context.status.SetPermanent(StatusPanels::Permanent::Practice, "");
}

} // namespace commands
} // namespace mr4500x
