#include "ui/kit/form_host.h"
#include "shell/dialog_context.h"
#include <QApplication>

namespace tsl {

FormDialog::FormDialog(Form& form, DialogContext& shell, QWidget* parent)
    : QDialog(parent), form_(form), shell_(shell) {
    setObjectName(form.formName());
    setWindowTitle(form.Caption());
    connect(&form, &Form::captionChanged, this, [this] { setWindowTitle(form_.Caption()); });
    connect(&form, &Form::unloaded, this, &QDialog::accept);
    connect(&form, &Form::activateRequested, this, [this] {
        show();
        raise();
        activateWindow();
    });
}

FormDialog::FormDialog(std::unique_ptr<Form> form, DialogContext& shell, QWidget* parent)
    : FormDialog(*form, shell, parent) {
    owned_ = std::move(form);
}

FormDialog::~FormDialog() {
    // The widgets go before the controls they are bound to.
    for (QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        delete child;
}

void FormDialog::reject() {
    if (form_.isLoaded()) {
        shell_.dispatch([this] { form_.closeBox(); });
        if (form_.isLoaded()) return; // the form decides when it goes
    }
    QDialog::reject();
}

const QtFormHost::View* QtFormHost::viewOf(Form& form) {
    const auto found = views_.find(std::type_index(typeid(form)));
    if (found != views_.end() && shell_) return &found->second;
    // Every dialog registers its view; one that did not is left closed rather than shown empty.
    qWarning("No view is registered for the form %s", qPrintable(form.formName()));
    form.Unload();
    return nullptr;
}

void QtFormHost::showModal(Form& form) {
    const View* view = viewOf(form);
    if (!view) return;
    QWidget* parent =
        QApplication::activeModalWidget() ? QApplication::activeModalWidget() : owner_.data();
    FormDialog dialog(form, *shell_, parent);
    view->build(form, dialog, *shell_);
    if (!form.isLoaded()) return; // a view may close the form while it is built
    current_ = &dialog;
    dialog.exec();
    current_ = nullptr;
}

void QtFormHost::showModeless(std::unique_ptr<Form> form) {
    const View* view = viewOf(*form);
    if (!view) return;
    Form& shown = *form;
    // Owned by the main window, so it stays in front of it and goes with it.
    auto* dialog = new FormDialog(std::move(form), *shell_, owner_.data());
    dialog->setModal(false);
    view->build(shown, *dialog, *shell_);
    // Freed after the handler that unloaded it has returned.
    QObject::connect(&shown, &Form::unloaded, dialog, &QObject::deleteLater);
    if (!shown.isLoaded()) {
        dialog->deleteLater();
        return;
    }
    dialog->show();
}

} // namespace tsl
