#pragma once
// Shows the logic's forms as Qt dialogs, modal or modeless. Each form has a view that builds
// its widgets and binds them to the form's controls; the dialog closes when the form unloads.
#include "gadgets/form.h"
#include <QDialog>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>

namespace tsl {

class ShellMDI;

// The dialog of one form. Its title follows the form's Caption; Escape and the close box do
// what the form's closeBox does.
class FormDialog : public QDialog {
    Q_OBJECT
  public:
    FormDialog(Form& form, ShellMDI& shell, QWidget* parent);
    // A modeless dialog owns its form and frees it with itself.
    FormDialog(std::unique_ptr<Form> form, ShellMDI& shell, QWidget* parent);
    ~FormDialog() override;
    Form& form() const { return form_; }

    void reject() override;

  private:
    std::unique_ptr<Form> owned_;
    Form& form_;
    ShellMDI& shell_;
};

class QtFormHost : public FormHost {
  public:
    using ViewBuilder = std::function<void(Form&, FormDialog&, ShellMDI&)>;
    explicit QtFormHost(QWidget* owner = nullptr) : owner_(owner) {}
    void setShell(ShellMDI* shell) { shell_ = shell; }
    void setOwner(QWidget* owner) { owner_ = owner; }
    void registerView(const QString& formName, ViewBuilder builder);
    void showModal(Form& form) override;
    void showModeless(std::unique_ptr<Form> form) override;
    // The modal dialog on screen now, for tests; null when none.
    FormDialog* current() const { return current_; }

  private:
    // Builds the view of the form into the dialog; false when the form has none.
    bool hasView(Form& form);
    QPointer<QWidget> owner_;
    ShellMDI* shell_ = nullptr;
    std::map<QString, ViewBuilder> builders_;
    QPointer<FormDialog> current_;
};

// The views of the program's forms, registered once.
void registerFormViews(QtFormHost& host);

} // namespace tsl
