#pragma once
// A dialog is a plain object: its controls hold its state, its handlers keep their names.
// The view shows it modally through a FormHost and closes it when the form unloads.
#include <QObject>
#include <QString>

namespace tsl {

class Form : public QObject {
    Q_OBJECT
  public:
    explicit Form(QString formName) : formName_(std::move(formName)) {}
    const QString& formName() const { return formName_; }
    QString Caption;
    bool isLoaded() const { return loaded_; }
    void Unload() {
        if (!loaded_) return;
        loaded_ = false;
        emit unloaded();
    }

  signals:
    void unloaded();

  private:
    QString formName_;
    bool loaded_ = true;
};

class FormHost {
  public:
    virtual ~FormHost() = default;
    // Shows the form and returns when it has unloaded (or the user closed its window, which
    // the host treats as the form's Cancel).
    virtual void showModal(Form& form) = 0;
};

} // namespace tsl
