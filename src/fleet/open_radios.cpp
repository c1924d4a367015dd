#include "open_radios.h"

namespace mr4500x {

void OpenRadios::Record(const Attempt& attempt) {
  using enum AttemptOutcome;
  const std::string& radio = attempt.idNumber;
  const auto outcome = attempt.outcome;
  const bool isHandled = outcome == Verified || outcome == Dismissed;
  if (isHandled) std::erase_if(m_notes, [&](const auto& note) { return note.second.idNumber == radio; });
  if (isHandled || outcome == DoneBefore) m_failed.erase(radio);
  if (isHandled || outcome == Conflict) m_partlyWritten.erase(radio);
  if (outcome == Note && !attempt.port.empty()) m_notes[attempt.key] = attempt; // a person's has no port
  if (outcome == Failed || outcome == SetAside || outcome == Conflict || outcome == Aborted) m_failed[radio] = attempt;
  if (outcome == Aborted || (outcome == Failed && !attempt.sha256.empty())) m_partlyWritten[radio] = attempt;
}

std::map<std::string, Attempt> PartlyWritten(const std::vector<Attempt>& attempts) {
  OpenRadios radios;
  for (const Attempt& attempt : attempts)
    if (attempt.outcome != AttemptOutcome::Dismissed) radios.Record(attempt);
  return radios.PartlyWritten();
}

} // namespace mr4500x
