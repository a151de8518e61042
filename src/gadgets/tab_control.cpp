#include "gadgets/tab_control.h"
#include "runtime/runtime_error.h"

namespace tsl {

namespace {
[[noreturn]] void noSuchTab(int index) {
    raise(ErrInvalidProcedureCall, QStringLiteral("TabIndex %1 does not exist").arg(index));
}
} // namespace

QString TabControl::TabCaption(int index) const {
    if (index < 1 || index > TabCount()) noSuchTab(index);
    return captions_.at(index - 1);
}

void TabControl::SelectTab(int index) {
    if (index < 1 || index > TabCount()) noSuchTab(index);
    selected_ = index;
    emit changed();
    // A click on the tab that is already selected runs the handler again, as a click would.
    if (TabClick) TabClick();
}

} // namespace tsl
