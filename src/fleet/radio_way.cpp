#include "radio_way.h"

#include "backup.h"
#include "data_file.h"
#include "differences.h"
#include "function_settings.h"
#include "signaling.h"
#include "words.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

namespace mr4500x {
namespace {

// Of the exchanges' progress: the whole read, the write and reading it back; the two of the embedded text.
constexpr int WaySteps = 505 + 330 + 330, TextSteps = 150 + 160;

bool IsSameBand(const RadioImage& a, const RadioImage& b) {
  return std::ranges::equal(std::span(a.BandBlock).first<4>(), std::span(b.BandBlock).first<4>());
}

std::string SummaryOf(const ImageDifferences& differences) {
  const std::size_t count = differences.settings.size() + differences.bytes.size();
  std::string text = "it does not hold what was written: ";
  if (differences.settings.empty())
    text += std::string(NameOf(differences.bytes[0].block)) + ' ' + std::to_string(differences.bytes[0].offset);
  else
    text += NameOf(differences.settings[0].at);
  return count == 1 ? text : text + " and " + std::to_string(count - 1) + " more";
}

} // namespace

AttemptOutcome RadioWay::Go(const RadioImage& identity, Attempt& attempt) {
  RadioImage image = ImageFor(m_desk.plan, attempt.row, m_desk.texts);
  const bool hasText = attempt.row <= m_desk.plan.rows.size() && m_desk.plan.rows[attempt.row - 1].embeddedInfo;
  m_steps = WaySteps + (hasText ? TextSteps : 0);
  const auto setAside = [&](const std::string& ofRadio) {
    attempt.sha256.clear(); // nothing was written
    attempt.text = "the radio " + ofRadio + ", the row is for " + BandText(image.BandBlock);
    return AttemptOutcome::SetAside;
  };
  if (!IsSameBand(identity, image) && !m_desk.acceptsOtherBand) return setAside("has " + BandText(identity.BandBlock));

  Enter(PortState::BackingUp);
  if (!BackUp(attempt.idNumber, attempt)) return AttemptOutcome::Failed;
  // Where the database does not answer, the claim is still young.
  if (m_journal.Renew(attempt.plan, attempt.row, attempt.bench) == Renewal::TakenAway) {
    attempt.text = "its row went to another bench, as this one was silent for too long; nothing has been written";
    return AttemptOutcome::Failed;
  }

  Enter(PortState::Writing);
  const std::vector<std::uint8_t> file = BuildDataFile(image);
  attempt.sha256 = m_desk.sha256({reinterpret_cast<const char*>(file.data()), file.size()});
  const ExchangeResult written = WriteRadio(m_line, image, m_desk.now, *this, m_desk.speed);
  if (written.outcome == Outcome::BandDeclined) return setAside("answers with another band");
  if (!IsComplete(written, attempt)) return AttemptOutcome::Failed;
  if (hasText && !IsComplete(WriteEmbeddedInfo(m_line, image, *this), attempt)) return AttemptOutcome::Failed;

  Enter(PortState::Verifying);
  return Verify(image, hasText, attempt) ? AttemptOutcome::Verified : AttemptOutcome::Failed;
}

bool RadioWay::BackUp(const std::string& idNumber, Attempt& attempt) {
  const auto refuse = [&] {
    attempt.text = m_desk.backupFolder + ": the backup can't be kept here (" + std::generic_category().message(errno) +
                   "); nothing has been written";
    return false;
  };
  if (!MayKeepBackupIn(m_desk.files, m_desk.backupFolder)) return refuse();
  RadioImage image;
  if (!IsComplete(ReadRadio(m_line, image, *this, m_desk.speed), attempt)) return false;
  if (IdentityNumber(image) != idNumber) {
    attempt.text = "the radio was exchanged for another one; nothing has been written";
    return false;
  }
  image.FiveToneStandard = image.ResetTimeBlock[StandardByte]; // as the editor does
  const auto [outcome, path] = KeepBackup(m_desk.files, m_desk.backupFolder, image, m_desk.now());
  if (outcome == BackupOutcome::NameIsTaken) errno = EEXIST;
  if (outcome != BackupOutcome::Kept) return refuse();
  attempt.backup = path;
  return true;
}

bool RadioWay::Verify(const RadioImage& image, bool hasText, Attempt& attempt) {
  RadioImage found = image;
  if (!IsComplete(ReadBack(m_line, found, *this, m_desk.speed), attempt)) return false;
  const ImageDifferences differences = CompareImages(image, found, m_desk.texts);
  if (!differences.IsEmpty()) {
    attempt.text = SummaryOf(differences);
    return false;
  }
  if (!hasText) return true;
  if (!IsComplete(ReadEmbeddedInfo(m_line, found, *this), attempt)) return false;
  if (found.EmbeddedInfoBlock.bytes == image.EmbeddedInfoBlock.bytes) return true;
  attempt.text = "it does not hold the embedded information that was written";
  return false;
}

bool RadioWay::IsComplete(const ExchangeResult& result, Attempt& attempt) {
  if (result.outcome == Outcome::Complete) return true;
  attempt.text = ReasonFor(result);
  return false;
}

void RadioWay::Enter(PortState state) {
  m_state = state;
  Progress(0);
}

void RadioWay::Began(Transfer /*transfer*/, int maximum) {
  m_maximum = maximum;
}

void RadioWay::Progress(int value) {
  m_tell(m_state, 100 * (m_done + std::clamp(value, 0, m_maximum)) / m_steps);
}

void RadioWay::Ended() {
  m_done += std::exchange(m_maximum, 0);
}

} // namespace mr4500x
