#include "comparison.h"

#include "decimal.h"
#include "set_field.h"

#include <algorithm>
#include <tuple>

namespace mr4500x {

Comparison::Comparison(const RadioImage& file, const FieldTexts& texts) : m_texts(texts), m_file(file), m_other(file) {
  const Configuration shown = Decode(m_other, texts).configuration;
  SettleAfterFill(m_other);
  Encode(shown, m_other, texts);
  m_there = Decode(m_other, texts).configuration;
}

std::vector<DifferenceWords> Comparison::Rows(const RadioImage& here) const {
  std::vector<DifferenceWords> rows = WordsFor(CompareImages(here, m_other, m_texts));
  std::ranges::stable_sort(rows, {}, [](const DifferenceWords& row) {
    const bool isByte = row.at.field == nullptr;
    const FieldGroup group = isByte ? FieldGroup::None : row.at.field->group;
    return std::tuple(isByte, group != FieldGroup::Channels, group, row.at.entry);
  });
  return rows;
}

Comparison::Taken Comparison::Take(const Configuration& shown, const RadioImage& here,
                                   const std::vector<DifferenceWords>& rows) const {
  std::vector<Assignment> wanted;
  std::vector<ByteDifference> bytes;
  for (const DifferenceWords& row : rows) {
    if (row.at.field != nullptr)
      wanted.push_back({row.at, ValueOf(m_there, row.at)});
    else
      bytes.push_back(row.byte);
  }
  Taken taken{shown, {}, {}};
  taken.refused = ApplyChanges(taken.values, wanted, m_texts);
  taken.isNewLimit = taken.values.lowerBandLimit != shown.lowerBandLimit;
  if (!bytes.empty()) TakeBytes(std::move(bytes), here, taken);
  return taken;
}

// A new limit resets the channels, including bytes in which the file did not differ. So all bytes that differ
// afterwards are taken.
void Comparison::TakeBytes(std::vector<ByteDifference> bytes, const RadioImage& here, Taken& taken) const {
  RadioImage image = here;
  if (taken.isNewLimit) {
    static_cast<void>(RestartChannels(image, ParseWhole(taken.values.lowerBandLimit).value_or(0), m_texts));
    RadioImage stored = image;
    Encode(taken.values, stored, m_texts);
    bytes = CompareImages(stored, m_other, m_texts).bytes;
  }
  for (const ByteDifference& byte : bytes)
    TakeByte(image, byte);
  taken.image = image;
}

} // namespace mr4500x
