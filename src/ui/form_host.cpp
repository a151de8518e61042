#include "ui/form_host.h"
#include "shell/shell_mdi.h"
#include <QApplication>
#include <QMessageBox>

namespace tsl {

FormDialog::FormDialog(Form& form, QWidget* parent) : QDialog(parent), form_(form) {
    setWindowTitle(form.Caption);
    setObjectName(form.formName());
    connect(&form, &Form::unloaded, this, &QDialog::accept);
}

void FormDialog::reject() {
    // Escape and the close box act as the form's Cancel; the form decides when it goes.
    if (form_.isLoaded() && onCloseBox) {
        onCloseBox();
        if (form_.isLoaded()) return;
    }
    form_.Unload();
    QDialog::reject();
}

void QtFormHost::registerView(const QString& formName, ViewBuilder builder) {
    builders_[formName] = std::move(builder);
}

void QtFormHost::showModal(Form& form) {
    const auto it = builders_.find(form.formName());
    if (it == builders_.end() || !shell_) {
        QMessageBox::information(owner_, QStringLiteral("Tessaline"),
                                 QStringLiteral("This dialog is not available yet."));
        form.Unload();
        return;
    }
    QWidget* parent =
        QApplication::activeModalWidget() ? QApplication::activeModalWidget() : owner_.data();
    FormDialog dialog(form, parent);
    it->second(form, dialog, *shell_);
    if (!form.isLoaded()) return; // a view may close the form while it is built
    current_ = &dialog;
    dialog.exec();
    current_ = nullptr;
}

} // namespace tsl
