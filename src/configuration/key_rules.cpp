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

int RunRules(KeyProgram& keys, std::size_t changed);

int SetAndRun(KeyProgram& keys, std::size_t key, int position) {
  return keys.selection[key] == position ? 0 : SelectKey(keys, key, position);
}

// Returns the number of messages.
int RunRules(KeyProgram& keys, std::size_t changed) {
  int messages = 0;
  keys.fixedLongAShown = ShowsEmergency(keys) && !keys.fixedShortAShown;
  if (changed == LongA && !ShowsCancelEmergency(keys) && ShowsEmergency(keys))
    messages += SetAndRun(keys, ShortA, KeyUnassigned);
  if (changed == ShortA && !ShowsEmergency(keys) && ShowsCancelEmergency(keys))
    messages += SetAndRun(keys, LongA, KeyUnassigned);
  keys.fixedShortAShown = ShowsCancelEmergency(keys) && !keys.fixedLongAShown;
  if (CountTalkAroundOrReverse(keys) >= 2) {
    // If the remembered selection also conflicts, the key becomes unassigned, so that the recursion ends.
    const int back = keys.selection[changed] == keys.remembered[changed] ? KeyUnassigned : keys.remembered[changed];
    return messages + 1 + SetAndRun(keys, changed, back);
  }
  keys.remembered = keys.selection;
  return messages;
}

} // namespace

bool LongPressEnabled(const KeyProgram& keys, std::size_t longKey) {
  return !((longKey == LongB && keys.selection[ShortB] == KeySpecial) ||
           (longKey == LongC && keys.selection[ShortC] == KeySpecial));
}

int SelectKey(KeyProgram& keys, std::size_t key, int position) {
  keys.selection[key] = position;
  return RunRules(keys, key);
}

bool CompleteEmergencyPair(KeyProgram& keys) {
  if (ShowsEmergency(keys) == ShowsCancelEmergency(keys)) return false;
  // No message is due: with the pair shown, the keys of A don't count for Talk Around.
  static_cast<void>(SelectKey(keys, ShowsEmergency(keys) ? LongA : ShortA, KeySpecial));
  return true;
}

} // namespace mr4500x
