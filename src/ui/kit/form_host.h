#pragma once
// Shows the logic's forms as Qt dialogs, modal or modeless. Each form has a view that builds
// its widgets and binds them to the form's controls; the dialog closes when the form unloads.
// Open to the dialog views and to the window, which owns the host.
#include "gadgets/form.h"
#include <QDialog>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <type_traits>
#include <typeindex>

namespace tsl {

class DialogContext;

// The dialog of one form. Its title follows the form's Caption; Escape and the close box do
// what the form's closeBox does.
class FormDialog : public QDialog {
    Q_OBJECT
  public:
    FormDialog(Form& form, DialogContext& shell, QWidget* parent);
    // A modeless dialog owns its form and frees it with itself.
    FormDialog(std::unique_ptr<Form> form, DialogContext& shell, QWidget* parent);
    ~FormDialog() override;
    Form& form() const { return form_; }

    void reject() override;

  private:
    std::unique_ptr<Form> owned_;
    Form& form_;
    DialogContext& shell_;
};

class QtFormHost : public FormHost {
  public:
    using ViewBuilder = std::function<void(Form&, FormDialog&, DialogContext&)>;
    // Makes a form of the view's type as its command would, for a check of every view. A
    // form shown from another one holds that one for its life.
    using Sample = std::function<std::shared_ptr<Form>(DialogContext&)>;
    struct View {
        ViewBuilder build;
        Sample sample;
    };
    explicit QtFormHost(QWidget* owner = nullptr) : owner_(owner) {}
    void setShell(DialogContext* shell) { shell_ = shell; }
    void setOwner(QWidget* owner) { owner_ = owner; }
    // The view of the forms of type F.
    template <typename F>
    void registerView(void (*build)(F&, FormDialog&, DialogContext&), Sample sample = {}) {
        if (!sample) {
            if constexpr (std::is_constructible_v<F, DialogContext&>)
                sample = [](DialogContext& context) { return std::make_shared<F>(context); };
        }
        // A form reaches its builder only where its type is exactly F (`viewOf`).
        views_[std::type_index(typeid(F))] = {
            [build](Form& form, FormDialog& dialog, DialogContext& shell) {
                build(static_cast<F&>(form), dialog, shell);
            },
            std::move(sample)};
    }
    // A form of type F, shown from a form of type Owner.
    template <typename Owner, typename F> static Sample ownedBy() {
        return [](DialogContext& context) -> std::shared_ptr<Form> {
            auto owner = std::make_shared<Owner>(context);
            return {new F(*owner), [owner](Form* form) { delete form; }};
        };
    }
    const std::map<std::type_index, View>& views() const { return views_; }
    void showModal(Form& form) override;
    void showModeless(std::unique_ptr<Form> form) override;
    // The modal dialog on screen now, for tests; null when none.
    FormDialog* current() const { return current_; }

  private:
    // The view of the form; null, and the form unloaded with a message, when it has none.
    const View* viewOf(Form& form);
    QPointer<QWidget> owner_;
    DialogContext* shell_ = nullptr;
    std::map<std::type_index, View> views_;
    QPointer<FormDialog> current_;
};

// The views of the program's forms, registered once.
void registerFormViews(QtFormHost& host);

} // namespace tsl
