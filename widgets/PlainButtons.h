// The desktop's own style but for the icons on the buttons of dialogs: a desktop without icons of its own would get
// the toolkit's, which belong to no family here, and on some buttons only.
#pragma once

#include <QProxyStyle>

namespace velmora {

class PlainButtons : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

} // namespace velmora
