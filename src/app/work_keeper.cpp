#include "work_keeper.h"

#include "csv.h"
#include "differences.h"
#include "edit_history.h"
#include "editor_panel.h"
#include "embedded_info.h"
#include "messages.h"
#include "text.h"
#include "transfer_guard.h"
#include "utf8.h"

#include <QCoreApplication>
#include <QEvent>

namespace mr4500x {
namespace {

constexpr std::chrono::seconds CheckDelay{1};

std::string SourceOf(const Origin& origin) {
  if (const auto* const file = std::get_if<FileOrigin>(&origin)) return file->path;
  return std::holds_alternative<RadioOrigin>(origin) ? "a radio" : "a new configuration";
}

std::string LinesOf(const std::vector<Difference>& differences) {
  std::string lines;
  for (const Difference& difference : differences)
    lines += NameOf(difference.at) + ": " + difference.before + " -> " + difference.after + '\n';
  return lines;
}

std::string TextOf(const EmbeddedInfo& info) {
  return ToUtf8(VisibleText(EmbeddedText(info)));
}

} // namespace

WorkKeeper::WorkKeeper(const MainServices& services, const RadioImage& image, const EditorPanel& panel,
                       const FieldTexts& texts, QObject* parent)
    : QObject(parent), m_services(services), m_image(image), m_panel(panel), m_texts(texts),
      m_copies(services.files, services.keptFolder) {
  m_checkTimer.setSingleShot(true);
  m_checkTimer.setInterval(CheckDelay);
  connect(&m_checkTimer, &QTimer::timeout, this, &WorkKeeper::Check);
  m_thread.setMaxThreadCount(1);
  QCoreApplication::instance()->installEventFilter(this);
}

bool WorkKeeper::eventFilter(QObject* watched, QEvent* event) {
  if (MayEdit(event->type()) && !m_checkTimer.isActive()) m_checkTimer.start();
  return QObject::eventFilter(watched, event);
}

// Not between two frames of a transfer, and not while the previous copy is still being written.
void WorkKeeper::Check() {
  if (m_services.input.IsHeld() || m_isWriting)
    m_checkTimer.start();
  else
    KeepNow();
}

void WorkKeeper::Do(std::function<void(KeptCopies&)> work) {
  m_thread.start([this, work = std::move(work)] { work(m_copies); });
}

void WorkKeeper::AwaitKept() {
  m_thread.waitForDone();
}

void WorkKeeper::SetMissing(bool isMissing) {
  if (std::exchange(m_isMissing, isMissing) != isMissing) emit CopyMissing(isMissing);
}

void WorkKeeper::Written(int number, bool isWritten) {
  m_isWriting = false;
  if (number != m_number) return; // for work that was saved or replaced
  if (!isWritten) m_kept.reset(); // the next input tries again
  SetMissing(!isWritten);
}

// The last requested copy is no longer needed.
void WorkKeeper::Forget() {
  m_kept.reset();
  ++m_number;
}

void WorkKeeper::KeepNow() {
  Configuration shown = m_panel.ShownUnfinished();
  const std::vector<Difference> differences = DifferencesBetween(m_settled, shown);
  if (differences.empty() && !m_takenDifferences && !m_info) {
    Do(&KeptCopies::Drop);
    Forget();
    return SetMissing(false);
  }
  if (m_kept == shown) return;
  // An interrupted read has overwritten the image. So the copy gets the earlier bytes for what the editor doesn't show.
  RadioImage image = m_settledImage;
  image.FiveToneStandard = m_image.FiveToneStandard;
  Encode(shown, image, m_texts);
  const auto data = BuildDataFile(image);
  std::string lines = m_takenDifferences.value_or("") + LinesOf(differences);
  if (m_info && *m_info != m_infoBefore)
    lines +=
        "Embedded Information: \"" + Shortened(TextOf(m_infoBefore)) + "\" -> \"" + Shortened(TextOf(*m_info)) + "\"\n";
  const KeptCopy copy{{data.begin(), data.end()}, TimestampText(m_services.now()), m_source, lines, m_info};
  m_kept = std::move(shown);
  m_isWriting = true;
  Do([this, copy, number = ++m_number](KeptCopies& copies) {
    const bool isWritten = copies.Keep(copy);
    QMetaObject::invokeMethod(
        this, [this, number, isWritten] { Written(number, isWritten); }, Qt::QueuedConnection);
  });
}

void WorkKeeper::PutAside() {
  KeepNow();
  Do([](KeptCopies& copies) { copies.PutAside(); });
  Forget();
}

void WorkKeeper::Replaced() {
  PutAside();
  m_info.reset();
}

void WorkKeeper::InfoEntered(const EmbeddedInfo& before) {
  if (TextOf(before) == TextOf(m_image.EmbeddedInfoBlock)) return;
  if (!m_info) m_infoBefore = before;
  m_info = m_image.EmbeddedInfoBlock;
  m_kept.reset();
}

void WorkKeeper::InfoWritten() {
  m_info.reset();
  m_kept.reset();
  KeepNow();
}

void WorkKeeper::Settled(const Origin& source) {
  m_settled = m_panel.Shown();
  m_settledImage = m_image;
  m_source = SourceOf(source);
  if (m_takenDifferences) m_infoBefore = {}; // its earlier value is no longer known
  m_takenDifferences.reset();
  const auto* const file = std::get_if<FileOrigin>(&source);
  Do([path = file != nullptr ? file->path : ""](KeptCopies& copies) {
    copies.Drop();
    copies.SetOpenFile(path);
  });
  Forget();
  SetMissing(false);
}

bool WorkKeeper::IsOpenElsewhere(const std::string& path) {
  return m_copies.IsOpenElsewhere(path);
}

std::optional<KeptCopy> WorkKeeper::TakeLeft(RadioImage& image) {
  AwaitKept();
  std::optional<KeptCopy> copy = m_copies.NextLeft();
  if (const auto unreadable = m_copies.TakeUnreadable(); !unreadable.empty()) {
    const Message notice = UnreadableCopiesNotice(unreadable);
    m_services.messages.Show(notice.icon, notice.title, notice.text, MessageButtons::Ok);
  }
  for (; copy && !m_isEnding; copy = m_copies.NextLeft()) {
    const Message question = KeptWorkQuestion(*copy);
    const Answer answer = m_services.messages.Show(question.icon, question.title, question.text, MessageButtons::YesNo);
    if (m_isEnding) break; // the user has not answered
    AwaitKept();
    if (answer == Answer::Yes) {
      m_copies.TakeLeft();
      if (ParseDataFile(copy->data, image).outcome != LoadOutcome::Loaded) return std::nullopt;
      return copy;
    }
    m_copies.PutLeftAside();
  }
  return std::nullopt;
}

void WorkKeeper::WorkTaken(const KeptCopy& copy) {
  m_settled = m_panel.Shown();
  m_settledImage = m_image;
  m_source = copy.source;
  m_takenDifferences = copy.differences;
  m_info = copy.info;
  m_infoBefore = copy.info.value_or(EmbeddedInfo());
  KeepNow();
}

} // namespace mr4500x
