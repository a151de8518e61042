#include "gadgets/rebar.h"
#include "runtime/runtime_error.h"

namespace tsl {

void cReBar::requireRebar() const {
    if (!created_) raise(ErrInvalidProcedureCall, QStringLiteral("No hWndRebar!"));
}

const cReBar::Band& cReBar::band(int index) const {
    requireRebar();
    if (index < 0 || index >= static_cast<int>(bands_.size())) raise(ErrSubscriptOutOfRange);
    return bands_[static_cast<size_t>(index)];
}

int cReBar::AddBandByHwnd(cToolbar* child, const QString& text, const QString& key) {
    requireRebar();
    bands_.push_back(Band{child, text, key, true});
    emit changed();
    return static_cast<int>(bands_.size()) - 1;
}

int cReBar::BandCount() const {
    requireRebar();
    return static_cast<int>(bands_.size());
}

bool cReBar::BandVisible(int index) const {
    return band(index).visible;
}

void cReBar::setBandVisible(int index, bool on) {
    band(index);
    Band& b = bands_[static_cast<size_t>(index)];
    if (b.visible == on) return;
    b.visible = on;
    emit bandVisibleChanged(index, on);
    emit changed();
}

cToolbar* cReBar::BandChild(int index) const {
    return band(index).child;
}

QString cReBar::BandKey(int index) const {
    return band(index).key;
}

int cReBar::BandIndexForKey(const QString& key) const {
    requireRebar();
    for (size_t i = 0; i < bands_.size(); ++i)
        if (bands_[i].key == key) return static_cast<int>(i);
    return -1;
}

} // namespace tsl
