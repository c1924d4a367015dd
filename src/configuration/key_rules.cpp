#include "key_rules.h"

namespace mr4500x {
namespace {

bool ShowsEmergency(const KeyProgram& keys) {
  return keys.selection[ShortA] == KeySpecial;
}
bool ShowsCancelEmergency(const KeyProgram& keys) {
  return keys.selection[LongA] == KeySpecial;
}

bool IsTalkAroundOrReverse(std::size_t key, int position) {
  if (position < 0) return false;
  const std::uint8_t code = KeyItems(key)[static_cast<std::size_t>(position)].code;
  return code == TalkAroundKey || code == ReverseKey;
}

int CountTalkAroundOrReverse(const KeyProgram& keys) {
  const bool emergency = ShowsEmergency(keys) || ShowsCancelEmergency(keys);
  int count = 0;
  for (std::size_t key = emergency ? ShortB : ShortA; key <= LongC; ++key)
    if (LongPressEnabled(keys, key) && IsTalkAroundOrReverse(key, keys.selection[key])) ++count;
  return count;
}

bool RunRules(KeyProgram& keys, std::size_t changed);

bool SetAndRun(KeyProgram& keys, std::size_t key, int position) {
  if (keys.selection[key] == position) return false;
  keys.selection[key] = position;
  return RunRules(keys, key);
}

bool RunRules(KeyProgram& keys, std::size_t changed) {
  bool message = false;
  keys.fixedLongAShown = ShowsEmergency(keys) && !keys.fixedShortAShown;
  if (changed == LongA && !ShowsCancelEmergency(keys) && ShowsEmergency(keys))
    message |= SetAndRun(keys, ShortA, KeyUnassigned);
  if (changed == ShortA && !ShowsEmergency(keys) && ShowsCancelEmergency(keys))
    message |= SetAndRun(keys, LongA, KeyUnassigned);
  keys.fixedShortAShown = ShowsCancelEmergency(keys) && !keys.fixedLongAShown;
  if (CountTalkAroundOrReverse(keys) >= 2) {
    // If the remembered selection conflicts too, the key becomes unassigned, so that the recursion ends.
    const int back = keys.selection[changed] == keys.remembered[changed] ? KeyUnassigned : keys.remembered[changed];
    SetAndRun(keys, changed, back);
    return true;
  }
  keys.remembered = keys.selection;
  return message;
}

} // namespace

bool LongPressEnabled(const KeyProgram& keys, std::size_t longKey) {
  return !((longKey == LongB && keys.selection[ShortB] == KeySpecial) ||
           (longKey == LongC && keys.selection[ShortC] == KeySpecial));
}

bool SelectKey(KeyProgram& keys, std::size_t key, int position) {
  keys.selection[key] = position;
  return RunRules(keys, key);
}

} // namespace mr4500x
