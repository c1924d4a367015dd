// The radios and commands that a person still has to deal with, from the attempts of a bench or of its journal.
#pragma once

#include "journal.h"

#include <map>
#include <string>
#include <vector>

namespace mr4500x {

class OpenRadios {
public:
  void Record(const Attempt& attempt); // in the order in which they started

  // The last attempt of each radio that was left unverified, by identity number. A radio without a row is not one.
  [[nodiscard]] const std::map<std::string, Attempt>& Failed() const { return m_failed; }
  // The last attempt of each radio that may be only partly programmed: its write failed, or its bench died during it.
  [[nodiscard]] const std::map<std::string, Attempt>& PartlyWritten() const { return m_partlyWritten; }
  // Entries about failed commands, by key.
  [[nodiscard]] const std::map<std::string, Attempt>& Notes() const { return m_notes; }

private:
  std::map<std::string, Attempt> m_failed, m_partlyWritten, m_notes;
};

// Includes dismissed radios, because what a radio holds does not depend on a person's decision.
[[nodiscard]] std::map<std::string, Attempt> PartlyWritten(const std::vector<Attempt>& attempts);

} // namespace mr4500x
