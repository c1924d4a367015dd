// One radio's configuration as the editor shows it: every setting as a text or list position. A stored value without a
// list item is shown as no selection (-1). In a channel cell, a value without a text is shown like "CTC#77". Both are
// stored unchanged unless the user edits that list or cell.
#pragma once

#include "channel_record.h"
#include "choice_lists.h"
#include "key_rules.h"
#include "signaling.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::string_view NoNumberText = "----------------"; // no ID, no ANI, no radio record

// A list's selection or, if that is -1, the stored code that has no item.
struct Choice {
  int position = -1;
  std::uint8_t unlisted = 0;
  bool operator==(const Choice&) const = default;
};

// In the order of gridTTS.
enum class TtsColumn : std::uint8_t { No, ToneAFreq, ToneADur, ToneBFreq, ToneBDur, GapTime, GroupCallDur };
inline constexpr std::size_t TtsColumnCount = 7;
// The cells of TtsEntry's tones and times.
inline constexpr std::array TtsToneColumns = {TtsColumn::ToneAFreq, TtsColumn::ToneBFreq};
inline constexpr std::array TtsTimeColumns = {TtsColumn::ToneADur, TtsColumn::ToneBDur, TtsColumn::GapTime,
                                              TtsColumn::GroupCallDur};

struct Configuration {
  std::string lowerBandLimit, upperBandLimit; // whole MHz
  std::array<Choice, ChoiceListCount> lists;  // indexed by ChoiceList
  bool scanSignal = false;
  std::string emergencyAni, connectId, disconnectId;
  std::array<ChannelTexts, ChannelCount> channels;
  std::string identityNumber, firmwareVersion; // read from the radio; not in files
  KeyProgram keys;
  std::array<std::array<std::string, TtsColumnCount>, TtsEntryCount> ttsTable; // column 0 stays empty
  bool autoResetOff = false;
  std::string autoResetTime = "5"; // seconds; kept while it is OFF

  Choice& operator[](ChoiceList list) { return lists[static_cast<std::size_t>(list)]; }
  const Choice& operator[](ChoiceList list) const { return lists[static_cast<std::size_t>(list)]; }
  std::string& Tts(std::size_t entry, TtsColumn column) {
    return ttsTable[entry - 1][static_cast<std::size_t>(column)];
  }
  const std::string& Tts(std::size_t entry, TtsColumn column) const {
    return ttsTable[entry - 1][static_cast<std::size_t>(column)];
  }
  bool operator==(const Configuration&) const = default;
};

// The selected item, "" for no selection.
[[nodiscard]] std::string_view TextOf(const Configuration& configuration, ChoiceList list);
[[nodiscard]] std::string_view KeyTextOf(const Configuration& configuration, std::size_t key);
[[nodiscard]] inline bool IsTtsMode(const Configuration& configuration) {
  return configuration[ChoiceList::SelectCall].position == TtsMode;
}

enum class DecodeEnd {
  Complete,
  DataError, // the stored 5-tone standard is 0: standard, TTS table and reset time are not filled in
};
struct Decoded {
  Configuration configuration;
  int keyConflicts = 0; // keys reset because another key has Talk Around or Reverse; show KeyConflictText for each
  DecodeEnd end = DecodeEnd::Complete;
};

// In 5-tone mode the TTS table gets its defaults, because the radio then has none. The keys are selected one by one in
// the lists that showed `shownKeys`, so their rules and remembered selections still apply.
[[nodiscard]] Decoded Decode(const RadioImage& image, const FieldTexts& texts, const KeyProgram& shownKeys = {});

// Call after Decode and before Encode. The stored 5-tone standard becomes the image's FiveToneStandard. A stored 0
// becomes 1 and leaves FiveToneStandard unchanged. In 5-tone mode it loads the TTS defaults into the image, but keeps
// the tones of a standard that is not in the list.
void SettleAfterFill(RadioImage& image);
// The image with 1 in place of a stored 5-tone standard of 0, with which Decode would end early.
[[nodiscard]] RadioImage WithStandard(RadioImage image);

// Stores the configuration in the image, with everything that a collect does. In 5-tone mode the selected standard
// becomes FiveToneStandard. Half of the emergency pair is stored as the whole pair. A number box without a number
// leaves its bytes unchanged.
void Encode(const Configuration& configuration, RadioImage& image, const FieldTexts& texts);

// Resets the image to its defaults and returns what the editor shows, without identity number and firmware version.
[[nodiscard]] Configuration NewConfiguration(RadioImage& image, const FieldTexts& texts, const LocalTime& now);

} // namespace mr4500x
