#pragma once
// A dialog is a plain object: its controls hold its state, its handlers keep their names.
// Each control registers itself with the form that owns it, so a form can list its controls
// and find one by name. The view shows a form through a FormHost and closes it when it unloads.
#include <QObject>
#include <QString>
#include <memory>
#include <vector>

namespace tsl {

class Control;
class CommandButton;

class Form : public QObject {
    Q_OBJECT
  public:
    explicit Form(QString formName) : formName_(std::move(formName)) {}
    const QString& formName() const { return formName_; }

    // The window's title; the view follows it.
    const QString& Caption() const { return caption_; }
    void setCaption(const QString& caption);

    // The controls, in the order they were declared.
    const std::vector<Control*>& controls() const { return controls_; }
    // The control of that name; null when the form has none.
    Control* control(const QString& name) const;
    template <typename T> T* find(const QString& name) const {
        return dynamic_cast<T*>(control(name));
    }
    // The buttons that Enter and Escape press (their Default and Cancel properties).
    CommandButton* defaultButton() const;
    CommandButton* cancelButton() const;
    // What the window's close box and Escape do: press the Cancel button, or just unload.
    virtual void closeBox();

    bool isLoaded() const { return loaded_; }
    // Brings the window forward with the keyboard (a window shown beside the main one).
    void Show() { emit activateRequested(); }
    void SetFocus() { emit activateRequested(); }
    void Unload() {
        if (!loaded_) return;
        loaded_ = false;
        emit unloaded();
    }

  signals:
    void unloaded();
    void activateRequested();
    void captionChanged();

  private:
    friend class Control;
    QString formName_;
    QString caption_;
    std::vector<Control*> controls_;
    bool loaded_ = true;
};

class FormHost {
  public:
    virtual ~FormHost() = default;
    // Shows the form and returns when it has unloaded (or the user closed its window, which
    // the host treats as the form's close box).
    virtual void showModal(Form& form) = 0;
    // Shows the form beside the main window and returns at once. The host owns the form from
    // now on and frees it after it unloads.
    virtual void showModeless(std::unique_ptr<Form> form) = 0;
};

} // namespace tsl
