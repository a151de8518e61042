#include "gadgets/toolbar.h"
#include "runtime/runtime_error.h"

namespace tsl {

void cToolbar::AddButton(const QString& toolTip, int image, int style) {
    Button b;
    b.toolTip = toolTip;
    b.image = image;
    b.style = style;
    buttons_.push_back(b);
}

const cToolbar::Button& cToolbar::button(int index) const {
    if (index < 0 || index >= ButtonCount()) raise(ErrSubscriptOutOfRange);
    return buttons_[static_cast<size_t>(index)];
}

cToolbar::Button& cToolbar::at(int index) {
    if (index < 0 || index >= ButtonCount()) raise(ErrSubscriptOutOfRange);
    return buttons_[static_cast<size_t>(index)];
}

void cToolbar::setButtonEnabled(int index, bool on) {
    Button& b = at(index);
    if (b.enabled == on) return;
    b.enabled = on;
    emit buttonChanged(index);
}

void cToolbar::setButtonChecked(int index, bool on) {
    Button& b = at(index);
    if (b.checked == on) return;
    b.checked = on;
    emit buttonChanged(index);
}

void cToolbar::setButtonVisible(int index, bool on) {
    Button& b = at(index);
    if (b.visible == on) return;
    b.visible = on;
    emit buttonChanged(index);
}

void cToolbar::press(int index) {
    const Button& b = button(index);
    if (!b.enabled || b.style == Separator) return;
    if (b.style == Check) setButtonChecked(index, !b.checked);
    if (ButtonClick) ButtonClick(index);
}

void cToolbar::pressArrow(int index) {
    const Button& b = button(index);
    if (!b.enabled || b.style != DropDown) return;
    if (ButtonDropDown) ButtonDropDown(index);
}

} // namespace tsl
