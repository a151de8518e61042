#include "gadgets/menu_item.h"

namespace tsl {

void MenuItem::setCaption(const QString& caption) {
    if (caption_ == caption) return;
    caption_ = caption;
    emit changed();
}

void MenuItem::setChecked(bool on) {
    if (checked_ == on) return;
    checked_ = on;
    emit changed();
}

void MenuItem::setIconKey(const QString& key) {
    if (iconKey_ == key) return;
    iconKey_ = key;
    emit changed();
}

} // namespace tsl
