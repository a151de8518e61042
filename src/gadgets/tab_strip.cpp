#include "gadgets/tab_strip.h"
#include "runtime/runtime_error.h"

namespace tsl {

void TabStrip::add(const QString& key, const QString& caption) {
    tabs_.append({key, caption});
    if (selected_ < 0) selected_ = 0;
    emit changed();
}

void TabStrip::remove(int index) {
    if (index < 0 || index >= count()) raise(ErrSubscriptOutOfRange);
    tabs_.removeAt(index);
    if (selected_ >= count())
        selected_ = count() - 1;
    else if (selected_ > index)
        --selected_;
    emit changed();
}

void TabStrip::setCaption(int index, const QString& caption) {
    if (index < 0 || index >= count()) raise(ErrSubscriptOutOfRange);
    tabs_[index].Caption = caption;
    emit changed();
}

void TabStrip::setKey(int index, const QString& key) {
    if (index < 0 || index >= count()) raise(ErrSubscriptOutOfRange);
    tabs_[index].Key = key;
}

int TabStrip::findKeyIgnoringCase(const QString& key) const {
    const QString wanted = key.toLower();
    for (int i = 0; i < count(); ++i)
        if (tabs_.at(i).Key.toLower() == wanted) return i;
    return -1;
}

void TabStrip::select(int index) {
    if (index < 0 || index >= count()) raise(ErrSubscriptOutOfRange);
    if (index == selected_) return;
    selected_ = index;
    emit changed();
    if (Click) Click();
}

} // namespace tsl
