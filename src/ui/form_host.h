#pragma once
// Shows the logic's forms as modal Qt dialogs. Each form has a view that builds its widgets
// and binds them to the form's controls; the dialog closes when the form unloads.
#include "gadgets/form.h"
#include <QDialog>
#include <QPointer>
#include <functional>
#include <map>

namespace tsl {

class ShellMDI;

// The dialog of one form. Closing it from its title bar is the form's Cancel.
class FormDialog : public QDialog {
    Q_OBJECT
  public:
    FormDialog(Form& form, QWidget* parent);
    // What the window's close box does; the form's own Cancel by default of each view.
    std::function<void()> onCloseBox;

    void reject() override;

  private:
    Form& form_;
};

class QtFormHost : public FormHost {
  public:
    using ViewBuilder = std::function<void(Form&, FormDialog&, ShellMDI&)>;
    explicit QtFormHost(QWidget* owner = nullptr) : owner_(owner) {}
    void setShell(ShellMDI* shell) { shell_ = shell; }
    void setOwner(QWidget* owner) { owner_ = owner; }
    void registerView(const QString& formName, ViewBuilder builder);
    void showModal(Form& form) override;
    // The dialog on screen now, for tests; null when none.
    FormDialog* current() const { return current_; }

  private:
    QPointer<QWidget> owner_;
    ShellMDI* shell_ = nullptr;
    std::map<QString, ViewBuilder> builders_;
    QPointer<FormDialog> current_;
};

// The views of the program's forms, registered once.
void registerFormViews(QtFormHost& host);

} // namespace tsl
