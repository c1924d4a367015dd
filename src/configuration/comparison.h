// Compares a data file with the content of the editor. The window reads the file, asks the user and shows the rows.
#pragma once

#include "changes.h"
#include "differences.h"

#include <optional>
#include <vector>

namespace mr4500x {

class Comparison {
public:
  // Compares with what the editor would save after opening the file, so that a file does not differ from itself.
  Comparison(const RadioImage& file, const FieldTexts& texts);

  [[nodiscard]] const RadioImage& File() const { return m_file; } // as read from the source
  // The differences from the editor's image, by section: first channel by channel, bytes last.
  [[nodiscard]] std::vector<DifferenceWords> Rows(const RadioImage& here) const;

  struct Taken {
    Configuration values;              // the values for the editor
    std::optional<RadioImage> image;   // has bytes of the file; nullopt if only settings are taken
    std::vector<RefusedValue> refused; // if there are any, nothing is taken
    bool isNewLimit = false;           // the lower band limit, which resets the channels
  };
  // The editor's values and image after taking the file's side of these rows.
  [[nodiscard]] Taken Take(const Configuration& shown, const RadioImage& here,
                           const std::vector<DifferenceWords>& rows) const;

private:
  void TakeBytes(std::vector<ByteDifference> bytes, const RadioImage& here, Taken& taken) const;

  const FieldTexts& m_texts;
  RadioImage m_file;
  RadioImage m_other;    // as the editor would save it
  Configuration m_there; // decoded from m_other
};

} // namespace mr4500x
