// Drop-down lists that stay small.
#pragma once

class QComboBox;

namespace mr4500x {

// A list of many items opens as a short one with a scroll bar: some styles open a menu as high as the screen, with
// another item than the current one under the pointer.
void KeepDropDownShort(QComboBox& list);

} // namespace mr4500x
