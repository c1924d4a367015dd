// Any text in any cell: what the rules accept survives a collect and a fill, and after one collect even a text that no
// rule has checked stays stable.
#include "configuration.h"
#include "function_settings.h"
#include "fuzz_input.h"
#include "set_field.h"

namespace mr4500x {
namespace {

constexpr LocalTime Moment = {2004, 11, 4, 9, 5, 7};

struct Editor {
  FieldTexts texts;
  RadioImage image;
  Configuration values;

  // A collect and a fill.
  Configuration ShownAgain() {
    Encode(values, image, texts);
    Configuration shown = Decode(image, texts).configuration;
    SettleAfterFill(image);
    return shown;
  }
};

// Any text or any offered choice, for any setting.
void SetAny(Editor& editor, FuzzInput& input) {
  const Field& field = Fields()[input.Byte() % Fields().size()];
  const FieldAt at = {&field, 1 + input.Byte() % EntriesOf(field.group)};
  std::string text = input.Text();
  const auto choices = ChoicesOf(editor.values, at, editor.texts);
  if (text.empty() && !choices.empty()) text = choices[input.Byte() % choices.size()];
  const Configuration before = editor.values;
  if (SetField(editor.values, at, text, editor.texts))
    return Require(editor.values == before, "a refused text changes nothing");
  Require(TextOf(editor.ShownAgain(), at) == TextOf(editor.values, at), "a setting is shown again as it was set");
}

// Bypasses the rules, as no user can: the image takes what it can and is stable from then on.
void PutAnything(Editor& editor, FuzzInput& input) {
  const std::string text = input.Text();
  const auto column = 1U + static_cast<std::size_t>(input.Below(static_cast<int>(GridColumnCount) - 1));
  editor.values.channels[input.Byte() % ChannelCount].cells[column] = text;
  editor.values = editor.ShownAgain();
  const RadioImage image = editor.image;
  Configuration shown = editor.ShownAgain();
  Require(editor.image == image && shown == editor.values, "what was collected once is at rest");
}

} // namespace

void Fuzz(FuzzInput input) {
  Editor editor{BuildFieldTexts(input.Below(2) == 0 ? '.' : ','), {}, {}};
  editor.values = NewConfiguration(editor.image, editor.texts, Moment);
  void (*const actions[])(Editor&, FuzzInput&) = {SetAny, PutAnything};
  for (int i = 0; i < 64 && !input.IsEmpty(); ++i)
    actions[input.Byte() % std::size(actions)](editor, input);
}

} // namespace mr4500x
