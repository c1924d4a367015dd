// Everything that the editor shows, as one plain record. Decode makes it from the image and Encode puts it back; the
// windows set their controls from it and gather it again, the headless companion prints it, the reports print from it.
//
// What a list has no item for is shown as no selection (-1), and what a cell has no text for under a text that names
// it. Either comes back as it was, unless the user edits that list or cell: a list keeps the code beside its position.
#pragma once

#include "channel_record.h"
#include "choice_lists.h"
#include "field_texts.h"
#include "key_rules.h"
#include "signaling.h"

#include <array>
#include <cstdint>
#include <string>

namespace mr4500x {

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
  std::string lowerBandLimit, upperBandLimit;
  std::array<Choice, ChoiceListCount> lists; // by ChoiceList: cboRadio, cboScan, cboTuneSwitch, cboFive
  bool scanSignal = false;
  std::string emergencyAni, connectId, disconnectId;
  std::array<ChannelTexts, ChannelCount> channels; // gridChannel, chkCH, chkTx
  std::string identityNumber, firmwareVersion;
  KeyProgram keys;                        // cboKey
  std::array<std::uint8_t, 6> keyCodes{}; // the key bytes behind a list without a selection
  std::array<std::array<std::string, TtsColumnCount>, TtsEntryCount> ttsTable; // column 0 stays empty
  std::int16_t fiveToneStandard = 1;
  bool autoResetOff = false;
  std::string autoResetTime = "5";

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
[[nodiscard]] std::string_view TextOf(const Configuration& values, ChoiceList list);
[[nodiscard]] std::string_view KeyTextOf(const Configuration& values, std::size_t key);

enum class DecodeEnd {
  Complete,
  DataError, // ResetTimeBlock byte 2 was 0 and is now 1; the standard, the TTS table and the reset time are not filled
};
struct DecodeResult {
  DecodeEnd end;
  bool keyConflict; // two keys with Talk Around or Reverse: the message is due, the second is put back
};

// Fills the values from the image. The values come in as the editor showed them before: a reset time of 0 leaves the
// box's text. In 5-tone mode the TTS defaults go into the grid and the image, as the TTS table is not kept then; the
// tones of a standard that the list does not offer are left in the image.
[[nodiscard]] DecodeResult Decode(RadioImage& image, Configuration& values, const FieldTexts& texts);

// Collects the image from the values. Forces the emergency pair in both. A number box that holds no number leaves
// its bytes as they were.
void Encode(Configuration& values, RadioImage& image, const FieldTexts& texts);

// The new configuration: the image reset to its defaults and the editor showing it.
void ResetEditor(RadioImage& image, Configuration& values, const FieldTexts& texts, const LocalTime& now);

} // namespace mr4500x
