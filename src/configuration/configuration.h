// One radio's configuration as the editor shows it: every setting in its text or list position. Decode makes it from
// the image and Encode puts it back; the windows, the reports and the command line show it. A setting by its name is
// fields.h's business.
//
// A stored value without a list item shows as no selection (-1) and keeps its code; one without a text in a channel
// cell shows a text that names it ("CTC#77"). Either comes back as it was, unless the user edits that list or cell.
#pragma once

#include "channel_record.h"
#include "choice_lists.h"
#include "field_texts.h"
#include "key_rules.h"
#include "signaling.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::string_view NoNumberText = "----------------"; // no ID, no ANI, no radio record

// The selection of a list and, for no selection, the stored code that has no item.
struct Choice {
  int position = -1;
  std::uint8_t unlisted = 0;
  bool operator==(const Choice&) const = default;
};

// The columns of gridTTS.
enum class TtsColumn : std::uint8_t { No, ToneAFreq, ToneADur, ToneBFreq, ToneBDur, GapTime, GroupCallDur };
inline constexpr std::size_t TtsColumnCount = 7;

struct Configuration {
  std::string lowerBandLimit, upperBandLimit; // whole MHz
  std::array<Choice, ChoiceListCount> lists;  // by ChoiceList
  bool scanSignal = false;
  std::string emergencyAni, connectId, disconnectId;
  std::array<ChannelTexts, ChannelCount> channels;
  std::string identityNumber, firmwareVersion; // of the radio; no file holds them
  KeyProgram keys;
  std::array<std::uint8_t, KeyCount> keyCodes{}; // the key bytes behind a list without a selection
  std::array<std::array<std::string, TtsColumnCount>, TtsEntryCount> ttsTable; // column 0 stays empty
  std::int16_t fiveToneStandard = 1; // the standard in force; the list "Standards" is taken over by a collect
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

// What the user sees of a list: the selected item, "" for no selection.
[[nodiscard]] std::string_view TextOf(const Configuration& configuration, ChoiceList list);
[[nodiscard]] std::string_view KeyTextOf(const Configuration& configuration, std::size_t key);
[[nodiscard]] inline bool IsTtsMode(const Configuration& configuration) {
  return configuration[ChoiceList::SelectCall].position == TtsMode;
}

enum class DecodeEnd {
  Complete,
  DataError, // no valid 5-tone standard is stored; the standard, the TTS table and the reset time have not been filled
};
struct Decoded {
  Configuration configuration;
  bool keyConflict = false; // two keys had Talk Around or Reverse: the second is put back, the message is due
  DecodeEnd end = DecodeEnd::Complete;
};

// What the image shows. In 5-tone mode the TTS table shows its defaults, as the radio keeps none then.
[[nodiscard]] Decoded Decode(const RadioImage& image, const FieldTexts& texts);

// After a fill of the editor: a stored standard 0 becomes 1; in 5-tone mode the TTS defaults go into the image, but the
// tones of a standard that the list does not offer stay.
void SettleAfterFill(RadioImage& image);

// Collects the image. Either half of the emergency pair is stored as the pair. A number box that holds no number leaves
// its bytes as they were.
void Encode(const Configuration& configuration, RadioImage& image, const FieldTexts& texts);

// Before a collect: what Encode stores for half of the emergency pair, shown; true when a key list changed.
bool CompleteEmergencyPair(Configuration& configuration);
// Before a collect: in 5-tone mode the standard in force becomes the one selected.
void TakeSelectedStandard(Configuration& configuration);

// Resets the image to its defaults and returns what the editor shows of it, without a radio's identity and firmware.
[[nodiscard]] Configuration NewConfiguration(RadioImage& image, const FieldTexts& texts, const LocalTime& now);

} // namespace mr4500x
