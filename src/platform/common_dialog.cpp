#include "platform/common_dialog.h"
#include "platform/platform.h"
#include "runtime/runtime_error.h"

namespace tsl {

void CommonDialog::ShowOpen() {
    afterShow(platform_->showOpen(*this));
}
void CommonDialog::ShowSave() {
    afterShow(platform_->showSave(*this));
}
void CommonDialog::ShowColor() {
    afterShow(platform_->showColor(*this));
}

void CommonDialog::afterShow(bool accepted) {
    if (accepted) return;
    FileName.clear();
    FileTitle.clear();
    if (CancelError) raise(ErrCancelled);
}

QString fileTitleOf(const QString& path) {
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? path : path.mid(slash + 1);
}

} // namespace tsl
