// Overriding the style's own way.
#include "drop_down.h"

#include <QComboBox>
#include <QProxyStyle>

namespace mr4500x {
namespace {

constexpr int VisibleItems = 16;

class ShortDropDown : public QProxyStyle {
public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returnData) const override {
    return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, returnData);
  }
};

} // namespace

void KeepDropDownShort(QComboBox& list) {
  auto* const style = new ShortDropDown;
  style->setParent(&list);
  list.setStyle(style);
  list.setMaxVisibleItems(VisibleItems);
}

} // namespace mr4500x
