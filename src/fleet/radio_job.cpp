#include "radio_job.h"

#include "backup.h"
#include "data_file.h"
#include "differences.h"
#include "file_access.h"
#include "function_settings.h"
#include "signaling.h"
#include "words.h"

#include <algorithm>
#include <utility>

namespace mr4500x {
namespace {

// The progress of the exchanges: the whole read, the write and the read-back, and the two exchanges of the embedded
// text.
constexpr int JobUnits = 505 + 330 + 345, TextUnits = 150 + 160;

// Sets the text of the attempt, and is returned.
bool Fail(Attempt& attempt, std::string_view text) {
  attempt.text = text;
  return false;
}

} // namespace

std::string StampDigits(const RadioImage& image) {
  std::string digits;
  for (const std::uint8_t byte : image.WriteStampBlock)
    if (byte >= '0' && byte <= '9') digits += static_cast<char>(byte);
  return digits;
}

bool RadioJob::HasText(const Attempt& attempt) const {
  const std::vector<PlanRow>& rows = m_settings.plan.rows;
  return attempt.row > 0 && attempt.row <= rows.size() && rows[attempt.row - 1].embeddedInfo;
}

AttemptOutcome RadioJob::Run(const RadioImage& identity, Attempt& attempt) {
  RadioImage image = ImageFor(m_settings.plan, attempt.row, m_settings.texts);
  m_total = m_done + JobUnits + (HasText(attempt) ? TextUnits : 0); // also after a comparison
  if (!IsSameBand(identity.BandBlock, image.BandBlock) && !m_settings.acceptsOtherBand)
    return SetAsideForBand(BandText(identity.BandBlock), image, attempt);
  BeginStep(PortState::BackingUp);
  if (!BackUp(attempt) || !MayWrite(attempt)) return AttemptOutcome::Failed;

  BeginStep(PortState::Writing);
  const AttemptOutcome written = Write(image, attempt);
  if (written != AttemptOutcome::Verified) return written;

  BeginStep(PortState::Verifying);
  return Verify(image, attempt) == Found::Same ? AttemptOutcome::Verified : AttemptOutcome::Failed;
}

AttemptOutcome RadioJob::SetAsideForBand(const std::string& band, const RadioImage& image, Attempt& attempt) {
  m_remedy = Remedy::AcceptBand;
  attempt.text = OtherBandReason(band, BandText(image.BandBlock));
  return AttemptOutcome::SetAside;
}

AttemptOutcome RadioJob::CompareDone(Attempt& attempt) {
  m_total = JobUnits;
  BeginStep(PortState::Verifying);
  const Found found = Verify(ImageFor(m_settings.plan, attempt.row, m_settings.texts), attempt);
  if (found == Found::NotRead) return AttemptOutcome::Failed;
  if (found == Found::Same) return AttemptOutcome::DoneBefore;
  m_remedy = Remedy::RewriteChanged;
  attempt.text = ChangedReason + attempt.text;
  return AttemptOutcome::SetAside;
}

bool RadioJob::BackUp(Attempt& attempt) {
  const auto refuse = [&](const FileResult& failed) {
    m_remedy = Remedy::CheckFolder;
    return Fail(attempt, BackupReason(m_settings.backupFolder, failed.Reason()));
  };
  const FileResult mayKeep = MayStoreIn(m_settings.files, m_settings.backupFolder);
  if (!mayKeep) return refuse(mayKeep);
  RadioImage image;
  if (!IsComplete(ReadWholeRadio(m_line, image, *this, m_settings.speed), attempt)) return false;
  if (IdentityNumber(image) != attempt.idNumber) return Fail(attempt, ExchangedReason);
  image.FiveToneStandard = image.ResetTimeBlock[StandardByte]; // as the editor does
  const auto [path, result] = KeepBackup(m_settings.files, m_settings.backupFolder, image, m_settings.now());
  if (!result) return refuse(result);
  attempt.backup = path;
  return true;
}

bool RadioJob::MayWrite(Attempt& attempt) {
  if (!m_context.state.MayWrite()) return Fail(attempt, StoppedReason);
  // If the database does not answer, the claim is still recent enough.
  const bool isLost = m_journal.Renew(attempt.plan, attempt.row, attempt.bench) == Renewal::TakenAway;
  return !isLost || Fail(attempt, TakenAwayReason);
}

// Verified if all was written.
AttemptOutcome RadioJob::Write(RadioImage& image, Attempt& attempt) {
  const std::vector<std::uint8_t> file = BuildDataFile(image);
  attempt.sha256 = m_settings.sha256({reinterpret_cast<const char*>(file.data()), file.size()});
  const ExchangeResult written = WriteRadio(m_line, image, m_settings.now, *this, m_settings.speed);
  if (written.outcome == Outcome::BandDeclined) {
    attempt.sha256.clear(); // nothing was written
    return SetAsideForBand("", image, attempt);
  }
  attempt.stamp = StampDigits(image);
  const bool isWritten = IsComplete(written, attempt) &&
                         (!HasText(attempt) || IsComplete(WriteEmbeddedInfo(m_line, image, *this), attempt));
  return isWritten ? AttemptOutcome::Verified : AttemptOutcome::Failed;
}

RadioJob::Found RadioJob::Verify(const RadioImage& image, Attempt& attempt) {
  RadioImage found = image;
  if (!IsComplete(ReadBackWithIdentity(m_line, found, *this, m_settings.speed), attempt)) return Found::NotRead;
  // The radio may have been swapped for another one of the same model between the backup and the write.
  if (IdentityNumber(found) != attempt.idNumber || FirmwareVersion(found) != attempt.firmware) {
    m_remedy = Remedy::PlugInBoth;
    attempt.text = OtherRadioReason(attempt, IdentityNumber(found), FirmwareVersion(found));
    return Found::NotRead;
  }
  found.RadioIdBlock = image.RadioIdBlock;
  found.FirmwareVersionBlock = image.FirmwareVersionBlock;
  const ImageDifferences differences = CompareImages(image, found, m_settings.texts);
  if (!differences.IsEmpty()) {
    m_remedy = Remedy::CheckCable;
    attempt.text = DifferenceReason(differences);
    return Found::Different;
  }
  if (!HasText(attempt)) return Found::Same;
  if (!IsComplete(ReadEmbeddedInfo(m_line, found, *this), attempt)) return Found::NotRead;
  if (found.EmbeddedInfoBlock.bytes == image.EmbeddedInfoBlock.bytes) return Found::Same;
  attempt.text = TextDiffersReason;
  return Found::Different;
}

bool RadioJob::IsComplete(const ExchangeResult& result, Attempt& attempt) {
  if (result.outcome == Outcome::Complete) return true;
  m_remedy = result.outcome == Outcome::WrongModel ? Remedy::PutAside : Remedy::CheckCable;
  return Fail(attempt, ReasonFor(result));
}

void RadioJob::BeginStep(PortState step) {
  m_step = step;
  Progress(0);
}

void RadioJob::Began(Transfer /*transfer*/, int maximum) {
  m_maximum = maximum;
}

void RadioJob::Progress(int value) {
  m_onProgress(m_step, 100 * (m_done + std::clamp(value, 0, m_maximum)) / m_total);
}

void RadioJob::Ended() {
  m_done += std::exchange(m_maximum, 0);
}

} // namespace mr4500x
