#include "report_texts.h"

#include "fields.h"

#include <span>
#include <variant>

namespace mr4500x {
namespace {

using RadioText = std::string Configuration::*; // a text of the radio record, which has no settings
struct SelCallWithStandard {};                  // the mode, with the standard in 5-tone mode
struct SignalSentence {};                       // one sentence instead of label and value

using Source = std::variant<std::monostate, FieldPlace, RadioText, SelCallWithStandard, SignalSentence>;

struct Item {
  std::string_view label;
  Source source;
};

struct Line {
  Item left, right;
};

struct Section {
  std::string_view title;
  std::span<const Line> lines;
};

// clang-format off
constexpr Line RadioRecord[] = {
  {{"ID Number: ",         &Configuration::identityNumber},          {"Version of Firmware: ", &Configuration::firmwareVersion}},
};
constexpr Line GlobalRadioSettings[] = {
  {{"Battery Save: ",      ChoiceList::BatterySave},       {"SelCall: ",             SelCallWithStandard{}}},
  {{"Beep Tone: ",         ChoiceList::BeepTone},          {"Digit Time: ",          ChoiceList::DigitTime}},
  {{"Tx TOT: ",            ChoiceList::TxTot},             {"Inter Digit Time: ",    ChoiceList::InterDigitTime}},
  {{"Busy Channel Lock: ", ChoiceList::BusyChLock},        {"Beep Enable: ",         ChoiceList::BeepEnable}},
  {{"Squelch Level: ",     ChoiceList::SquelchLevel},      {"PTT ID: ",              ChoiceList::PttId}},
  {{"Compander: ",         ChoiceList::Compander},         {"Connect ID: ",          Box::ConnectId}},
  {{"VOX Sensitivity: ",   ChoiceList::VoxSensivity},      {"Disconnect ID: ",       Box::DisconnectId}},
  {{"Manual Tune",         ChoiceList::ManualTune},        {"Emergency Ani: ",       Box::EmergencyAni}},
};
constexpr Line ScanInformation[] = {
  {{"Scan Mode: ",         ChoiceList::ScanMode},          {"Priority CH: ",         ChoiceList::PriorityCh}},
  {{"TO Scan Delay: ",     ChoiceList::ToScanDelay},       {"Revert CH: ",           ChoiceList::RevertCh}},
  {{"Restore Time: ",      ChoiceList::RestoreTime},       {"Look Back: ",           ChoiceList::LookBack}},
  {{"",                    SignalSentence{}},              {}},
};
constexpr Line KeyProgramLines[] = {
  {{"Short A: ",           ShortA},                        {"Long A: ",              LongA}},
  {{"Short B: ",           ShortB},                        {"Long B: ",              LongB}},
  {{"Short C: ",           ShortC},                        {"Long C: ",              LongC}},
};
constexpr Section Sections[] = {
  {"Radio Record",          RadioRecord},
  {"Global Radio Settings", GlobalRadioSettings},
  {"Scan Information",      ScanInformation},
  {"Key Program",           KeyProgramLines},
};
// clang-format on

std::string SelCallText(const Configuration& values) {
  std::string text(TextOf(values, ChoiceList::SelectCall));
  if (!IsTtsMode(values)) text += " (Standards: " + std::string(TextOf(values, ChoiceList::Standards)) + ")";
  return text;
}

SettingText Resolve(const Item& item, const Configuration& values) {
  SettingText text{std::string(item.label), {}};
  if (const auto* place = std::get_if<FieldPlace>(&item.source))
    text.value = TextOf(values, {&FieldOf(*place)});
  else if (const auto* record = std::get_if<RadioText>(&item.source))
    text.value = values.*(*record);
  else if (std::holds_alternative<SelCallWithStandard>(item.source))
    text.value = SelCallText(values);
  else if (std::holds_alternative<SignalSentence>(item.source))
    text.label = values.scanSignal ? "Scan with Signal." : "Scan without Signal.";
  return text;
}

std::vector<SettingsSection> SettingsOf(const Configuration& values) {
  std::vector<SettingsSection> sections;
  for (const Section& section : Sections) {
    SettingsSection& resolved = sections.emplace_back();
    resolved.title = section.title;
    for (const Line& line : section.lines)
      resolved.lines.push_back({Resolve(line.left, values), Resolve(line.right, values)});
  }
  return sections;
}

TtsTexts TtsOf(const Configuration& values) {
  TtsTexts texts;
  for (std::size_t entry = 0; entry < texts.size(); ++entry)
    for (std::size_t column = 0; column < texts[entry].size(); ++column)
      texts[entry][column] = values.ttsTable[entry][column + 1];
  return texts;
}

} // namespace

ReportTexts ReportTextsOf(const Configuration& values, std::u16string_view embeddedText, std::string_view printedAt) {
  ReportTexts texts;
  texts.printedAt = printedAt;
  texts.frequencyBand = values.lowerBandLimit + "MHz~" + values.upperBandLimit + "MHz";
  texts.channels = values.channels;
  texts.settings = SettingsOf(values);
  texts.selCall = TextOf(values, ChoiceList::SelectCall);
  texts.autoResetTime = values.autoResetOff ? "OFF" : values.autoResetTime + "s";
  texts.tts = TtsOf(values);
  texts.embeddedText = embeddedText;
  return texts;
}

} // namespace mr4500x
