// Any text in any cell: what the rules accept survives a collect and a fill, and after one collect even a text that no
// rule has checked stays stable.
#include "configuration.h"
#include "decimal.h"
#include "embedded_info.h"
#include "field_rules.h"
#include "function_settings.h"
#include "fuzz_input.h"
#include "set_field.h"
#include "tone_codes.h"

namespace mr4500x {
namespace {

constexpr LocalTime Moment = {2004, 11, 4, 9, 5, 7};

struct Editor {
  FieldTexts texts;
  RadioImage image;
  Configuration values;

  [[nodiscard]] char Separator() const { return texts.decimalSeparator; }
  [[nodiscard]] Band Limits() const { return {LowerBandLimit(image.BandBlock), UpperBandLimit(image.BandBlock)}; }
  // A collect and a fill.
  Configuration ShownAgain() {
    CompleteEmergencyPair(values);
    TakeSelectedStandard(values);
    Encode(values, image, texts);
    SettleAfterFill(image);
    return Decode(image, texts).configuration;
  }
  void ChooseMode(int position) {
    if (values[ChoiceList::SelectCall].position == position) return;
    values[ChoiceList::SelectCall] = {position, 0};
    ResetSelcallCells(values);
  }
};

std::size_t TakeChannel(FuzzInput& input) {
  return static_cast<std::size_t>(input.Below(static_cast<int>(ChannelCount)));
}

void TypeFrequency(Editor& editor, FuzzInput& input) {
  ChannelTexts& channel = editor.values.channels[TakeChannel(input)];
  const std::uint8_t options = input.Byte();
  const bool transmit = (options & 1) != 0;
  const int step = (options & 2) != 0 ? 1 : 0;
  const GridColumn column = transmit ? GridColumn::TxFreq : GridColumn::RxFreq;
  channel[transmit ? GridColumn::TxStep : GridColumn::RxStep] = StepText(step, editor.Separator());
  channel[column] = CommitFrequency(channel[column], editor.Limits(), StepUnit(step), editor.Separator()).value_or("");
  std::string typed = input.Text();
  if ((options & 4) != 0)
    typed =
        StepFrequency(typed, (options & 8) != 0, editor.Limits(), StepUnit(step), editor.Separator()).value_or(typed);
  const auto text = CommitFrequency(typed, editor.Limits(), StepUnit(step), editor.Separator());
  Require(text.has_value() == ReadFrequency(typed, editor.Separator()).has_value(), "numbers only are frequencies");
  if (!text) return;
  const TensOfHertz frequency = ReadFrequency(*text, editor.Separator()).value_or(-1);
  Require(frequency >= TensOfHertz{editor.Limits().lower} * 100'000 &&
              frequency < TensOfHertz{editor.Limits().upper} * 100'000,
          "a frequency lies in the band");
  Require(frequency % StepUnit(step) == 0, "a frequency is a count of steps");
  channel[column] = *text;
  const auto number = static_cast<std::size_t>(&channel - editor.values.channels.data());
  Require(editor.ShownAgain().channels[number] == channel, "a channel is shown again as it was typed");
}

void TypeBand(Editor& editor, FuzzInput& input) {
  const std::string lower = input.Text(), upper = input.Text();
  const BandCheck low = CheckLowerBand(lower, upper), high = CheckUpperBand(lower, upper);
  Require(low.entry == high.entry, "both limits are judged alike");
  if (low.entry != BandEntry::Accepted || low.value >= high.value) return;
  Require(low.value >= LowestBandLimit && high.value <= HighestBandLimit, "the limits are limited");
  editor.values.lowerBandLimit = std::to_string(low.value);
  editor.values.upperBandLimit = std::to_string(high.value);
  const Configuration shown = editor.ShownAgain();
  Require(shown.lowerBandLimit == editor.values.lowerBandLimit && shown.upperBandLimit == editor.values.upperBandLimit,
          "the band is shown again");
}

void TypeId(Editor& editor, FuzzInput& input) {
  std::string id;
  for (const char key : input.Text())
    if (const auto character = IdCharacter(key); character && id.size() < MostDigits) id += *character;
  Require(IdTextValid(id), "what the keys give is an ID");
  std::string* const boxes[] = {&editor.values.emergencyAni, &editor.values.connectId, &editor.values.disconnectId};
  *boxes[input.Below(3)] = id.empty() ? std::string(NoNumberText) : id;
  editor.values[ChoiceList::PttId] = {3, 0}; // both IDs in use
  const Configuration shown = editor.ShownAgain();
  Require(shown.emergencyAni == editor.values.emergencyAni && shown.connectId == editor.values.connectId &&
              shown.disconnectId == editor.values.disconnectId,
          "the IDs are shown again");
}

void TypeResetTime(Editor& editor, FuzzInput& input) {
  const std::string typed = input.Text();
  const int by = input.Below(2) == 0 ? 1 : -1;
  if (const auto spun = SpinResetTime(typed, by)) Require(LimitResetTime(*spun).text == *spun, "spinning stays inside");
  const ResetTimeCheck check = StepResetTime(typed, by).value_or(LimitResetTime(typed));
  editor.values.autoResetTime = check.text;
  editor.values.autoResetOff = check.off;
  const Configuration shown = editor.ShownAgain();
  Require(shown.autoResetOff == check.off && (check.off || shown.autoResetTime == check.text),
          "the reset time is shown again");
}

void TypeCode(Editor& editor, FuzzInput& input) {
  const CodeCheck check = CheckFiveToneCode(input.Text());
  Require(check.text.size() == 5 && check.text.find_first_not_of("0123456789") == std::string::npos,
          "a code has five digits");
  editor.ChooseMode(1);
  const std::size_t channel = TakeChannel(input);
  const GridColumn column = input.Below(2) == 0 ? GridColumn::RxSelCall : GridColumn::TxSelCall;
  editor.values.channels[channel][column] = "5T " + check.text;
  Require(editor.ShownAgain().channels[channel][column] == "5T " + check.text, "a code is shown again");
}

void TypeTts(Editor& editor, FuzzInput& input) {
  editor.ChooseMode(0);
  const auto entry = 1U + static_cast<std::size_t>(input.Below(static_cast<int>(TtsEntryCount)));
  const auto hertz = LimitTtsFrequency(input.Text());
  const auto tenths = TtsTime(input.Text(), editor.Separator());
  if (hertz) editor.values.Tts(entry, TtsColumn::ToneBFreq) = *hertz;
  if (tenths) editor.values.Tts(entry, TtsColumn::GapTime) = TtsTimeText(*tenths, editor.Separator());
  Require(editor.ShownAgain().ttsTable == editor.values.ttsTable, "the TTS table is shown again");
}

void ChooseTone(Editor& editor, FuzzInput& input) {
  const std::vector<std::string> tones = ToneChoiceList(editor.texts);
  const std::string& tone = tones[input.Byte() % tones.size()];
  const std::size_t channel = TakeChannel(input);
  const GridColumn column = input.Below(2) == 0 ? GridColumn::RxTone : GridColumn::TxTone;
  editor.values.channels[channel][column] = tone;
  Require(editor.ShownAgain().channels[channel][column] == tone, "a tone is shown again");
}

void StoreTone(Editor& editor, FuzzInput& input) {
  ToneField tone{input.Byte(), input.Byte(), input.Byte()};
  const std::string text = input.Text();
  for (const bool isTyped : {false, true}) {
    if (isTyped) ApplyToneText(tone, text, editor.texts);
    ToneField same = tone;
    ApplyToneText(same, ToneText(tone, editor.texts), editor.texts);
    Require(ToneText(same, editor.texts) == ToneText(tone, editor.texts), "a tone has a text that gives it back");
  }
}

void SelectKeys(Editor& editor, FuzzInput& input) {
  const auto key = static_cast<std::size_t>(input.Below(KeyCount));
  static_cast<void>(SelectKey(editor.values.keys, key, input.Below(static_cast<int>(KeyItems(key).size()))));
  const KeyProgram shown = editor.ShownAgain().keys;
  const KeyProgram& keys = editor.values.keys; // with the emergency pair completed by the collect
  for (std::size_t i = 0; i < KeyCount; ++i)
    Require(!LongPressEnabled(keys, i) || shown.selection[i] == keys.selection[i], "the keys are shown again");
}

void StoreInformation(Editor& editor, FuzzInput& input) {
  std::u16string text;
  for (const char character : input.Text())
    text += static_cast<char16_t>(static_cast<unsigned char>(character) * 257);
  const EmbeddedInfo before = editor.image.EmbeddedInfoBlock;
  const bool stored = StoreEmbeddedText(editor.image.EmbeddedInfoBlock, text);
  Require(stored == (text.size() <= MostEmbeddedCharacters), "the information has its length");
  Require(stored ? EmbeddedText(editor.image.EmbeddedInfoBlock) == text : editor.image.EmbeddedInfoBlock == before,
          "the information comes back");
}

// Bypasses the rules, as no user can: the image takes what it can and is stable from then on.
void PutAnything(Editor& editor, FuzzInput& input) {
  const std::string text = input.Text();
  const auto column = 1U + static_cast<std::size_t>(input.Below(static_cast<int>(GridColumnCount) - 1));
  editor.values.channels[TakeChannel(input)].cells[column] = text;
  editor.values = editor.ShownAgain();
  const RadioImage image = editor.image;
  Configuration shown = editor.ShownAgain();
  Require(editor.image == image && shown == editor.values, "what was collected once is at rest");
}

void Type(FuzzInput input) {
  Editor editor{BuildFieldTexts(input.Below(2) == 0 ? '.' : ','), {}, {}};
  editor.values = NewConfiguration(editor.image, editor.texts, Moment);
  void (*const actions[])(Editor&, FuzzInput&) = {TypeFrequency, TypeBand,         TypeId,     TypeResetTime,
                                                  TypeCode,      TypeTts,          ChooseTone, StoreTone,
                                                  SelectKeys,    StoreInformation, PutAnything};
  for (int i = 0; i < 16 && !input.IsEmpty(); ++i)
    actions[static_cast<std::size_t>(input.Below(static_cast<int>(std::size(actions))))](editor, input);
}

} // namespace
} // namespace mr4500x

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mr4500x::Type(mr4500x::FuzzInput({data, size}));
  return 0;
}
